// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/desktop/QuickHelpFilter.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QFontInfo>
#include <QFrame>
#include <QScreen>
#include <QToolTip>
#include <QVBoxLayout>

#include "app/widgets/Controls.h"
#include "session/Session.h"

namespace zova {

namespace {

bool AsksForHelp(const QKeyEvent& event) {
  return event.key() == Qt::Key_Menu || event.key() == Qt::Key_Shift ||
         (event.key() == Qt::Key_F10 && event.modifiers() == Qt::ShiftModifier);
}

// A popup window: receives all keys and clicks while open; Qt restores the focus when it closes.
class SentencePopup final : public QFrame {
 public:
  SentencePopup(const QString& sentence, const QRect& control, QWidget* owner) : QFrame(owner, Qt::Popup) {
    setAttribute(Qt::WA_DeleteOnClose);
    setFrameShape(QFrame::StyledPanel);
    setPalette(QToolTip::palette());
    setBackgroundRole(QPalette::ToolTipBase);
    setAutoFillBackground(true);
    QLabel* label = MakeLabel("lblQuickHelpText", sentence);
    label->setForegroundRole(QPalette::ToolTipText);
    constexpr int kEms = 40;
    label->setFixedWidth(
        qMin(label->fontMetrics().horizontalAdvance(sentence) + 2, kEms * QFontInfo(label->font()).pixelSize()));
    (new QVBoxLayout(this))->addWidget(label);
    // Screen readers read what gets the focus.
    label->setFocusPolicy(Qt::StrongFocus);
    label->setFocus(Qt::PopupFocusReason);
    adjustSize();
    const QRect screen = owner->screen()->availableGeometry();
    const bool fitsBelow = control.bottom() + height() < screen.bottom();
    const int top = fitsBelow ? control.bottom() + 1 : control.top() - height();
    move(qMax(screen.left(), qMin(control.left(), screen.right() - width())), qMax(screen.top(), top));
  }

 protected:
  void keyPressEvent(QKeyEvent* event) override {
    if (!AsksForHelp(*event)) close();  // the key that opened it also arrives here, or is held down
  }
  void mousePressEvent(QMouseEvent*) override { close(); }
};

}  // namespace

bool QuickHelpFilter::eventFilter(QObject* watched, QEvent* event) {
  // Again at each coming up: a screen with several forms has other sentences in each.
  if (event->type() == QEvent::Show && watched->isWidgetType()) GiveWhatsThis(*static_cast<QWidget*>(watched));
  // Before the window passes the click to its control, which might select something.
  if (watched->isWindowType() && event->type() == QEvent::MouseButtonPress) {
    const auto* press = static_cast<QMouseEvent*>(event);
    if (press->button() != Qt::RightButton || QApplication::activePopupWidget()) return false;
    const QPoint place = press->globalPosition().toPoint();
    QWidget* control = QApplication::widgetAt(place);
    return Answer(control);
  }
  if (!watched->isWidgetType()) return false;
  auto* control = static_cast<QWidget*>(watched);
#ifndef Q_OS_WIN
  // Qt handles Shift+F10 only on Windows.
  if (event->type() == QEvent::KeyPress && !QApplication::activePopupWidget()) {
    const auto* press = static_cast<QKeyEvent*>(event);
    if (press->key() == Qt::Key_F10 && press->modifiers() == Qt::ShiftModifier) {
      const QPoint middle = control->rect().center();
      QContextMenuEvent asked(QContextMenuEvent::Keyboard, middle, control->mapToGlobal(middle));
      QCoreApplication::sendEvent(control, &asked);
      return true;
    }
  }
#endif
  return event->type() == QEvent::ContextMenu && Answer(control);
}

// For Shift+F1 and screen readers.
void QuickHelpFilter::GiveWhatsThis(QWidget& control) const {
  const std::string_view sentence = m_session.QuickHelpOf(FromQt(control.objectName()));
  if (!sentence.empty()) control.setWhatsThis(ToQt(std::string(sentence)));
}

bool QuickHelpFilter::Answer(QWidget* control) const {
  const QRect area = control ? QRect(control->mapToGlobal(QPoint()), control->size()) : QRect();
  for (; control; control = control->isWindow() ? nullptr : control->parentWidget()) {
    const bool hasEditMenu = qobject_cast<QLineEdit*>(control) && control->isEnabled();
    if (hasEditMenu || control->contextMenuPolicy() != Qt::DefaultContextMenu) return false;
    const std::string_view sentence = m_session.QuickHelpOf(FromQt(control->objectName()));
    if (sentence.empty()) continue;
    (new SentencePopup(ToQt(std::string(sentence)), area, control->window()))->show();
    return true;
  }
  return false;
}

}  // namespace zova
