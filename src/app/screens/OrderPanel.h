// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/widgets/FlowPanel.h"

class QLabel;

namespace zova {

class GridBox;
class GridTable;

/// The screen for the order of the study items or of the subjects. The focus returns to its box.
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
  GridTable* m_grdOrder;
  QLabel* m_lblOrderPlan;
  QWidget* m_plan;
  GridBox* m_txtOrder;
  QPushButton* m_cmdGoSerial;
  QPushButton* m_cmdGoCombine;
};

}  // namespace zova
