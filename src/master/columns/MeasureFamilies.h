// SPDX-License-Identifier: GPL-3.0-or-later
//
// The one table of measures. Header, row and count of a master, the measure screen, the command's words, and the labels
// of means and plots all come from it.
#pragma once

#include <array>
#include <optional>
#include <string_view>

#include "project/ProjectParameters.h"

namespace zova {

/// The check boxes of the measure screen, in its order.
enum class Measure { Basic, Bi, IP, Cat, Rat, FBasic, FPos, FWhich, FIP, MinNet, MinCat, MinCum, MinGains };
inline constexpr std::size_t kMeasureCount = static_cast<std::size_t>(Measure::MinGains) + 1;

/// What a project must have for a measure; several are joined with |.
struct Needs {
  enum Flag : unsigned { Nothing = 0, SeveralTests = 1, Minutes = 2, Ratings = 4, Categories = 8, Lures = 16 };
};

[[nodiscard]] bool HasDataFor(unsigned needs, const ProjectParameters& project);

/// A frame of the measure screen.
struct MeasureFrame {
  std::string_view Name;  ///< the control's name, "fraGeneral"
  std::string_view Caption;
  std::string_view QuickHelp;
};

/// A check box and what it stands for.
struct MeasureBox {
  Measure Which;
  std::string_view Name;  ///< the control's name, "chkBasic"
  std::string_view Word;  ///< the command's word for it, "recall"
  const MeasureFrame* Frame;
  std::string_view Caption;
  char AccessKey;  ///< the caption's first such letter
  unsigned Needs;  ///< without these data it is disabled
  std::string_view QuickHelp;
};

/// Indexed by Measure; boxes of one frame stand together.
const std::array<MeasureBox, kMeasureCount>& AllMeasureBoxes();

/// The box with this control name or word; nullopt for an unknown one.
std::optional<Measure> MeasureByName(std::string_view name);

}  // namespace zova
