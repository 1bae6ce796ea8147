// SPDX-License-Identifier: GPL-3.0-or-later

#include "words/WordListEditor.h"

#include <algorithm>
#include <utility>

#include "platform/desktop/FileErrorBoxes.h"
#include "project/ProjectLayout.h"
#include "project/StudyItems.h"
#include "text/Counted.h"
#include "words/CompanionCsv.h"
#include "words/ForeignWords.h"

namespace zova {

namespace {

std::size_t RowOf(GridCell cell) { return static_cast<std::size_t>(cell.Line) - 1; }

}  // namespace

WordListEditor::WordListEditor(const Platform& platform)
    : m_platform(platform), m_cells(platform.Boxes, platform.Pointer, Rules()) {}

GridRules WordListEditor::Rules() {
  return {.Text =
              [this](int, GridCell cell) {
                if (cell.Column > 0) return *CellText(cell);
                const std::string number = std::to_string(cell.Line);
                return IsStudied(cell.Line, *m_project) ? number : number + "  lure";
              },
          .SetText = [this](int, GridCell cell, const std::string& text) { SetText(cell, text); },
          .Typed = [this](GridCell cell, const std::string& text) { return Typed(cell, text); },
          .IsUsed = [this](int column) { return column == kWordColumn || m_project->Categorized == 1; },
          .IsTyped = IsPrintable,
          .PastedAll = [this](GridCell start, std::string_view text) { return Pasted(start, text); }};
}

std::string* WordListEditor::CellText(GridCell cell) {
  Word& word = m_list.Words[RowOf(cell)];
  return cell.Column == kWordColumn ? &word.Text : &word.Category;
}

void WordListEditor::SetText(GridCell cell, const std::string& text) {
  std::string& kept = *CellText(cell);
  if (cell.Column == kCategoryColumn) {
    m_categories = m_categories + (text.empty() ? 0 : 1) - (kept.empty() ? 0 : 1);
    m_list.HasCategories = m_categories > 0;
  }
  kept = text;
}

bool WordListEditor::Open(const ProjectParameters& project) {
  m_project = &project;
  m_known.reset();
  m_isUnfit = false;
  m_list = {};
  const bool isRead =
      WithRetry(m_platform.Boxes, [&] { m_known = ReadCompanion(m_platform.Files, project, CompanionFile::Words); });
  if (!isRead) return false;
  try {
    if (m_known) m_list = ParseWordList(*m_known, project);
  } catch (const CsvError& fault) {
    m_isUnfit = true;
    WarnPassedOver(m_platform.Boxes, CompanionError(fault, FilePath()));
  }
  m_list.Words.resize(static_cast<std::size_t>(project.ItemCount));
  m_categories = m_list.HasCategories ? m_list.Words.size() : 0;
  m_saved = m_list;
  m_toldSaved = false;
  m_cells.Open(project.ItemCount, {{"Item #"}, {"Word", true}, {"Category", true}});
  return true;
}

std::string WordListEditor::FilePath() const {
  return CompanionPath(m_project->PrimaryDir, *m_project, CompanionFile::Words);
}

CellInput WordListEditor::Typed(GridCell cell, std::string_view text) const {
  if (cell.Column == kCategoryColumn && m_project->Categorized != 1) return {{}, "The project has no categories."};
  if (cell.Column == kWordColumn && !m_cells.Selection().IsOneCell()) {
    return {{}, "You cannot give several items the same word."};
  }
  return {TidyWord(text)};
}

// A column of words, or rows with numbers, which then say where they go. Quotes, commas and semicolons inside a column
// that is pasted into "Category" belong to the names.
PastedBlock WordListEditor::Pasted(GridCell start, std::string_view text) const {
  PastedBlock block;
  try {
    for (ForeignWord& word : ReadForeignWords(text, WordSource::Pasted, start.Line, *m_project)) {
      if (start.Column == kCategoryColumn && !word.HasCategory) {
        const CellInput input = Typed({word.Item, kCategoryColumn}, word.Text);
        if (!input.Refusal.empty()) return {{}, input.Refusal, 1};
        block.Edits.push_back({{word.Item, kCategoryColumn}, std::move(word.Text)});
        continue;
      }
      block.Edits.push_back({{word.Item, kWordColumn}, std::move(word.Text)});
      if (word.HasCategory) block.Edits.push_back({{word.Item, kCategoryColumn}, std::move(word.Category)});
    }
  } catch (const CsvError& fault) {
    return {{}, std::string(fault.what()) + ".", static_cast<int>(fault.Line())};
  }
  return block;
}

void WordListEditor::ChooseFile() {
  if (!m_cells.EnterPendingText()) return;
  const auto path = m_platform.Dialogs.ChooseFile(
      {.Title = "Open Word List",
       .Directory = m_project->PrimaryDir,
       .Filters = {{"Word lists (*.csv)", "*.csv"}, {"Text files (*.txt)", "*.txt"}, {"All files (*.*)", "*.*"}}});
  if (!path) return;
  std::string bytes;
  if (!WithRetry(m_platform.Boxes, [&] { m_platform.Files.Read(*path, bytes); })) return;
  std::vector<CellEdit> edits;
  edits.reserve(2 * m_list.Words.size());
  for (int item = 1; item <= m_cells.Lines(); ++item) {
    edits.push_back({{item, kWordColumn}, {}});
    edits.push_back({{item, kCategoryColumn}, {}});
  }
  try {
    for (ForeignWord& word : ReadForeignWords(bytes, WordSource::File, 1, *m_project)) {
      const std::size_t at = 2 * (static_cast<std::size_t>(word.Item) - 1);
      edits[at].Text = std::move(word.Text);
      edits[at + 1].Text = std::move(word.Category);
    }
  } catch (const CsvError& fault) {
    Warn(m_platform.Boxes, std::string(fault.what()) + ".",
         "Line " + std::to_string(fault.Line()) + " of '" + *path + "'.");
    return;
  }
  m_cells.Apply(std::move(edits));
  m_cells.PlaceCursor({});
}

std::string WordListEditor::ToldText() const {
  const auto typed =
      std::count_if(m_list.Words.begin(), m_list.Words.end(), [](const Word& word) { return !word.Text.empty(); });
  const std::string items = Counted(m_list.Words.size(), "item", "items");
  if (typed == 0) return "Type the words of the " + items + ", paste them, or open a file that has them.";
  std::string text = std::to_string(typed) + " of " + items + (typed == 1 ? " has a word." : " have a word.");
  for (const WordFault& fault : FindWordFaults(m_list, *m_project)) {
    if (m_list.TextOf(fault.Item).empty() && !fault.IsCategory) continue;  // counted already
    return text + "  " + fault.Text + ".";
  }
  if (m_known && !m_isUnfit && m_list == m_saved) text += "  They are saved in '" + FilePath() + "'.";
  return text;
}

const std::string& WordListEditor::Told() {
  const bool isSaved = m_list == m_saved;
  if (m_toldRevision != m_cells.Revision() || m_toldSaved != isSaved) m_told = ToldText();
  m_toldRevision = m_cells.Revision();
  m_toldSaved = isSaved;
  return m_told;
}

bool WordListEditor::Save() {
  if (!m_cells.EnterTextBeforeLeaving()) return false;
  const auto isBlank = [](const Word& word) { return word.Text.empty() && word.Category.empty(); };
  if (m_known && std::all_of(m_list.Words.begin(), m_list.Words.end(), isBlank)) return Remove();
  const std::vector<WordFault> faults = FindWordFaults(m_list, *m_project);
  if (faults.empty()) return Write();
  const WordFault& first = faults.front();
  m_cells.ShowPage(1, {first.Item, first.IsCategory ? kCategoryColumn : kWordColumn});
  const std::size_t others = faults.size() - 1;
  return m_cells.Refuse(first.Text + ".",
                        others == 0 ? "" : Counted(others, "more fault was found.", "more faults were found."));
}

// Asks before a file is replaced that was not read, or not like this.
bool WordListEditor::MayReplace(const std::string& content) {
  std::optional<std::string> found;
  if (!WithRetry(m_platform.Boxes,
                 [&] { found = ReadCompanion(m_platform.Files, *m_project, CompanionFile::Words); })) {
    return false;
  }
  if (!found || found == content || (found == m_known && !m_isUnfit)) return true;
  const std::string name = "'" + CompanionName(*m_project, CompanionFile::Words) + "'";
  return Confirm(m_platform.Boxes,
                 {.Text = name + (found == m_known ? " does not fit the project." : " has changed since it was read.") +
                          "  Do you wish to replace it?",
                  .Buttons = BoxButtons::YesNo,
                  .Title = "Warning"});
}

bool WordListEditor::Write() {
  std::string content = FormatWordList(m_list);
  if (!MayReplace(content)) return false;
  if (!WithRetry(m_platform.Boxes,
                 [&] { WriteCompanion(m_platform.Files, *m_project, CompanionFile::Words, content); })) {
    return false;
  }
  m_known = std::move(content);
  m_isUnfit = false;
  m_saved = m_list;
  m_toldRevision = -1;
  return true;
}

bool WordListEditor::Remove() {
  if (!Confirm(m_platform.Boxes, {.Text = "Do you wish to remove the project's word list?",
                                  .Buttons = BoxButtons::YesNo,
                                  .Title = "Warning"}) ||
      !WithRetry(m_platform.Boxes, [&] { RemoveCompanion(m_platform.Files, *m_project, CompanionFile::Words); })) {
    return false;
  }
  m_known.reset();
  m_isUnfit = false;
  m_saved = m_list;
  m_toldRevision = -1;
  return true;
}

bool WordListEditor::MayLeave() {
  return !HasUnsavedChanges() ||
         Confirm(m_platform.Boxes,
                 {.Text = "You will lose all unsaved changes.  Are you sure that you want to do this?"});
}

}  // namespace zova
