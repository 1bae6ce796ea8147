// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/widgets/EntryBox.h"

#include <QKeyEvent>

#include "app/widgets/Controls.h"
#include "subjects/entry/EntryGrid.h"

namespace zova {

EntryBox::EntryBox(EntryGrid& grid) : NumberBox("txtInput"), m_grid(grid) {
  connect(this, &QLineEdit::textEdited, this, [this](const QString& text) { m_grid.SetEntryText(FromQt(text)); });
}

void EntryBox::Refresh() { ShowText(this, m_grid.EntryText()); }

void EntryBox::PasteIntoGrid(const std::string& text) { m_grid.Paste(text); }

std::string EntryBox::CopyOfGrid() const { return m_grid.Copy(); }

void EntryBox::UndoInGrid() { m_grid.Undo(); }

void EntryBox::RedoInGrid() { m_grid.Redo(); }

bool EntryBox::TakeKey(const QKeyEvent& press) {
  switch (press.key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
      // A key that is held would answer the message about its number as well.
      if (!press.isAutoRepeat()) m_grid.Enter();
      return true;
    case Qt::Key_Escape: m_grid.SetEntryText({}); return true;
    case Qt::Key_Tab:
    case Qt::Key_Backtab: m_grid.Step(press.modifiers().testFlag(Qt::ShiftModifier) ? -1 : 1); return true;
    case Qt::Key_Up: return TakeMove(press, -1);
    case Qt::Key_Down: return TakeMove(press, 1);
    case Qt::Key_PageUp: return TakeMove(press, -kPage);
    case Qt::Key_PageDown: return TakeMove(press, kPage);
    case Qt::Key_Left: return TakeMove(press, 0, -1);
    case Qt::Key_Right: return TakeMove(press, 0, 1);
    case Qt::Key_Home: return text().isEmpty() && TakeMove(press, -m_grid.Lines());
    case Qt::Key_End: return text().isEmpty() && TakeMove(press, m_grid.Lines());
    default: return NumberBox::TakeKey(press);
  }
}

bool EntryBox::TakeMove(const QKeyEvent& press, int lines, int columns) {
  if (press.modifiers().testFlag(Qt::ShiftModifier)) {
    m_grid.ExtendSelection(lines, columns);
  } else if (columns != 0 && !text().isEmpty()) {
    return false;
  } else {
    m_grid.Move(lines, columns);
  }
  return true;
}

}  // namespace zova
