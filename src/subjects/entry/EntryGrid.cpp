// SPDX-License-Identifier: GPL-3.0-or-later
//
// Input rules of the entry grid and where Enter leads. EntryGridEdits.cpp has the tool buttons.

#include "subjects/entry/EntryGrid.h"

#include <cassert>
#include <limits>

#include "text/LeadingNumber.h"

namespace zova {

namespace {

// A number beyond 16 bits is above every limit.
int OrBeyondAnyRange(std::optional<std::int16_t> number) { return number ? *number : std::numeric_limits<int>::max(); }

std::string NoWordText(std::string_view text) { return "'" + std::string(text) + "' is not on the word list."; }

}  // namespace

EntryGrid::EntryGrid(SubjectRecord& record, Preferences& preferences, MessageBoxes& boxes, Desktop& desktop)
    : m_record(record), m_preferences(preferences), m_boxes(boxes), m_cells(boxes, desktop, Rules()) {}

GridRules EntryGrid::Rules() {
  return {.Text =
              [this](int test, GridCell cell) {
                return NumberCell(cell.Column == 0 ? cell.Line
                                                   : CellValue(m_record.Lists.At(test, cell.Line), cell.Column));
              },
          .Shown = [this](int test, GridCell cell) { return Shown(test, cell); },
          .SetText =
              [this](int test, GridCell cell, const std::string& text) {
                SetCellValue(m_record.Lists.At(test, cell.Line), cell.Column, CellNumber(text));
                m_record.HasUnsavedChanges = true;
              },
          .Typed = [this](GridCell cell, const std::string& text) { return Typed(cell, text); },
          .Pasted = [this](GridCell cell, std::string_view text) { return Pasted(cell, text); },
          .Next = [this](GridCell entered) { return Next(entered); },
          .IsUsed = [this](int column) { return IsColumnUsed(*m_project, Test(), column); },
          .IsTyped = [this](std::string_view text) { return IsTyped(text); },
          .MoveChoice =
              [this](int lines) {
                m_words.Follow(m_cells.EntryText());
                return m_words.Move(lines);
              },
          .CloseChoices =
              [this] {
                m_words.Follow(m_cells.EntryText());
                return m_words.Close();
              },
          .TabStaysAtEnds = false,
          .DeleteBlanks = false,
          .CopiesFromOneCell = true,
          .PastesBlanks = true};
}

void EntryGrid::Open(const ProjectParameters& project) {
  assert(m_record.Lists.TestCount() == project.TestCount && m_record.Lists.PositionCount() == project.ItemCount);
  m_project = &project;
  m_cells.Open(project.ItemCount, {{"Item #"}, {"Recalled", !m_words.IsEmpty()}, {"Minute"}, {"Rating"}});
}

std::string EntryGrid::WhereText() const {
  const auto [line, column] = m_cells.Cursor();
  std::string text = m_cells.Columns()[static_cast<std::size_t>(column)].Heading;
  if (column == kItemColumn) text += ", line " + std::to_string(line);
  if (!m_cells.IsUsed(column)) return text;
  return text + " (1 to " + std::to_string(ColumnLimit(*m_project, column)) + (TakesWords() ? ", or a word)" : ")");
}

std::string EntryGrid::DroppedText(const std::string& character) const {
  const bool isNumber = !m_cells.EntryText().empty() && IsNumber(m_cells.EntryText());
  return "'" + character + "' was not taken: " +
         (TakesWords() && !isNumber ? "type a number or a word." : "only digits can be typed here.");
}

std::string EntryGrid::Shown(int test, GridCell cell) const {
  if (cell.Column == 0) return NumberCell(cell.Line);
  const int value = CellValue(m_record.Lists.At(test, cell.Line), cell.Column);
  return cell.Column == kItemColumn && value != 0 ? ItemName(m_words.List(), value) : NumberCell(value);
}

const EntryWords& EntryGrid::WordsForBox() {
  m_words.Follow(m_cells.EntryText());
  return m_words;
}

void EntryGrid::TakeWord(int line) {
  m_words.Follow(m_cells.EntryText());
  m_words.Choose(line);
  m_cells.Enter();
}

bool EntryGrid::IsTyped(std::string_view text) const {
  return IsNumber(text) || (TakesWords() && m_words.IsWord(text) && IsPrintable(text));
}

CellInput EntryGrid::Typed(GridCell cell, std::string_view text) {
  int number = OrBeyondAnyRange(LeadingInteger16(text));
  const auto refusal = m_cells.Selection().IsOneCell() ? CellRefusal : BlockRefusal;
  if (cell.Column == kItemColumn && m_cells.Selection().IsOneCell() && m_words.IsWord(text)) {
    m_words.Follow(text);
    number = m_words.Item();
    if (number == 0) return {{}, NoWordText(text), m_words.NearestText(text), /*KeepsText=*/true};
  }
  return {NumberCell(number), refusal(*m_project, Test(), cell.Column, number)};
}

CellInput EntryGrid::Pasted(GridCell cell, std::string_view text) const {
  if (cell.Line > m_cells.Lines() || cell.Column > kRatingColumn) return {{}, RangeRefusal(cell.Column)};
  if (text.empty()) return {};
  int number = OrBeyondAnyRange(DigitsInteger16(text));
  if (cell.Column == kItemColumn && m_words.IsWord(text)) {
    number = m_words.ItemOf(text);
    if (number == 0) return {{}, NoWordText(text)};
  }
  // A pasted column of items has many numbers, not one number for all lines.
  const auto refusal = cell.Column == kItemColumn ? CellRefusal : BlockRefusal;
  return {NumberCell(number), refusal(*m_project, Test(), cell.Column, number)};
}

GridCell EntryGrid::Next(GridCell entered) {
  if (m_preferences.NextBlankSpace) return NextBlank(entered);
  const auto [line, column] = entered;
  const GridCell below{line + 1, kItemColumn};
  if (column == kItemColumn) {
    // Without minutes, as if they were skipped.
    if (!m_preferences.SkipMinutes && m_cells.IsUsed(kMinuteColumn)) return {line, kMinuteColumn};
    // Kept: from the item the rating flag must be "Y", from the minute it must not be "N".
    return IsTestRated(*m_project, Test()) ? GridCell{line, kRatingColumn} : below;
  }
  if (column == kMinuteColumn) return m_cells.IsUsed(kRatingColumn) ? GridCell{line, kRatingColumn} : below;
  return line < m_cells.Lines() ? below : entered;
}

GridCell EntryGrid::NextBlank(GridCell cell) {
  for (++cell.Column; cell.Line < m_cells.Lines(); ++cell.Line, cell.Column = kItemColumn) {
    for (; cell.Column <= kRatingColumn; ++cell.Column) {
      if (m_cells.IsUsed(cell.Column) && m_cells.Text(cell).empty()) return cell;
    }
  }
  m_preferences.NextBlankSpace = false;
  Inform(m_boxes, "The 'next blank space' option has been turned off because you reached the last line.");
  return {m_cells.Lines(), kItemColumn};
}

}  // namespace zova
