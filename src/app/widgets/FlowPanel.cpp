// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/widgets/FlowPanel.h"

#include <QKeyEvent>
#include <QScrollArea>
#include <QVBoxLayout>
#include <utility>

#include "app/widgets/Controls.h"

namespace zova {

FlowPanel::FlowPanel(MasterFlow& flow, const char* name) : m_flow(flow), m_buttons(new QHBoxLayout) {
  setObjectName(QString::fromLatin1(name));
  auto* rows = new QVBoxLayout(this);
  m_buttons->addStretch();
  rows->addLayout(m_buttons);
}

QVBoxLayout* FlowPanel::AddPage() {
  auto* page = new QWidget;
  auto* rows = new QVBoxLayout(page);
  rows->setContentsMargins(0, 0, rows->spacing(), 0);  // the panel has its own margins
  static_cast<QVBoxLayout*>(layout())->insertWidget(0, MakeScrolling(page), 1);
  return rows;
}

QPushButton* FlowPanel::AddButton(const char* name, const QString& caption, std::function<void()> act) {
  QPushButton* button = zova::AddButton(*m_buttons, name, caption, *this, std::move(act));
  connect(button, &QPushButton::clicked, this, &FlowPanel::PlaceCursor);
  return button;
}

void FlowPanel::Act(const std::function<void()>& act) {
  act();
  Refresh();
  emit Acted();
  PlaceCursor();
}

void FlowPanel::PlaceCursor() {
  if (isVisible()) PlaceCursorIn(m_cursor);
}

void FlowPanel::showEvent(QShowEvent* event) {
  Panel::showEvent(event);
  if (event->spontaneous()) return;
  Refresh();
  PlaceCursor();
}

// Keys that the control with the focus has no use for.
void FlowPanel::keyPressEvent(QKeyEvent* event) {
  QPushButton* pressed = nullptr;
  if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) pressed = m_default;
  if (event->key() == Qt::Key_Escape) pressed = m_cancel;
  if (pressed == nullptr) return Panel::keyPressEvent(event);
  if (!event->isAutoRepeat()) pressed->click();
}

}  // namespace zova
