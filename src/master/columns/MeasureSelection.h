// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <optional>
#include <string_view>

#include "project/ProjectParameters.h"

namespace zova {

/// The check boxes of the measure panel, in its order.
enum class Measure { Basic, Bi, IP, Cat, Rat, FBasic, FPos, FWhich, FIP, MinNet, MinCat, MinCum, MinGains };
inline constexpr std::size_t kMeasureCount = 13;

struct MeasureBox {
  Measure Which;
  std::string_view Name;  ///< the control's name, "chkBasic"
  std::string_view Caption;
  std::string_view Frame;  ///< caption of the frame that holds it
};

/// Indexed by Measure.
const std::array<MeasureBox, kMeasureCount>& AllMeasureBoxes();

/// Which families of measures become columns. A disabled box is never checked.
class MeasureSelection {
 public:
  [[nodiscard]] bool IsEnabled(Measure measure) const noexcept { return m_enabled[Index(measure)]; }
  [[nodiscard]] bool IsChecked(Measure measure) const noexcept { return m_checked[Index(measure)]; }
  /// Nothing happens to a disabled box.
  void Check(Measure measure, bool checked) noexcept {
    m_checked[Index(measure)] = checked && m_enabled[Index(measure)];
  }

  /// Everything that the project has data for is enabled and checked.
  void SetDefaultMeasures(const ProjectParameters& project);

 private:
  static std::size_t Index(Measure measure) noexcept { return static_cast<std::size_t>(measure); }

  std::array<bool, kMeasureCount> m_enabled{};
  std::array<bool, kMeasureCount> m_checked{};
};

/// The box with this name; nothing for an unknown one.
std::optional<Measure> MeasureByName(std::string_view name);

}  // namespace zova
