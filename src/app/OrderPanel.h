// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/FlowPanel.h"

namespace zova {

class NumberBox;
class NumberGrid;
class OrderModel;

/// The screen on which the order of the study items or of the subjects is typed. The focus comes back to its box.
class OrderPanel : public FlowPanel {
  Q_OBJECT

 public:
  explicit OrderPanel(MasterFlow& flow);
  void Refresh() override;

 protected:
  void keyPressEvent(QKeyEvent* event) override;

 private:
  OrderModel* m_model;
  NumberGrid* m_grdOrder;
  NumberBox* m_txtOrder;
  QPushButton* m_cmdGoSerial;
  QPushButton* m_cmdGoCombine;
};

}  // namespace zova
