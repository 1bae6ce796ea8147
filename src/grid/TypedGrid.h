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

/// A rectangle of cells, bounds included.
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
  bool ShowsTips = false;  ///< its texts may be wider than the column
};

/// The text that a cell would get ("" for a blank), or the message that refuses it.
struct CellInput {
  std::string Text;
  std::string Refusal = {};
  std::string Details = {};  ///< of the refusal
  bool KeepsText = false;    ///< a refused text stays in the box, selected
};

struct CellEdit {
  GridCell Cell;
  std::string Text;
};

/// The cells that a pasted block would change, or the message that refuses it, and the line at fault, from 1.
struct PastedBlock {
  std::vector<CellEdit> Edits;
  std::string Refusal = {};
  int Line = 0;
};

/// A cell of a page before and after a change.
struct CellChange {
  int Page;
  GridCell Cell;
  std::string Before;
  std::string After;
};

/// A number as the text of a cell; 0 is blank.
std::string NumberCell(int number);
std::int16_t CellNumber(const std::string& text);

/// Which texts a box takes: numbers, and texts without control characters.
bool IsNumber(std::string_view text);
bool IsPrintable(std::string_view text);

/// The rules of one screen's grid. The screen owns the cells; the grid sees only their texts, "" for a blank. Equal
/// cells have equal texts.
struct GridRules {
  std::function<std::string(int page, GridCell cell)> Text;        ///< also of column 0
  std::function<std::string(int page, GridCell cell)> Shown = {};  ///< on the screen, where that is not Text
  std::function<void(int page, GridCell cell, const std::string& text)> SetText;
  /// The box's text as input for a cell of the selection, which lies in one column.
  std::function<CellInput(GridCell cell, const std::string& text)> Typed;
  /// A pasted text as input for a cell, which may be beyond the last line or column.
  std::function<CellInput(GridCell cell, std::string_view text)> Pasted = {};
  /// Where the cursor goes after Enter; the grid clamps it to its edges.
  std::function<GridCell(GridCell entered)> Next = [](GridCell cell) { return GridCell{cell.Line + 1, cell.Column}; };
  /// Whether Tab stops in the column on the current page.
  std::function<bool(int column)> IsUsed = [](int) { return true; };
  /// Whether the box takes the text, which may be an incomplete one.
  std::function<bool(std::string_view text)> IsTyped = IsNumber;
  /// For a grid whose pastes are more than cells from the selection on; replaces Pasted.
  std::function<PastedBlock(GridCell start, std::string_view text)> PastedAll = {};
  /// Choices for the box's text: moves in them, closes them. False when there are none.
  std::function<bool(int lines)> MoveChoice = {};
  std::function<bool()> CloseChoices = {};

  bool TabStaysAtEnds = true;  ///< Tab stays in the last cell, Shift+Tab in the first; else it leads where Enter does
  bool DeleteBlanks = true;    ///< Delete blanks the selection when the box is empty
  bool CopiesFromOneCell = false;  ///< a selection of one cell is copied alone; else its column is
  bool PastesBlanks = false;       ///< lines of spaces at the end of a paste blank cells; else they are ignored
};

/// A grid of cells with one entry box: cursor, selection, copying, pasting, undo. It shows one of several pages of the
/// same shape. `GridRules` decide what a text means in a cell.
class TypedGrid {
 public:
  /// Lines whose cells changed since the last FetchChangedLines; none when FirstLine is above LastLine.
  struct ChangedLines {
    int FirstLine = 1;
    int LastLine = 0;
  };

  TypedGrid(MessageBoxes& boxes, Desktop& desktop, GridRules rules);
  TypedGrid(const TypedGrid&) = delete;
  TypedGrid& operator=(const TypedGrid&) = delete;

  /// Shows page 1 with the cursor on the first cell, an empty box and an empty undo history. The first of `columns` is
  /// column 0.
  void Open(int lines, std::vector<GridColumn> columns);
  void ShowPage(int page, GridCell cursor = {});

