// SPDX-License-Identifier: GPL-3.0-or-later

#include <algorithm>
#include <cmath>
#include <numeric>
#include <random>

#include "master/columns/FurtherFamilies.h"
#include "scoring/further/ScoreFurther.h"
#include "support/Study.h"
#include "text/NumberText.h"

namespace zova::testing {
namespace {

// A subject's further measures. `order` holds the items in the order of study; "" is an unknown one.
struct Subject {
  Subject(const Shape& shape, const std::string& lists, const std::string& order = "",
          std::vector<IntrusionPlace> intrusions = {}, bool hasFile = true)
      : Project(MakeProject(shape)) {
    const StudyList study = MakeStudyList(Project);
    const RecallLists read = MakeLists(Project, lists);
    std::istringstream items(order);
    std::vector<std::int16_t> positions(static_cast<std::size_t>(study.ItemCount));
    for (std::int16_t item, position = 0; items >> item;) positions[static_cast<std::size_t>(item) - 1] = ++position;
    const StudyRanks ranks = RanksOf(positions, study);
    const std::vector<const StudyRanks*> orders(static_cast<std::size_t>(study.TestCount),
                                                order.empty() ? nullptr : &ranks);
    ScoreFurther({read, hasFile ? FurtherGap::None : FurtherGap::NoIntrusionsFile, intrusions, orders}, study,
                 FurtherColumns::AllAndCurves, Scores, m_work);
  }
  // The value of a column, or the reason why it has none.
  std::string operator[](const std::string& column) const {
    std::string text = "no such column";
    WalkFurtherColumns(Project, Scores, [&](const FurtherColumn& walked, const Measured& value) {
      std::string name;
      AppendColumnName(name, walked);
      if (name != column) return;
      text = FurtherGapText(value.Gap);
      if (value.Gap == FurtherGap::None) AppendPlainNumber(text, value.Value);
      const auto known = FurtherColumnByName(name);
      ASSERT_TRUE(known) << name;
      EXPECT_EQ(known->Place.Index, walked.Place.Index) << name;
    });
    return text;
  }

  ProjectParameters Project;
  FurtherScores Scores;

