// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/widgets/Controls.h"

#include <QBoxLayout>
#include <QEvent>
#include <QScrollArea>
#include <utility>

#include "app/widgets/Panel.h"

namespace zova {

namespace {

class ActingAtOnce final : public QObject {
 public:
  explicit ActingAtOnce(QAbstractButton* button) : QObject(button) { button->installEventFilter(this); }
  bool eventFilter(QObject* watched, QEvent* event) override {
    auto* button = static_cast<QAbstractButton*>(watched);
    if (event->type() == QEvent::Shortcut) {
      if (button->isCheckable()) PlaceCursorIn(button);
      button->click();  // by itself it acts 100 ms later, when another screen may be shown
      return true;
    }
    // A double click is one press: its second half would press a button at the same place of the next screen.
    return event->type() == QEvent::MouseButtonDblClick && !button->isCheckable();
  }
};

}  // namespace

QLabel* MakeLabel(const char* name, const QString& text, QWidget* buddy) {
  QLabel* label = Named(new QLabel(text), name);
  label->setTextFormat(Qt::PlainText);
  label->setWordWrap(true);
  label->setBuddy(buddy);
  return label;
}

QPushButton* MakeButton(const char* name, const QString& caption) {
  QPushButton* button = Named(new QPushButton(caption), name);
  // Outside a dialog Enter presses the focused button only with this setting.
  button->setAutoDefault(true);
  return button;
}

QPushButton* AddButton(QBoxLayout& row, const char* name, const QString& caption, Panel& panel,
                       std::function<void()> act) {
  QPushButton* button = MakeButton(name, caption);
  button->setFocusPolicy(Qt::TabFocus);
  ActAtOnce(button);
  row.addWidget(button);
  QObject::connect(button, &QPushButton::clicked, &panel, [&panel, act = std::move(act)] {
    act();
    panel.Refresh();
    emit panel.Acted();
  });
  return button;
}

void ActAtOnce(QAbstractButton* button) { new ActingAtOnce(button); }

void MarkDefault(QPushButton* button, bool isDefault) {
  button->setAutoDefault(!isDefault);  // otherwise Qt removes the mark with the focus
  button->setDefault(isDefault);
}

QScrollArea* MakeScrolling(QWidget* content) {
  auto* area = new QScrollArea;
  area->setWidget(content);
  area->setWidgetResizable(true);
  area->setFrameShape(QFrame::NoFrame);
  area->setFocusPolicy(Qt::NoFocus);  // otherwise it is a tab stop
  return area;
}

void ShowText(QLineEdit* box, const std::string& text) {
  const QString shown = ToQt(text);
  if (box->text() != shown) box->setText(shown);
}

void PlaceCursorIn(QWidget* control) {
  control->setFocus(Qt::OtherFocusReason);
  if (auto* box = qobject_cast<QLineEdit*>(control)) box->selectAll();
  // A scroll area follows the focus only when Tab moves it.
  for (QWidget* parent = control->parentWidget(); parent; parent = parent->parentWidget()) {
    if (auto* page = qobject_cast<QScrollArea*>(parent)) page->ensureWidgetVisible(control);
  }
}

}  // namespace zova
