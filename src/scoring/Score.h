// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cmath>

namespace zova {

/// Why a ratio has no value. The master writes 0 for all of these.
enum class ScoreGap {
  None,             ///< it has one
  TooFewRecalls,    ///< ARC: fewer than 2 categories or fewer than 3 recalls
  NoRoom,           ///< ARC: the largest possible clustering is the one expected by chance
  EmptyList,        ///< ITR: one of the two lists is empty; an average over an empty list
  NothingInCommon,  ///< rating changes: no item on both tests
  NotScored         ///< left out: the family overflowed, or the test is not rated
};

/// A ratio as the master shows it, as it was before the cut, and whether it could be computed.
struct Ratio {
  float Cut = 0.0F;
  float Uncut = 0.0F;
  ScoreGap Gap = ScoreGap::NotScored;

  bool operator==(const Ratio&) const = default;
};

/// Cut, not rounded: the greatest integer not above value * scale, divided by scale, each step in single precision.
inline Ratio CutRatio(float value, float scale) {
  const float scaled = value * scale;
  return {std::floor(scaled) / scale, value, ScoreGap::None};
}

inline constexpr float kTwoDecimals = 100.0F;
inline constexpr float kThreeDecimals = 1000.0F;

}  // namespace zova