 private:
  FurtherWork m_work;
};

using Values = std::initializer_list<std::pair<const char*, const char*>>;

void Check(const Subject& subject, Values values) {
  for (const auto& [column, value] : values) EXPECT_EQ(subject[column], value) << column;
}

TEST(FurtherMeasures, Counts) {
  // What stands behind a blank counts; the second 5 and the second 1 are repeats.
  Check({{.Tests = 3, .Items = 8}, "1 5 5 0 2 1 | 5 6 | ", "", {{1, 0}, {1, 9}, {3, 0}}},
        {{"Proportion(Test 1)", "0.375"},
         {"Repeats(Test 1)", "2"},
         {"Intrusions(Test 1)", "2"},
         {"Intrusions(Test 2)", "0"},
         {"Intrusions(Test 3)", "1"},
         {"Cumulative(Test 1)", "3"},
         {"Cumulative(Test 3)", "4"},
         {"NetChange(Test 1 to 3)", "-3"},
         {"Gains(Test 1 to 3)", "0"},
         {"Losses(Test 1 to 3)", "3"},
         {"GainRate(Test 1 to 2)", "0.2"},
         {"LossRate(Test 1 to 2)", "0.666666666666667"},
         {"LossRate(Test 2 to 3)", "1"}});
  Check({{.Items = 3}, "1 2 3 | ", "", {}, false},
        {{"GainRate(Test 1 to 2)", "everything was recalled on the test before"},
         {"Intrusions(Test 1)", "no file of intrusions"},
         {"Gains(Test 1 to 2)", "no such column"},
         {"RR(Test 1)", "no such column"}});
  Check({{.Items = 3}, " | 1"}, {{"LossRate(Test 1 to 2)", "nothing was recalled on the test before"}});
}

TEST(FurtherMeasures, Clustering) {
  const Shape fours{.Tests = 1, .PerCategory = 4};
  // Categories 1 1 2 2 1: R = 2, r = 5, k = 2, S2 = 13, S3 = 35, E = 1.6, V = .84.
  Check({fours, "1 2 5 6 3"}, {{"RR(Test 1)", "0.5"},
                               {"MRR(Test 1)", "0.666666666666667"},
                               {"Deviation(Test 1)", "0.4"},
                               {"Z(Test 1)", "0.436435780471985"},
                               {"LBC(Test 1)", "0.909090909090909"},
                               {"CategoryCRP(Test 1)", "0.5"}});
  // The repeat closes up, the intrusion does not; for transitions both interrupt.
  Check({fours, "1 1 2 3 5", "", {{1, 3}}}, {{"RR(Test 1)", "0.333333333333333"}, {"CategoryCRP(Test 1)", "0"}});
  Check({fours, "1 2 3 4 5 1 6"}, {{"RR(Test 1)", "0.8"}, {"CategoryCRP(Test 1)", "1"}});
  const char* none = "nothing was recalled";
  Check({fours, ""}, {{"RR(Test 1)", none}, {"MRR(Test 1)", none}, {"Deviation(Test 1)", none}, {"LBC(Test 1)", none}});
  Check({fours, "7"}, {{"RR(Test 1)", "fewer than 2 recalls"},
                       {"MRR(Test 1)", "every recall is of another category"},
                       {"Deviation(Test 1)", "0"},
                       {"Z(Test 1)", "fewer than 2 recalls"},
                       {"LBC(Test 1)", "0"},
                       {"CategoryCRP(Test 1)", "no transition at which an item of the category was left"}});
  Check({fours, "1 2"}, {{"Z(Test 1)", "every order of these recalls has the same repetitions"}});
  // Studied are 1 2 and 4 5: m = 2, N = 4. The lure 3 breaks, also when it comes again.
  Check({{.Tests = 1, .Items = 6, .PerCategory = 3, .Lures = true}, "1 3 2 4 3 5"},
        {{"RR(Test 1)", "0"}, {"LBC(Test 1)", "-1"}, {"Proportion(Test 1)", "1"}, {"Repeats(Test 1)", "0"}});
  Check({{.Tests = 1, .Items = 2, .PerCategory = 2, .Lures = true}, "1"},
        {{"LBC(Test 1)", "only one item was studied"}});
}

TEST(FurtherMeasures, RepeatedPairs) {
  // 1-2 in order, 3-4 in reverse, 4-5 is broken: h = 5, q = 5, c = 4.
  Check({{}, "1 2 3 4 5 | 9 1 2 2 4 3", "", {{1, 4}}}, {{"PairsRepeated(Tests 1 and 2)", "2"},
                                                        {"PairsExpected(Tests 1 and 2)", "0.96"},
                                                        {"ForwardItr(Tests 1 and 2)", "0.52"}});
  Check({{}, "1 2 | "}, {{"PairsRepeated(Tests 1 and 2)", "0"},
                         {"PairsExpected(Tests 1 and 2)", "no recall to compute it from"},
                         {"ForwardItr(Tests 1 and 2)", "no recall to compute it from"},
                         {"SubjectiveOrganization(Tests 1 to 2)", "no item was followed by another one on two tests"}});
  // Pairs 12 12 13 23 31 32: the row of 1 has 3, that of 3 has 2: (2 log 2) / (3 log 3 + 2 log 2).
  Check({{.Tests = 3}, "1 2 3 | 3 1 1 2 | 1 3 2", "", {{1, 1}}},
        {{"SubjectiveOrganization(Tests 1 to 3)", "0.296081910965865"}});
}

TEST(FurtherMeasures, Serial) {
  // Studied as 4 2 1 3 5 6. Positions recalled: 3, 4, 1 | 2 after a repeat.
  Check({{.Tests = 1, .Items = 6}, "1 3 4 4 2", "4 2 1 3 5 6"},
        {{"FirstPosition(Test 1)", "3"},
         // 3 to 4 ties with 2 as the nearest of five: 3.5 / 4; 4 to 1 is the farthest of four.
         {"TemporalFactor(Test 1)", "0.4375"},
         {"LagCrp(Test 1 Lag 1)", "0.5"},
         {"LagCrp(Test 1 Lag -3)", "1"},
         {"LagCrp(Test 1 Lag -2)", "0"},
         {"LagCrp(Test 1 Lag -4)", "no transition at which an item was left at this lag"},
         {"Position(Test 1 1)", "1"},
         {"Position(Test 1 5)", "0"},
         {"Position(Test 1 7)", "no such column"},
         {"FirstRecall(Test 1 3)", "1"},
         {"FirstRecall(Test 1 1)", "0"}});
  Check({{.Tests = 1, .Items = 2}, "1 2", "1 2"},
        {{"TemporalFactor(Test 1)", "no transition at which several items were left"}});
  Check({{.Tests = 1}, "1"}, {{"FirstPosition(Test 1)", "no study order"}, {"Position(Test 1 1)", "no study order"}});
  Check({{.Tests = 1}, "", "1 2 3"}, {{"FirstPosition(Test 1)", "nothing was recalled"},
                                      {"Position(Test 1 1)", "0"},
                                      {"FirstRecall(Test 1 1)", "nothing was recalled"}});
  // Positions are ranks of what was studied: 4 1 5 2, whatever stands between.
  Check({{.Tests = 1, .Items = 6, .PerCategory = 3, .Lures = true}, "6 5", "4 6 1 3 5 2"},
        {{"FirstPosition(Test 1)", "3"}, {"Position(Test 1 4)", "0"}});
}

TEST(FurtherMeasures, Lures) {
  const Shape threes{.Tests = 1, .Items = 9, .PerCategory = 3, .Lures = true};
  // First entries 1 3 5 6: places 2 and 4 of 4.
  Check({threes, "1 1 3 5 3 6", "", {{1, 0}}},
        {{"LureProportion(Test 1)", "0.666666666666667"}, {"LureOutput(Test 1)", "0.666666666666667"}});
  Check({threes, "1"}, {{"LureProportion(Test 1)", "0"}, {"LureOutput(Test 1)", "no lure was recalled"}});
  Check({threes, "3 3"}, {{"LureOutput(Test 1)", "nothing but the lure was recalled"}});
}

// Over all orders of the recalls, R - E has the mean 0 and Z the variance 1; reversal changes neither.
TEST(FurtherMeasures, ChanceOfClusteringIsExact) {
  std::vector<int> items = {1, 2, 3, 5, 6, 9};
  double sum = 0, squares = 0;
  int orders = 0;
  do {
    std::string list, reversed;
    for (const int item : items) {
      list += std::to_string(item) + " ";
      reversed = std::to_string(item) + " " + reversed;
    }
    const FurtherTest scores = Subject({.Tests = 1, .PerCategory = 4}, list).Scores.Tests[1];
    EXPECT_EQ(Subject({.Tests = 1, .PerCategory = 4}, reversed).Scores.Tests[1].ZScore, scores.ZScore) << list;
    sum += scores.Deviation.Value;
    squares += scores.ZScore.Value * scores.ZScore.Value;
    ++orders;
  } while (std::next_permutation(items.begin(), items.end()));
  EXPECT_NEAR(sum, 0, 1e-9);
  EXPECT_NEAR(squares / orders, 1, 1e-12);
}

// Over all orders of two lists, the pairs repeated are those expected, and temporal factor and its chance agree.
TEST(FurtherMeasures, OtherChanceValuesAreExact) {
  std::vector<int> items = {1, 2, 3, 4, 5};
  double forward = 0, either = 0, temporal = 0;
  int orders = 0;
  do {
    std::string list;
    for (const int item : items) list += std::to_string(item) + " ";
    const Subject subject({.Items = 5}, list + "| 2 4 1 3 5", "1 2 3 4 5");
    const FurtherPair& pair = subject.Scores.Pairs[2];
    forward += pair.ForwardItr.Value;
    either += pair.PairsRepeated.Value - pair.PairsExpected.Value;
    temporal += subject.Scores.Tests[1].TemporalFactor.Value;
    ++orders;
  } while (std::next_permutation(items.begin(), items.end()));
  EXPECT_NEAR(forward, 0, 1e-9);
  EXPECT_NEAR(either, 0, 1e-9);
  EXPECT_NEAR(temporal / orders, .5, 1e-12);
}

TEST(FurtherMeasures, PerfectAndReversedOrders) {
  const Shape shape{.Items = 130, .PerCategory = 13};
  std::string forward, backward;
  for (int item = 1; item <= 130; ++item) {
    forward += std::to_string(item) + " ";
    backward = std::to_string(item) + " " + backward;
  }
  const Subject subject(shape, forward + "| " + backward, forward);
  Check(subject, {{"MRR(Test 1)", "1"},
                  {"CategoryCRP(Test 2)", "1"},
                  {"TemporalFactor(Test 1)", "1"},
                  {"TemporalFactor(Test 2)", "1"},
                  {"LagCrp(Test 1 Lag 1)", "1"},
                  {"LagCrp(Test 2 Lag -1)", "1"},
                  {"PairsRepeated(Tests 1 and 2)", "129"}});
  EXPECT_DOUBLE_EQ(subject.Scores.Pairs[2].ForwardItr.Value, -129.0 / 130);
}

}  // namespace
}  // namespace zova::testing
