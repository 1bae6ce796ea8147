// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/Controls.h"

#include <QScrollArea>

namespace zova {

QLabel* MakeLabel(const char* name, const QString& text, QWidget* buddy) {
  QLabel* label = Named(new QLabel(text), name);
  label->setTextFormat(Qt::PlainText);
  label->setWordWrap(true);
  label->setBuddy(buddy);
  return label;
}

QPushButton* MakeButton(const char* name, const QString& caption) {
  QPushButton* button = Named(new QPushButton(caption), name);
  // Outside a dialog Enter presses the button that has the focus only when it is told so.
  button->setAutoDefault(true);
  return button;
}

void MarkDefault(QPushButton* button, bool isDefault) {
  button->setAutoDefault(!isDefault);  // else Qt takes the mark away with the focus
  button->setDefault(isDefault);
}

QScrollArea* MakeScrolling(QWidget* content) {
  auto* area = new QScrollArea;
  area->setWidget(content);
  area->setWidgetResizable(true);
  area->setFrameShape(QFrame::NoFrame);
  area->setFocusPolicy(Qt::NoFocus);  // else it is a stop of its own for Tab
  return area;
}

void ShowText(QLineEdit* box, const std::string& text) {
  const QString shown = ToQt(text);
  if (box->text() != shown) box->setText(shown);
}

void PlaceCursorIn(QWidget* control) {
  control->setFocus(Qt::OtherFocusReason);
  if (auto* box = qobject_cast<QLineEdit*>(control)) box->selectAll();
  // A scroll area follows the focus only when Tab moved it.
  for (QWidget* parent = control->parentWidget(); parent; parent = parent->parentWidget()) {
    if (auto* page = qobject_cast<QScrollArea*>(parent)) page->ensureWidgetVisible(control);
  }
}

}  // namespace zova
