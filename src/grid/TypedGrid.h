// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "grid/UndoStack.h"
#include "platform/desktop/Desktop.h"
#include "platform/desktop/MessageBoxes.h"

namespace zova {

/// Lines and columns count from 1; line 0 and column 0 are the headings.
struct GridCell {
  int Line = 1;
  int Column = 1;

  bool operator==(const GridCell&) const = default;
};

/// A block of cells, both ends included.
struct GridBlock {
  int FirstLine = 1;
  int LastLine = 1;
  int FirstColumn = 1;
  int LastColumn = 1;

  [[nodiscard]] bool IsOneCell() const noexcept { return FirstLine == LastLine && FirstColumn == LastColumn; }
  [[nodiscard]] int Lines() const noexcept { return LastLine - FirstLine + 1; }
  bool operator==(const GridBlock&) const = default;
};

struct GridColumn {
  std::string Heading;
  bool ShowsTips = false;  ///< its texts may be too long for it
};

/// What a text would put into a cell ("" for a blank), or the message of why it may not.
struct CellInput {
  std::string Text;
  std::string Refusal = {};
};

struct CellEdit {
  GridCell Cell;
  std::string Text;
};

/// A cell of one of the grid's pages before and after a change.
struct CellChange {
  int Page;
  GridCell Cell;
  std::string Before;
  std::string After;
};

/// The cell of a number; a 0 is a blank.
std::string NumberCell(int number);
std::int16_t CellNumber(const std::string& text);

/// What makes a typed grid the grid of its screen. The cells belong to the screen and pass as their texts, "" for a
/// blank; equal cells have equal texts.
struct GridRules {
  std::function<std::string(int page, GridCell cell)> Text;  ///< column 0 as well
  std::function<void(int page, GridCell cell, const std::string& text)> SetText;
  /// What the box's text would put into a cell of the selection, which is in one column.
  std::function<CellInput(GridCell cell, const std::string& text)> Typed;
  /// What a pasted text would put into a cell, which may lie beyond the last line or column.
  std::function<CellInput(GridCell cell, std::string_view text)> Pasted;
  /// Where the cursor goes from a cell that was entered; beyond the grid's edge it stays at it.
  std::function<GridCell(GridCell entered)> Next = [](GridCell cell) { return GridCell{cell.Line + 1, cell.Column}; };
  /// Whether Tab stops in the column of the page that is shown.
  std::function<bool(int column)> IsUsed = [](int) { return true; };
  std::function<bool(char c)> IsTyped = [](char c) { return c >= '0' && c <= '9'; };  ///< into the box

  bool TabStaysAtEnds = true;      ///< in the last cell, backwards in the first; else it leads as far as Enter does
  bool DeleteBlanks = true;        ///< with the box empty Delete blanks the selection
  bool CopiesFromOneCell = false;  ///< a selection of one cell copies it alone, else its column
  bool PastesBlanks = false;       ///< a line of spaces at the end of a paste is a cell, else the spreadsheet's
};

/// A grid of cells and the one-cell box through which everything is typed: cursor, selection, copying, pasting, undo.
/// It may have several pages of the same shape, of which it shows one. What a text means in a cell is its rules'.
class TypedGrid {
 public:
  /// Lines whose cells changed since they were last asked for; none when FirstLine is above LastLine.
  struct ChangedLines {
    int FirstLine = 1;
    int LastLine = 0;
  };

  TypedGrid(MessageBoxes& boxes, Desktop& desktop, GridRules rules);
  TypedGrid(const TypedGrid&) = delete;
  TypedGrid& operator=(const TypedGrid&) = delete;

  /// Page 1, cursor on the first cell, the box empty, nothing to undo. The first of `columns` is column 0.
  void Open(int lines, std::vector<GridColumn> columns);
  void ShowPage(int page, GridCell cursor = {});

