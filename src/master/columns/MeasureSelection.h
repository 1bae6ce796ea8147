// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>

#include "master/columns/MeasureFamilies.h"

namespace zova {

/// Which measure boxes are enabled and checked. A disabled box is never checked.
class MeasureSelection {
 public:
  [[nodiscard]] bool IsEnabled(Measure measure) const noexcept { return m_enabled[Index(measure)]; }
  [[nodiscard]] bool IsChecked(Measure measure) const noexcept { return m_checked[Index(measure)]; }
  /// No effect on a disabled box.
  void Check(Measure measure, bool checked) noexcept {
    m_checked[Index(measure)] = checked && m_enabled[Index(measure)];
  }

  /// Enables and checks every measure that the project has data for.
  void SetDefaultMeasures(const ProjectParameters& project);

 private:
  static std::size_t Index(Measure measure) noexcept { return static_cast<std::size_t>(measure); }

  std::array<bool, kMeasureCount> m_enabled{};
  std::array<bool, kMeasureCount> m_checked{};
};

}  // namespace zova
