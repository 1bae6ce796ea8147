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
    : FlowPanel(flow, "fraOrder"),
      m_lblProjectName(MakeLabel("lblProjectName", {})),
      m_lblOrderTitle(MakeLabel("lblOrderTitle", {})),
      m_grdOrder(new GridTable("grdOrder", flow.Order().Cells())),
      m_lblOrderPlan(MakeLabel("lblOrderPlan", {})),
      m_plan(MakeScrolling(m_lblOrderPlan)),
      m_txtOrder(new GridBox("txtOrder", flow.Order().Cells())),
      m_cmdGoSerial(AddButton("cmdGoSerial", tr("Co&ntinue"), [this] { m_flow.GoSerial(); })),
      m_cmdGoCombine(AddButton("cmdGoCombine", tr("Co&ntinue"), [this] { m_flow.GoCombine(); })) {
  AddButton("cmdOrderReset", tr("&Reset"), [this] { m_flow.Order().Reset(); });
  m_cancel = AddButton("cmdOrderCancel", tr("&Cancel"), [this] { m_flow.CancelOrder(); });
  m_cursor = m_txtOrder;
  m_grdOrder->setAccessibleName(tr("New Order"));
  Arrange();
  connect(m_txtOrder, &GridBox::Acted, this, [this] { Act([] {}); });
  connect(m_txtOrder, &QLineEdit::textEdited, this, [this] {
    Refresh();
    emit Acted();
  });
  connect(m_grdOrder, &GridTable::Acted, this, [this] { Act([] {}); });
}

void OrderPanel::Arrange() {
  QFont bold;  // only its weight is set: the rest comes from the window
  bold.setBold(true);
  m_lblOrderTitle->setFont(bold);
  m_lblOrderPlan->setAlignment(Qt::AlignTop);
  m_plan->setFocusPolicy(Qt::TabFocus);  // for scrolling by keyboard
  m_plan->setAccessibleName(tr("Groups"));
  m_plan->setFixedHeight(m_plan->fontMetrics().lineSpacing() * 3);
  QLabel* prompt = MakeLabel("lblOrder", tr("New Or&der:"), m_txtOrder);
  prompt->setWordWrap(false);
  auto* rows = static_cast<QVBoxLayout*>(layout());
  auto* entry = new QHBoxLayout;
  entry->addWidget(prompt);
  entry->addWidget(m_txtOrder, 1);
  rows->insertWidget(0, m_lblProjectName);
  rows->insertWidget(1, m_lblOrderTitle);
  rows->insertWidget(2, m_grdOrder, 1);
  rows->insertWidget(3, m_plan);
  rows->insertLayout(4, entry);
}

void OrderPanel::Refresh() {
  const OrderEditor& order = m_flow.Order();
  m_lblProjectName->setText(ToQt(m_flow.ProjectLine()));
  m_lblOrderTitle->setText(ToQt(order.Title()));
  m_grdOrder->Refresh();
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
  if (!isDigit || m_txtOrder->hasFocus()) return FlowPanel::keyPressEvent(event);
  m_txtOrder->setFocus();
  QCoreApplication::sendEvent(m_txtOrder, event);
}

}  // namespace zova
