// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/EntryBox.h"

#include <QClipboard>
#include <QContextMenuEvent>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QMenu>
#include <QRegularExpressionValidator>
#include <memory>

#include "app/Controls.h"
#include "subjects/EntryGrid.h"

namespace zova {

namespace {

constexpr int kPage = 10;  // lines

// One number without a line end, as it may be pasted to be typed on.
bool IsOneNumber(const QString& text) {
  static const QRegularExpression kOneNumber(QStringLiteral("\\A[0-9]{1,5}\\z"));
  return kOneNumber.match(text).hasMatch();
}

}  // namespace

EntryBox::EntryBox(EntryGrid& grid) : m_grid(grid) {
  setObjectName(QStringLiteral("txtInput"));
  // What is not all digits is refused whole: of a dropped "12 13" there must not stay 1213.
  setValidator(new QRegularExpressionValidator(QRegularExpression(QStringLiteral("[0-9]*")), this));
  setInputMethodHints(Qt::ImhDigitsOnly);
  connect(this, &QLineEdit::textEdited, this, [this](const QString& text) { m_grid.SetEntryText(FromQt(text)); });
}

void EntryBox::Refresh() { ShowText(this, m_grid.EntryText()); }

// Before anything else takes the key: of itself Tab goes to the next control.
bool EntryBox::event(QEvent* event) {
  if (event->type() != QEvent::KeyPress) return QLineEdit::event(event);
  const auto& press = static_cast<const QKeyEvent&>(*event);
  const bool isTab = press.key() == Qt::Key_Tab || press.key() == Qt::Key_Backtab;
  if (isTab && press.modifiers().testFlag(Qt::ControlModifier)) {
    return focusNextPrevChild(!press.modifiers().testFlag(Qt::ShiftModifier));
  }
  if (!TakeKey(press)) return QLineEdit::event(event);
  emit Acted();
  return true;
}

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
    default: return TakeCommand(press);
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

// False for what is to be pasted into the box itself.
bool EntryBox::TakePaste() {
  const QString copied = QGuiApplication::clipboard()->text();
  if (copied.isEmpty() || IsOneNumber(copied)) return false;
  m_grid.Paste(FromQt(copied));
  return true;
}

// False when there is text of the box to be copied.
bool EntryBox::TakeCopy() {
  if (hasSelectedText()) return false;
  QGuiApplication::clipboard()->setText(ToQt(m_grid.Copy()));
  return true;
}

// The edit menu copies and pastes what the keys do.
void EntryBox::contextMenuEvent(QContextMenuEvent* event) {
  const std::unique_ptr<QMenu> menu(createStandardContextMenu());
  const auto redirect = [&](QKeySequence::StandardKey key, bool (EntryBox::*take)()) {
    const QString shortcut = u'\t' + QKeySequence(key).toString(QKeySequence::NativeText);
    for (QAction* action : menu->actions()) {
      if (!action->text().endsWith(shortcut)) continue;
      action->disconnect();
      action->setEnabled(true);
      connect(action, &QAction::triggered, this, [this, take, key] {
        if (!(this->*take)()) key == QKeySequence::Copy ? copy() : paste();
        emit Acted();
      });
    }
  };
  redirect(QKeySequence::Copy, &EntryBox::TakeCopy);
  redirect(QKeySequence::Paste, &EntryBox::TakePaste);
  menu->exec(event->globalPos());
}

bool EntryBox::TakeCommand(const QKeyEvent& press) {
  const bool isRedoToo = press.keyCombination() == (Qt::CTRL | Qt::Key_Y);
  if (press.matches(QKeySequence::Paste)) return TakePaste();
  if (press.matches(QKeySequence::Copy)) return TakeCopy();
  if (press.matches(QKeySequence::Undo) && text().isEmpty()) {
    m_grid.Undo();
  } else if ((press.matches(QKeySequence::Redo) || isRedoToo) && text().isEmpty()) {
    m_grid.Redo();
  } else {
    return false;
  }
  return true;
}

}  // namespace zova
