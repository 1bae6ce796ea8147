// SPDX-License-Identifier: GPL-3.0-or-later
//
// The buttons beside the entry grid. A comparison of the lists before and after finds the change; without one there is
// no undo step.

#include <utility>

#include "subjects/entry/EntryGrid.h"

namespace zova {

namespace {

// `before` has the test's earlier entries.
void AddDifferences(std::vector<CellChange>& changes, int test, const Recall* before, const RecallLists& lists) {
  for (int line = 1; line <= lists.PositionCount(); ++line, ++before) {
    const Recall& after = lists.At(test, line);
    if (*before == after) continue;
    for (int column = kItemColumn; column <= kRatingColumn; ++column) {
      const int was = CellValue(*before, column);
      const int is = CellValue(after, column);
      if (was != is) changes.push_back({test, {line, column}, NumberCell(was), NumberCell(is)});
    }
  }
}

}  // namespace

void EntryGrid::Note(std::vector<CellChange> changes) {
  if (!changes.empty()) m_record.HasUnsavedChanges = true;
  m_cells.Note(std::move(changes));
}

void EntryGrid::NoteChange(const RecallLists& before) {
  std::vector<CellChange> changes;
  for (int test = 1; test <= before.TestCount(); ++test) {
    AddDifferences(changes, test, before.Test(test), m_record.Lists);
  }
  Note(std::move(changes));
}

template <typename Edit>
void EntryGrid::Change(Edit&& edit) {
  RecallLists& lists = m_record.Lists;
  const std::vector<Recall> before(lists.Test(Test()), lists.Test(Test()) + lists.PositionCount());
  edit(lists);
  std::vector<CellChange> changes;
  AddDifferences(changes, Test(), before.data(), lists);
  Note(std::move(changes));
}

void EntryGrid::InsertLine() {
  const int line = m_cells.Selection().FirstLine;
  const std::string question = InsertionLossQuestion(m_record.Lists, Test());
  if (!question.empty() &&
      !Confirm(m_boxes, {.Text = question, .Icon = BoxIcon::Question, .Buttons = BoxButtons::YesNo})) {
    return;
  }
  Change([&](RecallLists& lists) { InsertBlankLine(lists, Test(), line); });
  m_cells.PlaceCursor({line, m_cells.Cursor().Column});
}

void EntryGrid::DeleteSelectedLines() {
  constexpr int kMostLinesUnasked = 10;
  const Question question = {
      .Text = "You are about to permanently delete over 10 lines of data.  Are you sure you want to do this?",
      .Buttons = BoxButtons::YesNo,
      .Title = "Warning"};
  const GridBlock block = m_cells.Selection();
  if (block.Lines() > kMostLinesUnasked && !Confirm(m_boxes, question)) return;
  Change([&](RecallLists& lists) { DeleteLines(lists, Test(), block.FirstLine, block.LastLine); });
  m_cells.PlaceCursor({block.FirstLine, m_cells.Cursor().Column});
}

void EntryGrid::AddMinute() { Bump(1, "You can only select items in the 'Minute' column for this."); }

// Kept: this text has no full stop.
void EntryGrid::SubtractMinute() { Bump(-1, "You can only select items in the 'Minute' column for this"); }

void EntryGrid::Bump(int step, const char* wrongColumn) {
  if (!m_cells.IsUsed(kMinuteColumn)) return;
  const GridBlock& block = m_cells.Selection();
  if (block.FirstColumn != kMinuteColumn || block.LastColumn != kMinuteColumn) {
    m_cells.Refuse(wrongColumn);
    return;
  }
  Change([&](RecallLists& lists) {
    BumpMinutes(lists, Test(), block.FirstLine, block.LastLine, step, m_project->MaxMinutes);
  });
  m_record.HasUnsavedChanges = true;  // kept: even when no minute could change
}

}  // namespace zova
