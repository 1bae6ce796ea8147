// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cmath>
#include <cstdint>

namespace zova {

/// Why a ratio has no value. The master shows 0 for every reason.
enum class ScoreGap : std::uint8_t {
  None,             ///< the ratio has a value
  TooFewRecalls,    ///< ARC: fewer than 2 categories or fewer than 3 recalls
  NoRoom,           ///< ARC: the maximum equals the chance value
  EmptyList,        ///< ITR: one of the two lists is empty; an average over an empty list
  NothingInCommon,  ///< rating changes: no item was recalled on both tests
  NotScored         ///< the family overflowed and is not shown, or the test is not rated
};

/// A ratio as the master shows it and before truncation.
struct Ratio {
  float Cut = 0.0F;
  float Uncut = 0.0F;
  ScoreGap Gap = ScoreGap::NotScored;

  bool operator==(const Ratio&) const = default;
};

/// floor(value * scale) / scale, each step in single precision: cut, not rounded.
inline Ratio CutRatio(float value, float scale) {
  const float scaled = value * scale;
  return {std::floor(scaled) / scale, value, ScoreGap::None};
}

inline constexpr float kTwoDecimals = 100.0F;
inline constexpr float kThreeDecimals = 1000.0F;

}  // namespace zova
