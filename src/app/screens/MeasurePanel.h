// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <utility>
#include <vector>

#include "app/widgets/Panel.h"
#include "session/MasterFlow.h"

class QCheckBox;
class QGroupBox;
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

 private:
  void AddBox(QGroupBox& frame, const MeasureBox& measure);
  void ShowColumnCount();

  MasterFlow& m_flow;
  std::vector<std::pair<QCheckBox*, Measure>> m_boxes;
  QLabel* m_lblColumnCount = nullptr;
};

}  // namespace zova
