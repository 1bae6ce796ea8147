// SPDX-License-Identifier: GPL-3.0-or-later

#include <algorithm>
#include <array>

#include "session/QuickHelpSentences.h"

namespace zova {

namespace {

constexpr auto kViewing = std::to_array<Sentence>({
    {"FraPrmScr", "One page of the open project's parameters."},
    {"chkRating", "Checked if ratings were taken on this test."},
    {"cmdAddVar", "The variables of a project cannot be changed any more."},
    {"cmdBack1", "Returns to the page before this one."},
    {"cmdCancel1", "Closes these pages and returns to the main screen."},
    {"cmdEntered1", "Closes these pages and returns to the main screen."},
    {"cmdNext1", "Goes on to the next page of the parameters."},
    {"cmdPath", "The directories of a project cannot be changed any more."},
    {"cmdReview", "Shows the next variable with its levels."},
    {"dirPath", "The directories of a project cannot be changed any more."},
    {"drvPath", "The directories of a project cannot be changed any more."},
    {"fraParam", "These pages show the parameters of the open project, which cannot be changed."},
    {"lblAbbrPrompt", "The prefix of the project's data files stands in the box beside this."},
    {"lblCat", "'Yes' if the study list was made of categories with the same number of items in each."},
    {"lblDir", "The directories of a project cannot be changed any more."},
    {"lblDrive", "The directories of a project cannot be changed any more."},
    {"lblExp", "The title names the project and its parameter file."},
    {"lblMin", "'Yes' if the minute of each recall is entered along with the item."},
    {"lblRate", "'Yes' if subjects rated the items that they recalled."},
    {"lblRating", "The tests on which ratings were taken are checked."},
    {"lblTitle", "What this page shows of the project."},
    {"lblVarHelp", "Highlight a name to read all of it in the box; it cannot be changed any more."},
    {"lblVarLevel", "A level of this variable; click it to read its name in the box."},
    {"lblVarName", "The variable on display; 'Review' shows the next one."},
    {"lblVariable", "Says whose name stands in the box below: a variable's or a level's."},
    {"optCatNo", "Marked if the study list was not made of categories."},
    {"optFalsemem", "Marked if each category has a critical item that was never presented."},
    {"optFalseno", "Marked if the list has only items that were presented."},
    {"optMinno", "Marked if no minutes are entered."},
    {"optMinyes", "Marked if the minute of each recall is entered along with the item."},
    {"optMrkno", "Marked if the project has no between subject variables."},
    {"optMrkyes", "Marked if the project has between subject variables."},
    {"optRateno", "Marked if no ratings are entered."},
    {"optRateyes", "Marked if a rating is entered with each item on the tests that are checked below."},
    {"optcatyes", "Marked if the study list was made of categories."},
    {"pnlWizard", "These pages show the parameters of the open project, which cannot be changed."},
    {"txtAbbr", "The prefix of the project's data files."},
    {"txtCategories", "The number of categories, all with an equal number of items."},
    {"txtExp", "The title of the project, which its parameter file bears, too."},
    {"txtItemmax", "The number of study items."},
    {"txtMinMax", "The length of a recall test in minutes."},
    {"txtPath", "A directory that holds the project's data; \"(none)\" keeps no copies."},
    {"txtRatemax", "The highest rating that a subject could give."},
    {"txtTests", "The number of recall tests per subject."},
    {"txtVariable", "The name of the variable or level that is highlighted."},
});
static_assert(std::is_sorted(kViewing.begin(), kViewing.end(), IsBefore));

constexpr auto kNewBackup = std::to_array<Sentence>({
    {"cmdCancel3", "Leaves this screen without making a backup."},
    {"cmdSetPath", "Copies the project's data into the directory that stands in the box."},
    {"fraParamPath", "Choose the directory of the new backup on this screen, or type its path."},
    {"lblParamTitle", "What this screen is for: the data of the open project are copied to another directory."},
});
static_assert(std::is_sorted(kNewBackup.begin(), kNewBackup.end(), IsBefore));

}  // namespace

std::span<const Sentence> ViewedProjectSentences() noexcept { return kViewing; }
std::span<const Sentence> NewBackupSentences() noexcept { return kNewBackup; }

}  // namespace zova
