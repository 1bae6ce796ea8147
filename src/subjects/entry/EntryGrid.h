// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string_view>
#include <vector>

#include "grid/TypedGrid.h"
#include "subjects/SubjectRecord.h"
#include "subjects/entry/EntryLists.h"
#include "subjects/entry/EntryPreferences.h"

namespace zova {

/// The grid of a subject's recalls, a page per test: which numbers its cells take, where Enter leads, and what the
/// buttons beside it do.
class EntryGrid {
 public:
  EntryGrid(SubjectRecord& record, Preferences& preferences, MessageBoxes& boxes, Desktop& desktop);

  /// The record's first test, nothing to undo. `project` must outlive the entry.
  void Open(const ProjectParameters& project);
  [[nodiscard]] int Test() const noexcept { return m_cells.Page(); }
  TypedGrid& Cells() noexcept { return m_cells; }

  void InsertLine();
  void DeleteSelectedLines();
  void AddMinute();
  void SubtractMinute();

  /// A change that others made (the checks), to be undone like one of ours. `before` is the lists as they were.
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
