// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <utility>
#include <vector>

#include "app/widgets/Panel.h"
#include "session/MasterFlow.h"

class QCheckBox;
class QGroupBox;
class QBoxLayout;
class QLabel;

namespace zova {

/// Which families of measures become columns of the master.
class MeasurePanel : public Panel {
  Q_OBJECT

 public:
  /// `help` shows the help topic on measures.
  MeasurePanel(MasterFlow& flow, std::function<void()> help);

 protected:
  void ShowState() override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  void AddBox(QGroupBox& frame, const MeasureBox& measure);
  void ShowColumnCount();

  MasterFlow& m_flow;
  std::vector<std::pair<QCheckBox*, Measure>> m_boxes;
  QLabel* m_lblColumnCount = nullptr;
  QBoxLayout* m_columns = nullptr;
  int m_twoColumns = 0;  // the width that they need
};

}  // namespace zova
