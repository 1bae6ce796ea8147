// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/widgets/Panel.h"
#include "session/MasterFlow.h"

class QLabel;

namespace zova {

class GridBox;
class GridTable;

/// The screen on which the order of the study items or of the subjects is typed. The focus comes back to its box.
class OrderPanel : public Panel {
  Q_OBJECT

 public:
  explicit OrderPanel(MasterFlow& flow);

 protected:
  void ShowState() override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void Arrange();

  MasterFlow& m_flow;
  QLabel* m_lblOrderTitle;
  GridTable* m_grdOrder;
  QLabel* m_lblOrderPlan;
  QWidget* m_plan;
  GridBox* m_txtOrder;
  QWidget* m_content = nullptr;
  QPushButton* m_cmdGoSerial = nullptr;
  QPushButton* m_cmdGoCombine = nullptr;
};

}  // namespace zova
