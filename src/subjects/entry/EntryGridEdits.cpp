// SPDX-License-Identifier: GPL-3.0-or-later
//
// What the entry grid does to the lists. Every change goes through Change: it is compared, so that what changed nothing
// is nothing to undo, noted, and sets the record's flag.

#include <limits>
#include <utility>

#include "subjects/entry/EntryGrid.h"
#include "text/LeadingNumber.h"

namespace zova {

template <typename Edit>
void EntryGrid::Change(Edit&& edit) {
  RecallLists& lists = m_record.Lists;
  const std::vector<Recall> before(lists.Test(m_test), lists.Test(m_test) + Lines());
  edit(lists);
  const auto changed = m_history.Note(m_test, before, lists);
  if (!changed) return;
  m_record.HasUnsavedChanges = true;
  MarkChanged(changed->Line, changed->LastLine);
}

bool EntryGrid::Refuse(const std::string& message, std::string details) {
  Warn(m_boxes, message, std::move(details));
  return false;
}

bool EntryGrid::Enter() {
  const EntryBlock block = m_selection;
  const int column = block.FirstColumn;
  if (column != block.LastColumn) {
    m_desktop.Beep();
    return false;
  }
  if (m_text.empty()) return true;
  const auto typed = LeadingInteger16(std::exchange(m_text, {}));
  const int number = typed ? *typed : std::numeric_limits<int>::max();
  const std::string refusal = (block.IsOneCell() ? CellRefusal : BlockRefusal)(*m_project, m_test, column, number);
  if (!refusal.empty()) return Refuse(refusal);
  Change([&](RecallLists& lists) {
    for (int line = block.FirstLine; line <= block.LastLine; ++line) {
      SetCellValue(lists.At(m_test, line), column, static_cast<std::int16_t>(number));
    }
  });
  if (block.IsOneCell()) Advance();
  return true;
}

void EntryGrid::InsertLine() {
  const int line = m_selection.FirstLine;
  const std::string question = InsertionLossQuestion(m_record.Lists, m_test);
  if (!question.empty() &&
      !Confirm(m_boxes, {.Text = question, .Icon = BoxIcon::Question, .Buttons = BoxButtons::YesNo})) {
    return;
  }
  Change([&](RecallLists& lists) { InsertBlankLine(lists, m_test, line); });
  PlaceCursor({line, m_cursor.Column});
}

void EntryGrid::DeleteSelectedLines() {
  constexpr int kMostLinesUnasked = 10;
  const Question question = {
      .Text = "You are about to permanently delete over 10 lines of data.  Are you sure you want to do this?",
      .Buttons = BoxButtons::YesNo,
      .Title = "Warning"};
  const EntryBlock block = m_selection;
  if (block.Lines() > kMostLinesUnasked && !Confirm(m_boxes, question)) return;
  Change([&](RecallLists& lists) { DeleteLines(lists, m_test, block.FirstLine, block.LastLine); });
  PlaceCursor({block.FirstLine, m_cursor.Column});
}

void EntryGrid::AddMinute() { Bump(1, "You can only select items in the 'Minute' column for this."); }

// Kept: this text has no full stop.
void EntryGrid::SubtractMinute() { Bump(-1, "You can only select items in the 'Minute' column for this"); }

void EntryGrid::Bump(int step, const char* wrongColumn) {
  if (!IsUsed(kMinuteColumn)) return;
  const EntryBlock& block = m_selection;
  if (block.FirstColumn != kMinuteColumn || block.LastColumn != kMinuteColumn) {
    Refuse(wrongColumn);
    return;
  }
  Change([&](RecallLists& lists) {
    BumpMinutes(lists, m_test, block.FirstLine, block.LastLine, step, m_project->MaxMinutes);
  });
  m_record.HasUnsavedChanges = true;  // kept: also when no minute could move
}

std::string EntryGrid::Copy() const {
  std::string text;
  for (int line = m_selection.FirstLine; line <= m_selection.LastLine; ++line) {
    for (int column = m_selection.FirstColumn; column <= m_selection.LastColumn; ++column) {
      if (column != m_selection.FirstColumn) text += '\t';
      if (const int value = Value(line, column); value != 0) text += std::to_string(value);
    }
    text += '\n';
  }
  return text;
}

void EntryGrid::Paste(std::string_view text) {
  const EntryCell start{m_selection.FirstLine, m_selection.FirstColumn};
  const PastedBlock block = ParsePaste(text, *m_project, m_test, start.Line, start.Column);
  if (!block.Fault.empty()) {
    Refuse(block.Fault, "Line " + std::to_string(block.FaultLine) + " of the pasted data.");
    return;
  }
  m_text.clear();  // else the next Enter would put it over what was pasted
  Change([&](RecallLists& lists) {
    int line = start.Line;
    for (const auto& cells : block.Lines) {
      Recall& entry = lists.At(m_test, line++);
      int column = start.Column;
      for (const auto& cell : cells) {
        if (cell) SetCellValue(entry, column, *cell);
        ++column;
      }
    }
  });
}

void EntryGrid::Undo() {
  if (m_history.CanUndo()) ShowChange(m_history.Undo(m_record.Lists));
}

void EntryGrid::Redo() {
  if (m_history.CanRedo()) ShowChange(m_history.Redo(m_record.Lists));
}

void EntryGrid::ShowChange(const EntryHistory::Place& place) {
  m_record.HasUnsavedChanges = true;
  if (place.Test != m_test) return ShowTest(place.Test, {place.Line, place.Column});
  MarkChanged(place.Line, place.LastLine);
  PlaceCursor({place.Line, place.Column});
}

void EntryGrid::NoteChange(const RecallLists& before) {
  if (!m_history.Note(before, m_record.Lists)) return;
  m_record.HasUnsavedChanges = true;
  MarkChanged(1, Lines());
}

}  // namespace zova
