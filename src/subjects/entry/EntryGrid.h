// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "grid/TypedGrid.h"
#include "subjects/SubjectRecord.h"
#include "subjects/entry/EntryLists.h"
#include "subjects/entry/EntryPreferences.h"

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

  /// Where the cursor is: "Recalled, line 10 (1 to 60)", "Minute (1 to 7)"; without numbers in a column not in use.
  [[nodiscard]] std::string WhereText() const;

  /// Says that a typed character was not taken.
  [[nodiscard]] static std::string DroppedText(const std::string& character);

  void InsertLine();
  void DeleteSelectedLines();
  void AddMinute();
  void SubtractMinute();

  /// Makes a change by the checks undoable. `before` has the lists before it.
  void NoteChange(const RecallLists& before);

 private:
  [[nodiscard]] GridRules Rules();
  [[nodiscard]] CellInput Typed(GridCell cell, std::string_view text) const;
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
  TypedGrid m_cells;
};

}  // namespace zova
