// SPDX-License-Identifier: GPL-3.0-or-later
//
// The names are put together in MasterColumns.cpp. A new block of columns there needs its line here.

#include "means/MeasureName.h"

#include <algorithm>

#include "means/MasterFields.h"
#include "project/ProjectParameters.h"

namespace zova {

namespace {

// What stands behind a family's name; % is a number from 1. A pattern's letters have no text of their own.
struct Shape {
  std::string_view Text;
  MeasureAxis Axis;
};

constexpr Shape kOfTest = {"(Test %)", MeasureAxis::Test};
constexpr Shape kOfTestPair = {"(Test % to %)", MeasureAxis::TestPair};
constexpr Shape kOfBothTests = {"(Tests % and %)", MeasureAxis::TestPair};
constexpr Shape kOfMinute = {"(Test % Min %)", MeasureAxis::Minute};
constexpr Shape kOfRunningMinute = {"(Min %)", MeasureAxis::RunningMinute};
constexpr Shape kOfPattern = {"", MeasureAxis::Pattern};
constexpr Shape kOfLure = {"(Test# % Lure# %)", MeasureAxis::Lure};

struct Family {
  std::string_view Name;
  Shape Columns;
  std::string_view Label;
  std::string_view Unit;
};

// In the order of the file.
constexpr Family kFamilies[] = {
    {"Net", kOfTest, "Net recall", "items"},
    {"Losses", kOfTestPair, "Losses between tests", "items"},
    {"Gains", kOfTestPair, "Gains between tests", "items"},
    {"RecallByMin", kOfMinute, "Recall by minute", "items"},
    {"CumulativeRecall", kOfRunningMinute, "Cumulative recall", "items"},
    {"GainsByMin", kOfMinute, "Gains by minute", "items"},
    {"GainsAboveMedian", kOfTest, "Gains rated above the scale midpoint", "items"},
    {"GainsBelowMedian", kOfTest, "Gains rated below the scale midpoint", "items"},
    {"GainsAtMedian", kOfTest, "Gains rated at the scale midpoint", "items"},
    {"ItemsWithPattern", kOfPattern, "Frequency of the recall pattern", "items"},
    {"ArcScore", kOfTest, "Adjusted ratio of clustering (ARC)", ""},
    {"Bi-ITR", kOfBothTests, "Bi-directional inter-test repetition", "pairs"},
    {"#OfCategoriesUsed", kOfTest, "Category recall", "categories"},
    {"#OfCats", kOfMinute, "Category recall by minute", "categories"},
    {"AvgItemsPerCat", kOfTest, "Recall per category", "items"},
    {"RatingAvg", kOfTest, "Average rating", "rating points"},
    {"RateAboveMedian", kOfTest, "Recall rated above the scale midpoint", "items"},
    {"RateBelowMedian", kOfTest, "Recall rated below the scale midpoint", "items"},
    {"RateAtMedian", kOfTest, "Recall rated at the scale midpoint", "items"},
    {"Up", kOfTestPair, "Ratings raised between tests", "share of items"},
    {"Down", kOfTestPair, "Ratings lowered between tests", "share of items"},
    {"Same", kOfTestPair, "Ratings kept between tests", "share of items"},
    {"FalseNet", kOfTest, "False recall", "lures"},
    {"LureGain", kOfTestPair, "Lures gained between tests", "lures"},
    {"LureLoss", kOfTestPair, "Lures lost between tests", "lures"},
    {"FalseByMin", kOfMinute, "False recall by minute", "lures"},
    {"FalseCumulative", kOfRunningMinute, "Cumulative false recall", "lures"},
    {"LureGainByMin", kOfMinute, "Lures gained by minute", "lures"},
    {"FalseRateAvg", kOfTest, "Average rating of false recall", "rating points"},
    {"FalseAboveMid", kOfTest, "False recall rated above the scale midpoint", "lures"},
    {"FalseBelowMid", kOfTest, "False recall rated below the scale midpoint", "lures"},
    {"FalseAtMid", kOfTest, "False recall rated at the scale midpoint", "lures"},
    {"FalseGainsAboveMid", kOfTest, "Gained lures rated above the scale midpoint", "lures"},
    {"FalseGainsBelowMid", kOfTest, "Gained lures rated below the scale midpoint", "lures"},
    {"FalseGainsAtMid", kOfTest, "Gained lures rated at the scale midpoint", "lures"},
    {"FalseUp", kOfTestPair, "Ratings of lures raised between tests", "share of lures"},
    {"FalseDown", kOfTestPair, "Ratings of lures lowered between tests", "share of lures"},
    {"FalseSame", kOfTestPair, "Ratings of lures kept between tests", "share of lures"},
    {"Lure", kOfLure, "Recall of the lure", "share of subjects"},
    {"ItemsPreLure", kOfTest, "Associates recalled before the lure", "items"},
    {"ItemsPostLure", kOfTest, "Associates recalled after the lure", "items"},
    {"LuresWithPattern", kOfPattern, "Frequency of the recall pattern", "lures"},
};

// "(NNC)": a letter per test, the first weighing most.
bool TakePattern(std::string_view text, MeasureName& name) {
  if (text.size() < 3 || text.size() > kMaxTests + 2 || text.front() != '(' || text.back() != ')') return false;
  name.Pattern = text.substr(1, text.size() - 2);
  if (name.Pattern.find_first_not_of("NC") != std::string_view::npos) return false;
  int number = 0;
  for (const char letter : name.Pattern) number = 2 * number + (letter == 'C' ? 1 : 0);
  name.Index = number + 1;
  return true;
}

bool TakePlace(const Shape& shape, std::string_view text, MeasureName& name) {
  if (shape.Axis == MeasureAxis::Pattern) return TakePattern(text, name);
  const auto numbers = NumbersIn(text, shape.Text);
  if (!numbers) return false;
  const auto [first, second] = *numbers;
  name.Test = shape.Axis == MeasureAxis::RunningMinute ? 0 : first;
  name.Index = second > 0 ? second : first;
  return shape.Axis != MeasureAxis::TestPair || first < second;
}

}  // namespace

std::optional<MeasureName> ParseMeasureName(std::string_view column) {
  const std::size_t bracket = column.find('(');
  if (bracket == std::string_view::npos) return std::nullopt;
  const std::string_view text = column.substr(0, bracket);
  const auto* const family =
      std::find_if(std::begin(kFamilies), std::end(kFamilies), [&](const Family& f) { return f.Name == text; });
  if (family == std::end(kFamilies)) return std::nullopt;
  MeasureName name{text, family->Label, family->Unit, family->Columns.Axis, 0, 0, {}};
  if (!TakePlace(family->Columns, column.substr(bracket), name)) return std::nullopt;
  return name;
}

std::string_view AxisLabel(MeasureAxis axis) {
  switch (axis) {
    case MeasureAxis::Test: return "Test";
    case MeasureAxis::TestPair: return "Tests";
    case MeasureAxis::Minute: return "Minute";
    case MeasureAxis::RunningMinute: return "Minute over all tests";
    case MeasureAxis::Pattern: return "Pattern of recall";
    case MeasureAxis::Lure: return "Lure";
  }
  return "";
}

}  // namespace zova
