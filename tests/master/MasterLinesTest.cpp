// SPDX-License-Identifier: GPL-3.0-or-later

#include "master/columns/MasterLines.h"

#include <regex>

#include "scoring/Examples.h"

namespace zova::testing {
namespace {

std::ptrdiff_t CommasIn(std::string_view line) { return std::count(line.begin(), line.end(), ','); }

MeasureSelection Defaults(const ProjectParameters& project) {
  MeasureSelection selection;
  selection.SetDefaultMeasures(project);
  return selection;
}

TEST(MasterLines, NamesAndValuesInTheirOrder) {
  const ProjectParameters project = MakeProject({.Items = 4,
                                                 .PerCategory = 2,
                                                 .Minutes = 2,
                                                 .MaxRating = 3,
                                                 .Rated = "YY",
                                                 .Lures = true,
                                                 .Variables = {"Sex", "Age group"}});
  const MeasureSelection all = Defaults(project);
  const MasterHeaderLine header = BuildMasterHeader(project, all, MasterKind::Individual);
  EXPECT_EQ(
      header.MasterHeader,
      "Sub ID's, Sex, Age group, Net(Test 1), Net(Test 2), Losses(Test 1 to 2), Gains(Test 1 to 2), "
      "RecallByMin(Test 1 Min 1), RecallByMin(Test 1 Min 2), RecallByMin(Test 2 Min 1), RecallByMin(Test 2 Min 2), "
      "CumulativeRecall(Min 1), CumulativeRecall(Min 2), CumulativeRecall(Min 3), CumulativeRecall(Min 4), "
      "GainsByMin(Test 2 Min 1), GainsByMin(Test 2 Min 2), GainsAboveMedian(Test 2), GainsBelowMedian(Test 2), "
      "GainsAtMedian(Test 2), ItemsWithPattern(NN), ItemsWithPattern(NC), ItemsWithPattern(CN), ItemsWithPattern(CC)"
      ", ArcScore(Test 1), ArcScore(Test 2), Bi-ITR(Tests 1 and 2), "
      "#OfCategoriesUsed(Test 1), #OfCategoriesUsed(Test 2), #OfCats(Test 1 Min 1), #OfCats(Test 1 Min 2), "
      "#OfCats(Test 2 Min 1), #OfCats(Test 2 Min 2), AvgItemsPerCat(Test 1), AvgItemsPerCat(Test 2), "
      "RatingAvg(Test 1), RatingAvg(Test 2), RateAboveMedian(Test 1), RateBelowMedian(Test 1), RateAtMedian(Test 1), "
      "RateAboveMedian(Test 2), RateBelowMedian(Test 2), RateAtMedian(Test 2), "
      "Up(Test 1 to 2), Down(Test 1 to 2), Same(Test 1 to 2), "
      "FalseNet(Test 1), FalseNet(Test 2), LureGain(Test 1 to 2), LureLoss(Test 1 to 2), FalseByMin(Test 1 Min 1), "
      "FalseByMin(Test 1 Min 2), FalseByMin(Test 2 Min 1), FalseByMin(Test 2 Min 2), FalseCumulative(Min 1), "
      "FalseCumulative(Min 2), FalseCumulative(Min 3), FalseCumulative(Min 4), LureGainByMin(Test 2 Min 1), "
      "LureGainByMin(Test 2 Min 2), FalseRateAvg(Test 1), FalseRateAvg(Test 2), FalseAboveMid(Test 1), "
      "FalseBelowMid(Test 1), FalseAtMid(Test 1), FalseAboveMid(Test 2), FalseBelowMid(Test 2), FalseAtMid(Test 2), "
      "FalseGainsAboveMid(Test 2), FalseGainsBelowMid(Test 2), FalseGainsAtMid(Test 2), "
      "FalseUp(Test 1 to 2), FalseDown(Test 1 to 2), FalseSame(Test 1 to 2), "
      "Lure(Test# 1 Lure# 1), Lure(Test# 1 Lure# 2), Lure(Test# 2 Lure# 1), Lure(Test# 2 Lure# 2), "
      "ItemsPreLure(Test 1), ItemsPostLure(Test 1), ItemsPreLure(Test 2), ItemsPostLure(Test 2), "
      "LuresWithPattern(NN), LuresWithPattern(NC), LuresWithPattern(CN), LuresWithPattern(CC)");

  const std::regex notOfGroups(", (ArcScore|Bi-ITR|(False)?(Up|Down|Same)|Items(Pre|Post)Lure)\\([^)]*\\)");
  EXPECT_EQ(BuildMasterHeader(project, all, MasterKind::Combined).MasterHeader,
            std::regex_replace(header.MasterHeader, notOfGroups, ""));

  std::string row;
  BuildMasterRow("1", {1, 2}, project, all, Scored(project, "3/1/2 2/2/1 | 4/1/3"), row);
  EXPECT_EQ(CommasIn(row), CommasIn(header.MasterHeader));
}

TEST(MasterHeader, HoldsAtMost32767Columns) {
  ProjectParameters project = MakeProject({.Tests = 6, .Minutes = 5461});
  const MeasureSelection minutes = Only(project, {Measure::MinNet});
  const MasterHeaderLine widest = BuildMasterHeader(project, minutes, MasterKind::Individual);
  EXPECT_EQ(widest.MasterColumnCount, 32767);
  EXPECT_EQ(CommasIn(widest.MasterHeader), 32766);
  project.VariableCount = 1;
  EXPECT_THROW(BuildMasterHeader(project, minutes, MasterKind::Individual), ScoringError);
}

TEST(MasterRow, WrittenOut) {
  const ProjectParameters project = MakeProject({.Variables = {"", ""}});
  std::string row = "the row before";
  const MeasureSelection some = Only(project, {Measure::Basic, Measure::Bi});
  BuildMasterRow("17", {1, 2}, project, some, Scored(project, "1 2 3 | 1 3 2 9"), row);
  EXPECT_EQ(row, "17,  1,  2,  3,  4,  0,  1,  0");
  BuildMasterRow("S, b", {0, -3}, project, some, Scored(project, "1 2 3 | 1 3 2"), row);
  EXPECT_EQ(row, "S, b,  0, -3,  3,  3,  0,  0, -.334");
}

TEST(MeasureSelection, DefaultsFollowTheProject) {
  const std::pair<Shape, std::string> kCases[] = {
      {{.Tests = 1, .Minutes = 1}, "chkBasic chkMinNet chkMinCat chkMinCum "},
      {{.Minutes = 1, .MaxRating = 2}, "chkBasic chkBi chkIP chkRat chkMinNet chkMinCat chkMinCum chkMinGains "},
      {{.Tests = 1, .PerCategory = 1, .Lures = true}, "chkBasic chkCat "},
      {{.PerCategory = 2, .Lures = true}, "chkBasic chkBi chkIP chkCat chkFBasic chkFPos chkFwhich chkFIP "}};
  for (const auto& [shape, expected] : kCases) {
    const MeasureSelection selection = Defaults(MakeProject(shape));
    std::string checked;
    for (const MeasureBox& box : AllMeasureBoxes()) {
      if (selection.IsChecked(box.Which)) checked += std::string(box.Name) + " ";
    }
    EXPECT_EQ(checked, expected);
  }
}

TEST(MeasureBoxes, AreFoundByControlNameAndWord) {
  std::istringstream words(
      "chkBasic recall chkBi itr chkIP patterns chkCat arc chkRat ratings chkFBasic lures chkFPos associates "
      "chkFwhich which-lures chkFIP lure-patterns chkMinNet minutes chkMinCat minute-categories chkMinCum cumulative "
      "chkMinGains minute-gains");
  std::size_t count = 0;
  for (std::string word; words >> word; ++count)
    EXPECT_EQ(MeasureByName(word), static_cast<Measure>(count / 2)) << word;
  EXPECT_EQ(count, 2 * kMeasureCount);
  for (const char* unknown : {"", "chkbasic", "Recall", "Net"}) EXPECT_FALSE(MeasureByName(unknown)) << unknown;
}

TEST(SplitWideMaster, CutsUnevenly) {
  const std::pair<int, std::vector<std::ptrdiff_t>> kCases[] = {
      {257, {256, 1}}, {767, {256, 255, 256}}, {1023, {256, 255, 255, 257}}};
  for (const auto& [columns, expected] : kCases) {
    const std::string line(static_cast<std::size_t>(columns) - 1, ',');
    std::vector<std::ptrdiff_t> sizes;
    for (const std::string_view piece : SplitWideMaster(line, columns)) sizes.push_back(CommasIn(piece) + 1);
    EXPECT_EQ(sizes, expected);
  }
}

}  // namespace
}  // namespace zova::testing
