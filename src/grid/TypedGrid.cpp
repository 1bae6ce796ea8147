// SPDX-License-Identifier: GPL-3.0-or-later

#include "grid/TypedGrid.h"

#include <algorithm>
#include <iterator>

#include "text/Cells.h"
#include "text/Encoding.h"
#include "text/LeadingNumber.h"

namespace zova {

std::string NumberCell(int number) { return number == 0 ? std::string() : std::to_string(number); }

std::int16_t CellNumber(const std::string& text) { return LeadingInteger16(text).value_or(0); }

bool IsNumber(std::string_view text) { return std::all_of(text.begin(), text.end(), IsDigit); }

bool IsPrintable(std::string_view text) {
  return std::none_of(text.begin(), text.end(),
                      [](char c) { return static_cast<unsigned char>(c) < ' ' || c == '\x7F'; });
}

TypedGrid::TypedGrid(MessageBoxes& boxes, Desktop& desktop, GridRules rules)
    : m_boxes(boxes), m_desktop(desktop), m_rules(std::move(rules)) {}

void TypedGrid::Open(int lines, std::vector<GridColumn> columns) {
  m_lines = lines;
  m_columns = std::move(columns);
  m_history.Clear();
  m_text.clear();
  ++m_openingRevision;
  ++m_revision;
  ShowPage(1);
}

void TypedGrid::ShowPage(int page, GridCell cursor) {
  m_page = page;
  MarkChanged(1, m_lines);
  ++m_jumpRevision;
  PlaceCursor(cursor);
}

void TypedGrid::MarkChanged(int firstLine, int lastLine) noexcept {
  const bool none = m_changed.FirstLine > m_changed.LastLine;
  m_changed.FirstLine = none ? firstLine : std::min(m_changed.FirstLine, firstLine);
  m_changed.LastLine = none ? lastLine : std::max(m_changed.LastLine, lastLine);
}

void TypedGrid::MarkChanged(const std::vector<CellChange>& changes) noexcept {
  for (const CellChange& change : changes) {
    if (change.Page == m_page) MarkChanged(change.Cell.Line, change.Cell.Line);
  }
}

bool TypedGrid::Refuse(const std::string& message, const std::string& details) {
  m_desktop.Beep();
  Warn(m_boxes, message, details);
  return false;
}

void TypedGrid::SetEntryText(std::string_view text) {
  m_text.clear();
  ++m_revision;
  if (m_rules.IsTyped(text)) {
    m_text = text;
    return;
  }
  while (!text.empty()) {
    const std::string_view character = FirstCharacters(text, 1);
    m_text += character;
    if (!m_rules.IsTyped(m_text)) m_text.resize(m_text.size() - character.size());
    text.remove_prefix(character.size());
  }
}

bool TypedGrid::IsPastedIntoBox(std::string_view text) const {
  constexpr std::size_t kDigits = 5;
  return !text.empty() && m_rules.IsTyped(text) && (!IsNumber(text) || text.size() <= kDigits);
}

void TypedGrid::Escape() {
  if (m_rules.CloseChoices && m_rules.CloseChoices()) {
    ++m_revision;
  } else {
    SetEntryText({});
  }
}

void TypedGrid::PlaceCursor(GridCell cell) {
  SelectTo(cell);
  m_anchor = m_cursor;
  m_selection = {m_cursor.Line, m_cursor.Line, m_cursor.Column, m_cursor.Column};
}

void TypedGrid::SelectTo(GridCell cell) {
  // The cursor is on line 1 even in a grid without lines.
  m_cursor = {std::clamp(cell.Line, 1, std::max(m_lines, 1)), std::clamp(cell.Column, 1, LastColumn())};
  const auto [firstLine, lastLine] = std::minmax(m_anchor.Line, m_cursor.Line);
  const auto [firstColumn, lastColumn] = std::minmax(m_anchor.Column, m_cursor.Column);
  m_selection = {firstLine, lastLine, firstColumn, lastColumn};
  if (!m_text.empty()) ++m_revision;  // the text now belongs to other cells
}

void TypedGrid::Move(int lines, int columns) {
  if (m_text.empty()) {
    PlaceCursor({m_cursor.Line + lines, m_cursor.Column + columns});
  } else if (columns == 0 && m_rules.MoveChoice && m_rules.MoveChoice(lines)) {
    ++m_revision;
  }
}

void TypedGrid::Step(int direction) {
  const GridCell start = m_cursor;
  if (!EnterPendingText()) return;
  GridCell cell = start;
  do {
    cell.Column += direction;
    if (cell.Column < 1 || cell.Column > LastColumn()) {
      cell.Line += direction;
      cell.Column = direction > 0 ? 1 : LastColumn();
    }
    if (cell.Line < 1 || cell.Line > m_lines) {
      if (m_rules.TabStaysAtEnds) PlaceCursor(start);
      return;
    }
  } while (!IsUsed(cell.Column));
  PlaceCursor(cell);
}

bool TypedGrid::Enter() {
  if (m_selection.FirstColumn != m_selection.LastColumn) {
    m_desktop.Beep();
    return false;
  }
  return m_text.empty() || EnterText({});
}

bool TypedGrid::EnterTextBeforeLeaving() {
  if (m_text.empty()) return true;
  if (m_selection.FirstColumn != m_selection.LastColumn) PlaceCursor(m_cursor);
  return EnterText("'" + m_text + "' in the entry box was not taken.  Please type it again, or go on without it.");
}

bool TypedGrid::EnterText(const std::string& refusalDetails) {
  const GridBlock block = m_selection;
  const std::string text = std::exchange(m_text, {});
  ++m_revision;
  std::vector<CellEdit> edits;
  for (GridCell cell{block.FirstLine, block.FirstColumn}; cell.Line <= std::min(block.LastLine, m_lines); ++cell.Line) {
    CellInput input = m_rules.Typed(cell, text);
    if (!input.Refusal.empty()) {
      if (!input.KeepsText) return Refuse(input.Refusal, refusalDetails);
      m_text = text;
      ++m_keptRevision;
      return Refuse(input.Refusal, input.Details);
    }
    edits.push_back({cell, std::move(input.Text)});
  }
  Apply(std::move(edits));
  if (block.IsOneCell()) PlaceCursor(m_rules.Next(m_cursor));
  return true;
}

bool TypedGrid::DeleteKey() {
  if (!m_rules.DeleteBlanks || !m_text.empty()) return false;
  std::vector<CellEdit> edits;
  for (int line = m_selection.FirstLine; line <= std::min(m_selection.LastLine, m_lines); ++line) {
    for (int column = m_selection.FirstColumn; column <= m_selection.LastColumn; ++column) {
      edits.push_back({{line, column}, {}});
    }
  }
  Apply(std::move(edits));
  return true;
}

std::string TypedGrid::Copy() const {
  GridBlock block = m_selection;
  if (block.IsOneCell() && !m_rules.CopiesFromOneCell) block = {1, m_lines, block.FirstColumn, block.LastColumn};
  std::string text;
  for (int line = block.FirstLine; line <= block.LastLine; ++line) {
    for (int column = block.FirstColumn; column <= block.LastColumn; ++column) {
      if (column != block.FirstColumn) text += '\t';
      text += Text({line, column});
    }
    text += '\n';
  }
  return text;
}

void TypedGrid::Paste(std::string_view text) {
  // Empty lines at the end come from the spreadsheet and blank no cells.
  text = text.substr(0, text.find_last_not_of(m_rules.PastesBlanks ? "\r\n" : " \r\n") + 1);
  if (text.empty()) return;
  const auto refuse = [this](const std::string& refusal, int line) {
    Refuse(refusal, "Line " + std::to_string(line) + " of the pasted data.");
  };
  const auto take = [this](std::vector<CellEdit>&& edits) {
    m_text.clear();  // the next Enter would overwrite what was pasted
    ++m_revision;
    Apply(std::move(edits));
  };
  if (m_rules.PastedAll) {
    PastedBlock block = m_rules.PastedAll({m_selection.FirstLine, m_selection.FirstColumn}, text);
    return block.Refusal.empty() ? take(std::move(block.Edits)) : refuse(block.Refusal, block.Line);
  }
  const char separator = CellSeparator(text);
  const GridCell start{m_selection.FirstLine, m_selection.FirstColumn};
  std::vector<CellEdit> edits;
  for (int line = start.Line; !text.empty(); ++line) {
    LineCells cells(NextLine(text), separator);
    for (GridCell cell{line, start.Column}; const auto content = cells.Next(); ++cell.Column) {
      CellInput input = m_rules.Pasted(cell, *content);
      if (!input.Refusal.empty()) return refuse(input.Refusal, line - start.Line + 1);
      edits.push_back({cell, std::move(input.Text)});
    }
  }
  take(std::move(edits));
}

void TypedGrid::Apply(std::vector<CellEdit>&& edits) {
  std::vector<CellChange> changes;
  for (auto& [cell, text] : edits) {
    std::string before = Text(cell);
    if (before == text) continue;
    m_rules.SetText(m_page, cell, text);
    changes.push_back({m_page, cell, std::move(before), std::move(text)});
  }
  Note(std::move(changes));
}

void TypedGrid::Note(std::vector<CellChange> changes) {
  if (changes.empty()) return;
  MarkChanged(changes);
  ++m_revision;
  m_history.Push(std::move(changes));
}

void TypedGrid::Show(const std::vector<CellChange>& changes, std::string CellChange::*side) {
  for (const CellChange& change : changes) m_rules.SetText(change.Page, change.Cell, change.*side);
  const auto& [page, cell, before, after] = changes.front();
  if (page != m_page) ShowPage(page);
  MarkChanged(changes);
  ++m_revision;
  PlaceCursor(cell);
}

void TypedGrid::Undo() {
  if (const auto* changes = m_history.Undo()) Show(*changes, &CellChange::Before);
}

void TypedGrid::Redo() {
  if (const auto* changes = m_history.Redo()) Show(*changes, &CellChange::After);
}

}  // namespace zova
