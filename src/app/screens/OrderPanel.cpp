// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/screens/OrderPanel.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QScrollArea>
#include <QVBoxLayout>

#include "app/widgets/Controls.h"
#include "app/widgets/GridBox.h"
#include "app/widgets/GridTable.h"

namespace zova {

OrderPanel::OrderPanel(MasterFlow& flow)
    : Panel("fraOrder"),
      m_flow(flow),
      m_lblOrderTitle(AddTitle("lblOrderTitle")),
      m_grdOrder(new GridTable("grdOrder", flow.Order().Cells())),
      m_lblOrderPlan(MakeLabel("lblOrderPlan", {})),
      m_plan(MakeScrolling(m_lblOrderPlan)),
      m_txtOrder(new GridBox("txtOrder", flow.Order().Cells())) {
  m_grdOrder->setAccessibleName("New Order");
  Arrange();
  AddButton("cmdOrderReset", "&Reset", [this] { m_flow.Order().Reset(); });
  m_cmdGoSerial = AddButton("cmdGoSerial", "Co&ntinue", [this] { m_flow.GoSerial(); });
  m_cmdGoCombine = AddButton("cmdGoCombine", "Co&ntinue", [this] { m_flow.GoCombine(); });
  m_cancel = AddButton("cmdOrderCancel", "&Cancel", [this] { m_flow.CancelOrder(); });
  m_cursor = m_txtOrder;
  m_buttonsReturn = true;
  connect(m_txtOrder, &GridBox::Acted, this, [this] { ActAndReturn([] {}); });
  connect(m_txtOrder, &QLineEdit::textEdited, this, [this] { Act([] {}); });
  connect(m_grdOrder, &GridTable::Acted, this, [this] { ActAndReturn([] {}); });
}

void OrderPanel::Arrange() {
  AddProjectName();
  m_lblOrderPlan->setAlignment(Qt::AlignTop);
  m_plan->setFocusPolicy(Qt::TabFocus);  // to be scrolled from the keyboard
  m_plan->setObjectName("scrOrderPlan");
  m_plan->setAccessibleName("Groups");
  m_plan->setFixedHeight(m_plan->fontMetrics().lineSpacing() * 3);
  QLabel* prompt = MakeLabel("lblOrder", "New Or&der:", m_txtOrder);
  prompt->setWordWrap(false);
  auto* content = new QWidget;
  auto* rows = new QVBoxLayout(content);
  rows->setContentsMargins({});
  rows->addWidget(m_grdOrder, 1);
  rows->addWidget(m_plan);
  auto* entry = new QHBoxLayout;
  entry->addWidget(prompt);
  entry->addWidget(m_txtOrder, 1);
  rows->addLayout(entry);
  constexpr int kFirst = 1000;  // in the middle of a wide window
  auto* middle = new QWidget;
  auto* columns = new QHBoxLayout(middle);
  columns->setContentsMargins({});
  columns->addStretch(1);
  columns->addWidget(content, kFirst);
  columns->addStretch(1);
  m_content = content;
  AddContent(middle);
}

void OrderPanel::ShowState() {
  const OrderEditor& order = m_flow.Order();
  m_lblOrderTitle->setText(ToQt(order.Title()));
  m_grdOrder->Refresh();
  m_content->setMaximumWidth(m_grdOrder->maximumWidth());
  m_txtOrder->Refresh();
  const bool isSerial = order.CurrentUse() == OrderEditor::Use::SerialPositions;
  m_plan->setVisible(!isSerial);
  m_lblOrderPlan->setText(ToQt(m_flow.OrderPreview()));
  m_cmdGoSerial->setVisible(isSerial);
  m_cmdGoCombine->setVisible(!isSerial);
}

// Of the keys that a button ignores, digits go to the box.
void OrderPanel::keyPressEvent(QKeyEvent* event) {
  const bool isDigit = event->key() >= Qt::Key_0 && event->key() <= Qt::Key_9;
  if (!isDigit || m_txtOrder->hasFocus()) return Panel::keyPressEvent(event);
  m_txtOrder->setFocus();
  QCoreApplication::sendEvent(m_txtOrder, event);
}

}  // namespace zova
