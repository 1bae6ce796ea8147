// SPDX-License-Identifier: GPL-3.0-or-later

#include "master/columns/MeasureSelection.h"

namespace zova {

void MeasureSelection::SetDefaultMeasures(const ProjectParameters& project) {
  for (const MeasureBox& box : AllMeasureBoxes()) {
    m_enabled[Index(box.Which)] = HasDataFor(box.Needs, project);
    m_checked[Index(box.Which)] = m_enabled[Index(box.Which)];
  }
}

}  // namespace zova
