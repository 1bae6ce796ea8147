// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>
#include <utility>

#include "platform/desktop/Desktop.h"
#include "platform/desktop/MessageBoxes.h"
#include "subjects/SubjectRecord.h"
#include "subjects/entry/EntryHistory.h"
#include "subjects/entry/EntryLists.h"
#include "subjects/entry/EntryPreferences.h"

namespace zova {

/// The grid of one test's recalls and the one-cell box through which everything is typed: its cursor, its selection and
/// what every key does. Lines and columns count from 1.
class EntryGrid {
 public:
  /// Lines whose cells changed since they were last asked for; none when FirstLine is above LastLine.
  struct ChangedLines {
    int FirstLine = 1;
    int LastLine = 0;
  };

  EntryGrid(SubjectRecord& record, Preferences& preferences, MessageBoxes& boxes, Desktop& desktop);

  /// The record's first test, cursor on the first cell, nothing to undo. `project` must outlive the entry.
  void Open(const ProjectParameters& project);
  void ShowTest(int test, EntryCell cursor = {});

  [[nodiscard]] int Test() const noexcept { return m_test; }
  [[nodiscard]] int Lines() const noexcept { return m_project->ItemCount; }
  [[nodiscard]] std::int16_t Value(int line, int column) const {
    return CellValue(m_record.Lists.At(m_test, line), column);
  }
  [[nodiscard]] EntryCell Cursor() const noexcept { return m_cursor; }
  [[nodiscard]] const EntryBlock& Selection() const noexcept { return m_selection; }
  [[nodiscard]] bool IsUsed(int column) const { return IsColumnUsed(*m_project, m_test, column); }
  ChangedLines TakeChangedLines() noexcept { return std::exchange(m_changed, {}); }

  [[nodiscard]] const std::string& EntryText() const noexcept { return m_text; }
  /// Keeps the digits.
  void SetEntryText(std::string_view text);

  /// False when the number was refused, or has no cell to go to.
  bool Enter();
  /// Takes a number that was typed but not entered, as Enter would. False when it was refused.
  bool TakeStandingText() { return m_text.empty() || Enter(); }
  /// The arrow keys; with text in the box they do nothing.
  void Move(int lines, int columns);
  /// Tab and Shift+Tab, after taking what stands in the box: the next or previous cell of the columns in use.
  void Step(int direction);
  /// Shift+arrows, and the mouse from where it was pressed. The cursor goes along, the other end stays.
  void ExtendSelection(int lines, int columns) { SelectTo({m_cursor.Line + lines, m_cursor.Column + columns}); }
  void SelectTo(EntryCell cell);
  /// Takes what stands in the box first, which belongs to the cell that is left.
  void Click(EntryCell cell) {
    if (TakeStandingText()) PlaceCursor(cell);
  }

  void InsertLine();
  void DeleteSelectedLines();
  void AddMinute();
  void SubtractMinute();

  /// The selection for a spreadsheet: cells separated by tabs, every line ended by LF, blanks empty.
  [[nodiscard]] std::string Copy() const;
  /// From the selection's first cell on; cursor and selection stay.
  void Paste(std::string_view text);
  void Undo();
  void Redo();
  /// A change that others made (the checks), to be undone like one of ours. `before` is the lists as they were.
  void NoteChange(const RecallLists& before);

 private:
  void PlaceCursor(EntryCell cell);
  bool Refuse(const std::string& message, std::string details = {});  // always false
  void Advance();
  void GoToNextBlank();
  void Bump(int step, const char* wrongColumn);
  template <typename Edit>
  void Change(Edit&& edit);
  void ShowChange(const EntryHistory::Place& place);
  void MarkChanged(int firstLine, int lastLine) noexcept;

  SubjectRecord& m_record;
  Preferences& m_preferences;
  MessageBoxes& m_boxes;
  Desktop& m_desktop;
  const ProjectParameters* m_project = nullptr;
  EntryHistory m_history;
  int m_test = 1;
  EntryCell m_cursor;
  EntryCell m_anchor;
  EntryBlock m_selection;
  std::string m_text;
  ChangedLines m_changed;
};

}  // namespace zova
