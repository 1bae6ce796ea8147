// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "grid/TypedGrid.h"
#include "subjects/SubjectRecord.h"
#include "subjects/entry/EntryLists.h"
#include "subjects/entry/EntryPreferences.h"
#include "subjects/entry/EntryWords.h"

namespace zova {

/// The grid of a subject's recalls, one page per test: valid numbers, where Enter leads, and the buttons beside the
/// grid.
class EntryGrid {
 public:
  EntryGrid(SubjectRecord& record, Preferences& preferences, MessageBoxes& boxes, Desktop& desktop);

  /// Shows the record's first test with an empty undo history. `project` must outlive the entry.
  void Open(const ProjectParameters& project);
  [[nodiscard]] int Test() const noexcept { return m_cells.Page(); }
  TypedGrid& Cells() noexcept { return m_cells; }

  /// Lets recalls be typed and shown as words of the list, for all subjects from now on.
  void SetWords(WordList list) { m_words.Set(std::move(list)); }
  [[nodiscard]] const WordList& Words() const noexcept { return m_words.List(); }
  /// The words for the text in the box.
  const EntryWords& WordsForBox();
  /// Enters a line of their list, from 0.
  void TakeWord(int line);

  /// Where the cursor is: "Recalled, line 10 (1 to 60)", "Minute (1 to 7)"; without numbers in a column not in use.
  [[nodiscard]] std::string WhereText() const;

  /// Says that a typed character was not taken.
  [[nodiscard]] std::string DroppedText(const std::string& character) const;

  void InsertLine();
  void DeleteSelectedLines();
  void AddMinute();
  void SubtractMinute();

  /// Makes a change by the checks undoable. `before` has the lists before it.
  void NoteChange(const RecallLists& before);

 private:
  [[nodiscard]] GridRules Rules();
  [[nodiscard]] std::string Shown(int test, GridCell cell) const;
  [[nodiscard]] bool TakesWords() const noexcept {
    return !m_words.IsEmpty() && m_cells.Cursor().Column == kItemColumn;
  }
  [[nodiscard]] bool IsTyped(std::string_view text) const;
  [[nodiscard]] CellInput Typed(GridCell cell, std::string_view text);
  [[nodiscard]] CellInput Pasted(GridCell cell, std::string_view text) const;
  GridCell Next(GridCell entered);
  GridCell NextBlank(GridCell cell);
  void Bump(int step, const char* wrongColumn);
  template <typename Edit>
  void Change(Edit&& edit);
  void Note(std::vector<CellChange> changes);

  SubjectRecord& m_record;
  Preferences& m_preferences;
  MessageBoxes& m_boxes;
  const ProjectParameters* m_project = nullptr;
  EntryWords m_words;
  TypedGrid m_cells;
};

}  // namespace zova