  [[nodiscard]] int Page() const noexcept { return m_page; }
  [[nodiscard]] int Lines() const noexcept { return m_lines; }
  [[nodiscard]] const std::vector<GridColumn>& Columns() const noexcept { return m_columns; }
  [[nodiscard]] int LastColumn() const noexcept { return static_cast<int>(m_columns.size()) - 1; }
  [[nodiscard]] std::string Text(GridCell cell) const { return m_rules.Text(m_page, cell); }
  [[nodiscard]] bool IsUsed(int column) const { return m_rules.IsUsed(column); }
  [[nodiscard]] GridCell Cursor() const noexcept { return m_cursor; }
  [[nodiscard]] const GridBlock& Selection() const noexcept { return m_selection; }
  ChangedLines FetchChangedLines() noexcept { return std::exchange(m_changed, {}); }
  /// Grows whenever the grid is opened.
  [[nodiscard]] int OpeningRevision() const noexcept { return m_openingRevision; }
  /// Grows whenever a cell may have changed, or what the box would put where.
  [[nodiscard]] int Revision() const noexcept { return m_revision; }

  [[nodiscard]] const std::string& EntryText() const noexcept { return m_text; }
  /// Keeps the characters that may be typed.
  void SetEntryText(std::string_view text);
  [[nodiscard]] bool IsTyped(char c) const { return m_rules.IsTyped(c); }

  /// Puts the box's text into the selection, which stays, or into the cursor's cell, from which it goes on. False when
  /// the text was refused, or has no one column to go to.
  bool Enter();
  /// Takes a text that was typed but not entered, as Enter would. False when it was refused.
  bool EnterPendingText() { return m_text.empty() || Enter(); }
  /// The same for a command that leaves the page: of several columns the text goes to the cursor's cell. A refusal says
  /// what it was that stood in the box.
  bool EnterTextBeforeLeaving();
  void PlaceCursor(GridCell cell);
  /// The arrow keys; with text in the box they do nothing.
  void Move(int lines, int columns);
  /// Tab and Shift+Tab, after taking what stands in the box: the next or previous cell of the columns in use.
  void Step(int direction);
  /// Shift+arrows, and the mouse from where it was pressed. The cursor goes along, the other end stays.
  void ExtendSelection(int lines, int columns) { SelectTo({m_cursor.Line + lines, m_cursor.Column + columns}); }
  void SelectTo(GridCell cell);
  /// Takes what stands in the box first, which belongs to the cell that is left.
  void Click(GridCell cell) {
    if (EnterPendingText()) PlaceCursor(cell);
  }
  /// False when the Delete key is not the grid's.
  bool DeleteKey();

  /// For a spreadsheet: cells separated by tabs, every line ended by LF.
  [[nodiscard]] std::string Copy() const;
  /// From the selection's first cell on, all of it or nothing; the first fault is shown. Cursor and selection stay.
  void Paste(std::string_view text);
  void Undo();
  void Redo();

  /// Changes cells of the page that is shown, as one step to undo.
  void Apply(std::vector<CellEdit> edits);
  /// A change that was made already, page by page and line by line, to be undone as one step.
  void Note(std::vector<CellChange> changes);
  /// Shows why something cannot be done. Always false.
  bool Refuse(const std::string& message, const std::string& details = {});

 private:
  bool EnterText(const std::string& refusalDetails);
  void Show(const std::vector<CellChange>& changes, std::string CellChange::*side);
  void MarkChanged(int firstLine, int lastLine) noexcept;
  void MarkChanged(const std::vector<CellChange>& changes) noexcept;

  MessageBoxes& m_boxes;
  Desktop& m_desktop;
  GridRules m_rules;
  std::vector<GridColumn> m_columns{2};
  int m_lines = 0;
  int m_page = 1;
  GridCell m_cursor;
  GridCell m_anchor;
  GridBlock m_selection;
  std::string m_text;
  UndoStack<std::vector<CellChange>> m_history;
  ChangedLines m_changed;
  int m_openingRevision = 0;
  int m_revision = 0;
};

}  // namespace zova
