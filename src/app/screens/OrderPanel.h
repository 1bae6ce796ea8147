// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/widgets/FlowPanel.h"

class QLabel;

namespace zova {

class NumberBox;
class OrderTable;

/// The screen on which the order of the study items or of the subjects is typed. The focus comes back to its box.
class OrderPanel : public FlowPanel {
  Q_OBJECT

 public:
  explicit OrderPanel(MasterFlow& flow);
  void Refresh() override;

 protected:
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void Arrange();

  QLabel* m_lblProjectName;
  QLabel* m_lblOrderTitle;
  OrderTable* m_grdOrder;
  QLabel* m_lblOrderPlan;
  QWidget* m_plan;
  NumberBox* m_txtOrder;
  QPushButton* m_cmdGoSerial;
  QPushButton* m_cmdGoCombine;
};

}  // namespace zova