  [[nodiscard]] int Page() const noexcept { return m_page; }
  [[nodiscard]] int Lines() const noexcept { return m_lines; }
  [[nodiscard]] const std::vector<GridColumn>& Columns() const noexcept { return m_columns; }
  [[nodiscard]] int LastColumn() const noexcept { return static_cast<int>(m_columns.size()) - 1; }
  [[nodiscard]] std::string Text(GridCell cell) const { return m_rules.Text(m_page, cell); }
  [[nodiscard]] std::string ShownText(GridCell cell) const {
    return m_rules.Shown ? m_rules.Shown(m_page, cell) : Text(cell);
  }
  [[nodiscard]] bool IsUsed(int column) const { return m_rules.IsUsed(column); }
  [[nodiscard]] GridCell Cursor() const noexcept { return m_cursor; }
  [[nodiscard]] const GridBlock& Selection() const noexcept { return m_selection; }
  ChangedLines FetchChangedLines() noexcept { return std::exchange(m_changed, {}); }
  /// Increases with every Open.
  [[nodiscard]] int OpeningRevision() const noexcept { return m_openingRevision; }
  /// Increases when a page is shown with the cursor on a line that was not chosen by the user, such as a fault's.
  [[nodiscard]] int JumpRevision() const noexcept { return m_jumpRevision; }
  /// Increases whenever a cell, the box or its target may have changed.
  [[nodiscard]] int Revision() const noexcept { return m_revision; }

  [[nodiscard]] const std::string& EntryText() const noexcept { return m_text; }
  /// Drops characters that may not be typed.
  void SetEntryText(std::string_view text);
  [[nodiscard]] bool IsTyped(std::string_view text) const { return m_rules.IsTyped(text); }
  /// Whether a pasted text goes into the box; else it is cells.
  [[nodiscard]] bool IsPastedIntoBox(std::string_view text) const;
  /// Increases when a refused text stays in the box, to be selected.
  [[nodiscard]] int KeptRevision() const noexcept { return m_keptRevision; }
  /// The Escape key: closes the choices, else empties the box.
  void Escape();

  /// Puts the box's text into the selection, or into the cursor's cell and moves on. False when the text is refused or
  /// the selection spans several columns.
  bool Enter();
  /// Enters a text that was typed but not entered yet. False when it is refused.
  bool EnterPendingText() { return m_text.empty() || Enter(); }
  /// EnterPendingText for a command that leaves the page: if the selection spans several columns, the text goes to the
  /// cursor's cell. A refusal quotes the text.
  bool EnterTextBeforeLeaving();
  void PlaceCursor(GridCell cell);
  /// The arrow keys. With text in the box they move in its choices, if there are any.
  void Move(int lines, int columns);
  /// Tab and Shift+Tab: enters the pending text, then goes to the next or previous cell of the columns in use.
  void Step(int direction);
  /// Shift+arrows and dragging: moves the cursor's end of the selection.
  void ExtendSelection(int lines, int columns) { SelectTo({m_cursor.Line + lines, m_cursor.Column + columns}); }
  void SelectTo(GridCell cell);
  /// Enters the pending text first: it belongs to the cell that is left.
  void Click(GridCell cell) {
    if (EnterPendingText()) PlaceCursor(cell);
  }
  /// False when the grid does not use the Delete key.
  bool DeleteKey();

  /// Cells separated by tabs, every line ended by LF.
  [[nodiscard]] std::string Copy() const;
  /// Pastes from the selection's first cell on, all cells or none; shows the first fault. Cursor and selection stay.
  void Paste(std::string_view text);
  [[nodiscard]] bool CanUndo() const noexcept { return m_history.CanUndo(); }
  [[nodiscard]] bool CanRedo() const noexcept { return m_history.CanRedo(); }
  void Undo();
  void Redo();

  /// Changes cells of the current page as one undo step.
  void Apply(std::vector<CellEdit>&& edits);
  /// Records a change already made, sorted by page and line, as one undo step.
  void Note(std::vector<CellChange> changes);
  /// Shows `message`, with a beep for those who look at the protocol. Always returns false.
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
  int m_jumpRevision = 0;
  int m_revision = 0;
  int m_keptRevision = 0;
};

}  // namespace zova
