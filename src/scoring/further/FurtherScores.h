// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "scoring/ScoringArrays.h"

namespace zova {

/// Why a further measure has no value.
enum class FurtherGap : std::uint8_t {
  None,              ///< there is a value
  NotScored,         ///< the project has no data for it
  NoIntrusionsFile,  ///< intrusions were not kept
  IntrusionsUnfit,   ///< the file of intrusions has a line that does not fit
  NoStudyOrder,      ///< the order of study is not known
  StudyOrdersUnfit,  ///< nor can it be: the file of study orders has a line that does not fit
  NothingRecalled,   ///< the list is empty
  FewerThanTwo,      ///< the list has fewer than two items
  NoRoom,            ///< every recall is of another category
  NoVariance,        ///< every order of these recalls has the same repetitions
  OneStudied,        ///< one item was studied
  NothingLeft,       ///< no transition at which an item of the category was left
  NoTransition,      ///< no transition between items of which one of several could have come
  NothingAtLag,      ///< no transition at which an item was left at this lag
  EmptyList,         ///< one of the two lists is empty
  NothingTwice,      ///< no item was followed by another one twice
  EverythingBefore,  ///< the earlier test has every item
  NothingBefore,     ///< the earlier test has none
  NoLure,            ///< no lure was recalled
  LureAlone          ///< the lure is the whole list
};

/// A value in double precision, or the reason why there is none.
struct Measured {
  double Value = 0;
  FurtherGap Gap = FurtherGap::NotScored;

  static Measured Of(double value) noexcept { return {value, FurtherGap::None}; }
  static Measured Lacking(FurtherGap gap) noexcept { return {0, gap}; }
  bool operator==(const Measured&) const = default;
};

/// Lags -5 to -1 and 1 to 5, in this order.
inline constexpr int kMaxLag = 5;
inline constexpr std::size_t kLagCount = 2 * kMaxLag;

/// The place of a lag (not 0) among these.
constexpr std::size_t LagIndex(int lag) noexcept {
  return static_cast<std::size_t>(lag < 0 ? lag + kMaxLag : lag + kMaxLag - 1);
}
constexpr int LagAt(std::size_t index) noexcept {
  const int lag = static_cast<int>(index) - kMaxLag;
  return lag < 0 ? lag : lag + 1;
}

/// Which further measures are computed.
enum class FurtherColumns {
  None,
  All,
  AllAndPositions,  ///< and Position(Test t i)
  AllAndCurves      ///< and FirstRecall(Test t i) behind it
};

/// The further measures of one test.
struct FurtherTest {
  Measured Proportion;
  Measured Repeats;
  Measured Intrusions;
  Measured Cumulative;
  Measured RepetitionRatio;
  Measured ModifiedRatio;
  Measured Deviation;
  Measured ZScore;
  Measured ListBased;
  Measured CategoryCrp;
  Measured FirstPosition;
  Measured TemporalFactor;
  std::array<Measured, kLagCount> LagCrp;
  Measured LureProportion;
  Measured LureOutput;
};

/// The further measures of a test and the one before it.
struct FurtherPair {
  Measured GainRate;
  Measured LossRate;
  Measured ForwardItr;
  Measured PairsRepeated;
  Measured PairsExpected;
};

/// All further measures of one subject.
struct FurtherScores {
  PerTest<FurtherTest> Tests;
  PerTest<FurtherPair> Pairs;  ///< from test 2
  Measured NetChange;          ///< test 1 to T
  Measured Gains;
  Measured Losses;
  Measured SubjectiveOrganization;   ///< over all tests
  TestTable<Measured> Positions;     ///< row: the studied item's position; no rows unless they are asked for
  TestTable<Measured> FirstRecalls;  ///< likewise: 1 at the position of the first recall
};

}  // namespace zova
