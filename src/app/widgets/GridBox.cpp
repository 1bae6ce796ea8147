// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/widgets/GridBox.h"

#include <QClipboard>
#include <QContextMenuEvent>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QMenu>
#include <QValidator>
#include <functional>
#include <memory>

#include "app/widgets/Controls.h"
#include "grid/TypedGrid.h"

namespace zova {

namespace {

constexpr int kPage = 10;  // lines

// Refuses a text with an invalid character as a whole: a dropped "12 13" must not become 1213.
class TypedText final : public QValidator {
 public:
  TypedText(const TypedGrid& grid, QObject* parent) : QValidator(parent), m_grid(grid) {}
  State validate(QString& input, int&) const override { return m_grid.IsTyped(FromQt(input)) ? Acceptable : Invalid; }

 private:
  const TypedGrid& m_grid;
};

}  // namespace

GridBox::GridBox(const char* name, TypedGrid& grid) : m_grid(grid) {
  setObjectName(QString::fromLatin1(name));
  setValidator(new TypedText(grid, this));
  setInputMethodHints(Qt::ImhDigitsOnly);
  connect(this, &QLineEdit::textEdited, this, [this](const QString& text) { m_grid.SetEntryText(FromQt(text)); });
}

void GridBox::Refresh() {
  setInputMethodHints(m_grid.IsTyped("a") ? Qt::ImhNone : Qt::ImhDigitsOnly);
  ShowText(this, m_grid.EntryText());
  if (m_keptRevision != m_grid.KeptRevision()) selectAll();
  m_keptRevision = m_grid.KeptRevision();
}

// Before any other handler: otherwise Tab goes to the next control.
bool GridBox::event(QEvent* event) {
  if (event->type() != QEvent::KeyPress) return QLineEdit::event(event);
  const auto& press = static_cast<const QKeyEvent&>(*event);
  const bool isTab = press.key() == Qt::Key_Tab || press.key() == Qt::Key_Backtab;
  if (isTab && press.modifiers().testFlag(Qt::ControlModifier)) {
    return focusNextPrevChild(!press.modifiers().testFlag(Qt::ShiftModifier));
  }
  if (HandleKey(press)) {
    emit Acted();
    return true;
  }
  const QString typed = press.text();
  const bool isCharacter = !typed.isEmpty() && typed.front().isPrint() &&
                           (press.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)) == 0;
  if (isCharacter && !IsTyped(typed)) emit Dropped(typed);
  return QLineEdit::event(event);
}

bool GridBox::IsTyped(const QString& typed) const {
  QString after = text();
  const qsizetype place = hasSelectedText() ? selectionStart() : cursorPosition();
  after.replace(place, selectedText().size(), typed);
  return m_grid.IsTyped(FromQt(after));
}

bool GridBox::HandleKey(const QKeyEvent& press) {
  const bool isEmpty = text().isEmpty();
  switch (press.key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
      // A held key would also answer the message about the text.
      if (!press.isAutoRepeat()) m_grid.Enter();
      return true;
    case Qt::Key_Escape: m_grid.Escape(); return true;  // clears the box, never cancels the screen
    case Qt::Key_Tab: m_grid.Step(press.modifiers().testFlag(Qt::ShiftModifier) ? -1 : 1); return true;
    case Qt::Key_Backtab: m_grid.Step(-1); return true;
    case Qt::Key_Up: return HandleMove(press, -1);
    case Qt::Key_Down: return HandleMove(press, 1);
    case Qt::Key_PageUp: return HandleMove(press, -kPage);
    case Qt::Key_PageDown: return HandleMove(press, kPage);
    case Qt::Key_Left: return m_grid.LastColumn() > 1 && HandleMove(press, 0, -1);
    case Qt::Key_Right: return m_grid.LastColumn() > 1 && HandleMove(press, 0, 1);
    case Qt::Key_Home: return isEmpty && HandleMove(press, -m_grid.Lines());
    case Qt::Key_End: return isEmpty && HandleMove(press, m_grid.Lines());
    case Qt::Key_Delete: return isEmpty && m_grid.DeleteKey();
    default: return HandleEdit(press);
  }
}

bool GridBox::HandleMove(const QKeyEvent& press, int lines, int columns) {
  if (press.modifiers().testFlag(Qt::ShiftModifier)) {
    m_grid.ExtendSelection(lines, columns);
  } else if (columns != 0 && !text().isEmpty()) {
    return false;
  } else {
    m_grid.Move(lines, columns);
  }
  return true;
}

// With text in the box undo and redo edit the box.
bool GridBox::HandleEdit(const QKeyEvent& press) {
  if (press.matches(QKeySequence::Paste)) return HandlePaste();
  if (press.matches(QKeySequence::Copy)) return HandleCopy();
  if (!text().isEmpty()) return false;
  const bool isRedoToo = press.keyCombination() == (Qt::CTRL | Qt::Key_Y);
  if (press.matches(QKeySequence::Undo)) return HandleUndo();
  return (press.matches(QKeySequence::Redo) || isRedoToo) && HandleRedo();
}

// False when the box has text, whose own editing is undone.
bool GridBox::HandleUndo() {
  if (!text().isEmpty()) return false;
  m_grid.Undo();
  return true;
}

bool GridBox::HandleRedo() {
  if (!text().isEmpty()) return false;
  m_grid.Redo();
  return true;
}

// False for a text to paste into the box.
bool GridBox::HandlePaste() {
  const QString copied = QGuiApplication::clipboard()->text();
  if (copied.isEmpty() || m_grid.IsPastedIntoBox(FromQt(copied))) return false;
  m_grid.Paste(FromQt(copied));
  return true;
}

// False when the box has text to copy.
bool GridBox::HandleCopy() {
  if (hasSelectedText()) return false;
  QGuiApplication::clipboard()->setText(ToQt(m_grid.Copy()));
  return true;
}

// The edit menu undoes, copies and pastes like the keys.
void GridBox::contextMenuEvent(QContextMenuEvent* event) {
  const std::unique_ptr<QMenu> menu(createStandardContextMenu());
  struct Entry {
    QKeySequence::StandardKey Key;
    bool IsEnabled;
    bool (GridBox::*Take)();
    std::function<void()> Otherwise;
  };
  const bool isEmpty = text().isEmpty();
  const Entry entries[] = {
      {QKeySequence::Undo, isEmpty ? m_grid.CanUndo() : isUndoAvailable(), &GridBox::HandleUndo, [this] { undo(); }},
      {QKeySequence::Redo, isEmpty ? m_grid.CanRedo() : isRedoAvailable(), &GridBox::HandleRedo, [this] { redo(); }},
      {QKeySequence::Copy, true, &GridBox::HandleCopy, [this] { copy(); }},
      {QKeySequence::Paste, true, &GridBox::HandlePaste, [this] { paste(); }}};
  for (const Entry& entry : entries) {
    const QString shortcut = u'\t' + QKeySequence(entry.Key).toString(QKeySequence::NativeText);
    for (QAction* action : menu->actions()) {
      if (!action->text().endsWith(shortcut)) continue;
      action->disconnect();
      action->setEnabled(entry.IsEnabled);
      connect(action, &QAction::triggered, this, [this, entry] {
        if (!(this->*entry.Take)()) entry.Otherwise();
        emit Acted();
      });
    }
  }
  menu->exec(event->globalPos());
}

}  // namespace zova
