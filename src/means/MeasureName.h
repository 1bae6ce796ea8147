// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace zova {

/// What the columns of one family differ in: the axis of their plot.
enum class MeasureAxis {
  Test,           ///< "Net(Test 2)"
  TestPair,       ///< "Gains(Test 1 to 2)", "Bi-ITR(Tests 1 and 2)"
  Minute,         ///< "RecallByMin(Test 1 Min 3)": the minutes of each test
  RunningMinute,  ///< "CumulativeRecall(Min 7)": counted on over all tests
  Pattern,        ///< "ItemsWithPattern(NC)"
  Lure            ///< "Lure(Test# 1 Lure# 2)": the lures of each test
};

/// The name of a measure's column, taken apart.
struct MeasureName {
  std::string_view Family;  ///< the text before the bracket, "Net"; the same for all columns of a series
  std::string_view Label;   ///< in plain words, for the axis: "Net recall"
  std::string_view Unit;    ///< "items", "rating points", "share of items"; "" for an index without one
  MeasureAxis Axis = MeasureAxis::Test;
  int Test = 0;   ///< of a pair the earlier one; 0 where there is none
  int Index = 0;  ///< from 1, the place on the axis: test, later test, minute, lure; pattern number + 1
  std::string_view Pattern;
};

/// Nothing for a name that no column of a master has. The views of Family and Pattern point into `column`.
std::optional<MeasureName> ParseMeasureName(std::string_view column);

/// The axis itself: "Test", "Tests", "Minute", "Minute over all tests", "Pattern of recall", "Lure".
std::string_view AxisLabel(MeasureAxis axis);

}  // namespace zova
