// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/QuickHelpFilter.h"

#include <QContextMenuEvent>
#include <QFrame>
#include <QScreen>
#include <QVBoxLayout>

#include "app/Controls.h"
#include "session/QuickHelp.h"

namespace zova {

namespace {

// A popup window: it takes all keys and clicks while it is open, and Qt gives the focus back when it closes.
class SentencePopup final : public QFrame {
 public:
  SentencePopup(const QString& sentence, const QPoint& place, QWidget* owner) : QFrame(owner, Qt::Popup) {
    setAttribute(Qt::WA_DeleteOnClose);
    setFrameShape(QFrame::StyledPanel);
    QLabel* label = MakeLabel("lblQuickHelpText", sentence);
    (new QVBoxLayout(this))->addWidget(label);
    // A screen reader reads what gets the focus.
    label->setFocusPolicy(Qt::StrongFocus);
    label->setFocus(Qt::PopupFocusReason);
    adjustSize();
    const QRect screen = owner->screen()->availableGeometry();
    move(qMax(screen.left(), qMin(place.x(), screen.right() - width())),
         qMax(screen.top(), qMin(place.y(), screen.bottom() - height())));
  }

 protected:
  void keyPressEvent(QKeyEvent*) override { close(); }
  void mousePressEvent(QMouseEvent*) override { close(); }
};

}  // namespace

bool QuickHelpFilter::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::ContextMenu || !watched->isWidgetType()) return false;
  const auto* asked = static_cast<QContextMenuEvent*>(event);
  auto* control = static_cast<QWidget*>(watched);
  QPoint place = control->mapToGlobal(control->rect().bottomLeft());
  if (asked->reason() == QContextMenuEvent::Mouse) {
    place = asked->globalPos();
    // A control that is greyed out may leave its clicks to what it stands on.
    if (QWidget* child = control->childAt(asked->pos())) control = child;
  }
  for (; control; control = control->isWindow() ? nullptr : control->parentWidget()) {
    const bool hasEditMenu = qobject_cast<QLineEdit*>(control) && control->isEnabled();
    if (hasEditMenu || control->contextMenuPolicy() != Qt::DefaultContextMenu) return false;
    const std::string_view sentence = QuickHelp(FromQt(control->objectName()));
    if (sentence.empty()) continue;
    (new SentencePopup(ToQt(std::string(sentence)), place, control->window()))->show();
    return true;
  }
  return false;
}

}  // namespace zova
