// SPDX-License-Identifier: GPL-3.0-or-later
//
// The entry grid's cursor and box: where every key leads. What changes the lists is in EntryGridEdits.cpp.

#include "subjects/entry/EntryGrid.h"

#include <algorithm>
#include <cassert>
#include <iterator>

namespace zova {

EntryGrid::EntryGrid(SubjectRecord& record, Preferences& preferences, MessageBoxes& boxes, Desktop& desktop)
    : m_record(record), m_preferences(preferences), m_boxes(boxes), m_desktop(desktop) {}

void EntryGrid::Open(const ProjectParameters& project) {
  assert(m_record.Lists.TestCount() == project.TestCount && m_record.Lists.PositionCount() == project.ItemCount);
  m_project = &project;
  m_history.Clear();
  m_text.clear();
  ShowTest(1);
}

void EntryGrid::ShowTest(int test, EntryCell cursor) {
  m_test = test;
  MarkChanged(1, Lines());
  PlaceCursor(cursor);
}

void EntryGrid::MarkChanged(int firstLine, int lastLine) noexcept {
  const bool none = m_changed.FirstLine > m_changed.LastLine;
  m_changed.FirstLine = none ? firstLine : std::min(m_changed.FirstLine, firstLine);
  m_changed.LastLine = none ? lastLine : std::max(m_changed.LastLine, lastLine);
}

void EntryGrid::SetEntryText(std::string_view text) {
  m_text.clear();
  std::copy_if(text.begin(), text.end(), std::back_inserter(m_text), [](char c) { return c >= '0' && c <= '9'; });
}

void EntryGrid::PlaceCursor(EntryCell cell) {
  SelectTo(cell);
  m_anchor = m_cursor;
  m_selection = {m_cursor.Line, m_cursor.Line, m_cursor.Column, m_cursor.Column};
}

void EntryGrid::SelectTo(EntryCell cell) {
  m_cursor = {std::clamp(cell.Line, 1, Lines()), std::clamp(cell.Column, kItemColumn, kRatingColumn)};
  const auto [firstLine, lastLine] = std::minmax(m_anchor.Line, m_cursor.Line);
  const auto [firstColumn, lastColumn] = std::minmax(m_anchor.Column, m_cursor.Column);
  m_selection = {firstLine, lastLine, firstColumn, lastColumn};
}

void EntryGrid::Move(int lines, int columns) {
  if (m_text.empty()) PlaceCursor({m_cursor.Line + lines, m_cursor.Column + columns});
}

void EntryGrid::Step(int direction) {
  EntryCell cell = m_cursor;
  if (!TakeStandingText()) return;
  do {
    cell.Column += direction;
    if (cell.Column < kItemColumn || cell.Column > kRatingColumn) {
      cell.Line += direction;
      cell.Column = direction > 0 ? kItemColumn : kRatingColumn;
    }
    if (cell.Line < 1 || cell.Line > Lines()) return;  // from the first or last cell: as far as entering led
  } while (!IsUsed(cell.Column));
  PlaceCursor(cell);
}

void EntryGrid::Advance() {
  if (m_preferences.NextBlankSpace) return GoToNextBlank();
  const auto [line, column] = m_cursor;
  if (column == kItemColumn) {
    // Without minutes as if they were skipped.
    if (!m_preferences.SkipMinutes && IsUsed(kMinuteColumn)) return PlaceCursor({line, kMinuteColumn});
    // Kept: from here the rating's flag must be "Y", from the minute it must not be "N".
    if (IsTestRated(*m_project, m_test)) return PlaceCursor({line, kRatingColumn});
    return PlaceCursor({line + 1, kItemColumn});
  }
  if (column == kMinuteColumn) {
    return PlaceCursor(IsUsed(kRatingColumn) ? EntryCell{line, kRatingColumn} : EntryCell{line + 1, kItemColumn});
  }
  if (line < Lines()) PlaceCursor({line + 1, kItemColumn});
}

void EntryGrid::GoToNextBlank() {
  EntryCell cell = m_cursor;
  for (++cell.Column; cell.Line < Lines(); ++cell.Line, cell.Column = kItemColumn) {
    for (; cell.Column <= kRatingColumn; ++cell.Column) {
      if (IsUsed(cell.Column) && Value(cell.Line, cell.Column) == 0) return PlaceCursor(cell);
    }
  }
  m_preferences.NextBlankSpace = false;
  Inform(m_boxes, "The 'next blank space' option has been turned off because you reached the last line.");
  PlaceCursor({Lines(), kItemColumn});
}

}  // namespace zova
