// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/widgets/NumberBox.h"

#include <QClipboard>
#include <QContextMenuEvent>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QMenu>
#include <QRegularExpressionValidator>
#include <memory>

#include "app/widgets/Controls.h"

namespace zova {

namespace {

// One number without a line end, as it may be pasted to be typed on.
bool IsOneNumber(const QString& text) {
  static const QRegularExpression kOneNumber(QStringLiteral("\\A[0-9]{1,5}\\z"));
  return kOneNumber.match(text).hasMatch();
}

}  // namespace

NumberBox::NumberBox(const char* name) {
  setObjectName(QString::fromLatin1(name));
  // What is not all digits is refused whole: of a dropped "12 13" there must not stay 1213.
  setValidator(new QRegularExpressionValidator(QRegularExpression(QStringLiteral("[0-9]*")), this));
  setInputMethodHints(Qt::ImhDigitsOnly);
}

// Before anything else takes the key: of itself Tab goes to the next control.
bool NumberBox::event(QEvent* event) {
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

bool NumberBox::TakeKey(const QKeyEvent& press) {
  if (press.matches(QKeySequence::Paste)) return TakePaste();
  if (press.matches(QKeySequence::Copy)) return TakeCopy();
  if (!text().isEmpty()) return false;
  const bool isRedoToo = press.keyCombination() == (Qt::CTRL | Qt::Key_Y);
  if (press.matches(QKeySequence::Undo)) {
    UndoInGrid();
  } else if (press.matches(QKeySequence::Redo) || isRedoToo) {
    RedoInGrid();
  } else {
    return false;
  }
  return true;
}

// False for what is to be pasted into the box itself.
bool NumberBox::TakePaste() {
  const QString copied = QGuiApplication::clipboard()->text();
  if (copied.isEmpty() || IsOneNumber(copied)) return false;
  PasteIntoGrid(FromQt(copied));
  return true;
}

// False when there is text of the box to be copied.
bool NumberBox::TakeCopy() {
  if (hasSelectedText()) return false;
  QGuiApplication::clipboard()->setText(ToQt(CopyOfGrid()));
  return true;
}

// The edit menu copies and pastes what the keys do.
void NumberBox::contextMenuEvent(QContextMenuEvent* event) {
  const std::unique_ptr<QMenu> menu(createStandardContextMenu());
  const auto redirect = [&](QKeySequence::StandardKey key, bool (NumberBox::*take)()) {
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
  redirect(QKeySequence::Copy, &NumberBox::TakeCopy);
  redirect(QKeySequence::Paste, &NumberBox::TakePaste);
  menu->exec(event->globalPos());
}

}  // namespace zova
