// SPDX-License-Identifier: GPL-3.0-or-later

#include <algorithm>
#include <array>

#include "session/QuickHelpSentences.h"

namespace zova {

namespace {

constexpr auto kSentences = std::to_array<Sentence>({
    {"cboColumnUse", "What the column that is highlighted above holds; each use belongs to one column."},
    {"cboFilter", "Choose a column here to take only the rows that have a certain value in it."},
    {"cmdImportBack", "Returns to the page before this one; your choices are kept."},
    {"cmdImportCancel", "Leaves these pages without importing anything."},
    {"cmdImportNew", "Makes a project from the table: its tests, items, categories and levels."},
    {"cmdImportNext", "Goes on to the next page; nothing is written before the last one."},
    {"cmdImportOpen", "Opens the project into which the recalls are to be imported."},
    {"cmdImportReport", "Saves what this page shows as a CSV file."},
    {"cmdImportRun", "Writes the subjects, each by the same save as one that was typed."},
    {"cmdReviewIntrusion", "Takes the selected responses for intrusions: recalls that are no items of the list."},
    {"cmdReviewNear",
     "Takes all proposals that differ from the response by one letter, unless the response is a word itself."},
    {"cmdReviewSkip", "Leaves the selected responses out, like remarks that are no recalls."},
    {"cmdReviewTake", "Takes the selected responses for the words that are proposed for them."},
    {"cmdReviewUndo", "Takes back what was decided last."},
    {"fraHowRead", "How the table is read; what was found out can be changed here."},
    {"fraImport", "Recalls are read from a table on these pages and become subjects of a project."},
    {"fraImportChoices", "What the import does where the table leaves it open."},
    {"grdColumns", "The columns of the table with their first values; highlight one to change its use below."},
    {"grdDryRun", "What the import would do: first how many of each kind, then each case with its row in the table."},
    {"grdReview",
     "Each response that is no word of its list, once; the keys K, I, S, D and U act like the buttons below."},
    {"lblChoice", "Choose an answer from the list below this question."},
    {"lblColumnNotes", "Other columns that would fit a use, and uses that cannot be found."},
    {"lblColumnUse", "What the column that is highlighted above holds."},
    {"lblColumns", "The columns of the table with their first values."},
    {"lblDryRun", "The result of reading the whole table; nothing has been written yet."},
    {"lblFilter", "Choose a column, and type a value beside it, to import a part of the table."},
    {"lblFilterValue", "Only rows with this value in the column are taken."},
    {"lblImportProject", "Which project the recalls belong to."},
    {"lblImportTitle", "The name of these screens: recalls are read from a table."},
    {"lblImportTold", "What would be written, and what is in its way."},
    {"lblImportVariables", "Check each column that tells your groups of subjects apart; its values become levels."},
    {"lblProposal", "The project that the table would make."},
    {"lblReview", "How many responses are to be decided about."},
    {"lblReviewItem", "Type the number or the word of another item for the selected responses, and press <Enter>."},
    {"lblTable", "The table, and what was found in it."},
    {"lstImportVariables",
     "Columns whose values are the same in all rows of a subject; check those that are variables."},
    {"txtFilterValue", "Type the value that the rows must have."},
    {"txtReviewItem", "Type the number or the word of an item here and press <Enter>."},
});
static_assert(std::is_sorted(kSentences.begin(), kSentences.end(), IsBefore));

}  // namespace

std::span<const Sentence> DataScreenSentences() noexcept { return kSentences; }

}  // namespace zova
