// SPDX-License-Identifier: GPL-3.0-or-later

#include <algorithm>
#include <numeric>
#include <random>

#include "scoring/Examples.h"

namespace zova::testing {
namespace {

// Lists, and the columns of `boxes` that they make in a project of this shape.
void Check(std::initializer_list<Measure> boxes, const Shape& shape,
           std::initializer_list<std::pair<std::string, const char*>> examples) {
  const ProjectParameters project = MakeProject(shape);
  for (const auto& [lists, expected] : examples) {
    const ScoringArrays scores = Scored(project, lists);
    std::string text = ScoreText::Of(project, scores, boxes);
    if (*boxes.begin() == Measure::Cat && scores.Categories.AnyArcFailed) text += ", failed";
    if (*boxes.begin() == Measure::Bi && scores.Itr.AnyItrFailed) text += ", failed";
    EXPECT_EQ(text, expected) << lists;
  }
}

TEST(Scores, NetLossesGains) {
  Check({Measure::Basic}, {.Tests = 1}, {{"3 1 2", "Net 3"}});
  Check({Measure::Basic}, {},
        {{"5 5 1 | 1 6 6", "Net 3 3, Losses 1, Gains 1"},
         {"1 0 2 | 2", "Net 2 1, Losses 1, Gains 1"}});  // a blank takes the last item's place
  Check({Measure::Basic}, {.Tests = 3},
        {{"1 2 | | 3", "Net 2 0 1, Losses 2 0, Gains 0 1"}, {"1 | 2 | 1", "Net 1 1 1, Losses 1 1, Gains 1 1"}});
  Check({Measure::Basic}, {.PerCategory = 4, .Lures = true},
        {{"3 4 5 8 9 | 3 5 9", "Net 3 3, Losses 0, Gains 0"},
         {"8 4 0 3 5 | 4 0 1 8", "Net 2 2, Losses 1, Gains 1"}});  // two lures in a row; a lure behind the list
  Check({Measure::Basic}, {.PerCategory = 1, .Lures = true}, {{"1 2 | 2", "Net 2 1, Losses 1, Gains 0"}});
}

TEST(Scores, Minutes) {
  const auto boxes = {Measure::MinNet, Measure::MinCum, Measure::MinGains};
  Check(boxes, {.Tests = 1, .Minutes = 3},
        {{"1/1 2/1 3/3", "RecallByMin 2 0 1, CumulativeRecall 2 2 3"},
         {"1/1 1/2", "RecallByMin 1 1 0, CumulativeRecall 1 2 2"}});
  Check(boxes, {.Minutes = 2},
        {{"1/1 | 1/1 2/1 2/2", "RecallByMin 1 0 2 1, CumulativeRecall 1 1 1 2, GainsByMin 0 1"}});
  // from test 3 on, what tests 1 and 2 lack is new each time
  Check(boxes, {.Tests = 4, .Minutes = 2},
        {{"1/2 | 2/1 | 7/2 1/1 2/1 | 7/1 1/2",
          "RecallByMin 0 1 1 0 2 1 1 1, CumulativeRecall 0 1 2 2 2 3 4 4, GainsByMin 1 0 1 1 0 0"}});
}

TEST(Scores, Ratings) {
  Check({Measure::Rat}, {.MaxRating = 7, .Rated = "YY"},
        {{"1/0/2 2/0/2 3/0/5 | 3/0/5 2/0/3 1/0/7 4/0/4 5/0/5 6/0/3",
          "GainsAboveMedian 1, GainsBelowMedian 1, GainsAtMedian 1, RatingAvg 3 4.5, RateAboveMedian 1, "
          "RateBelowMedian 2, RateAtMedian 0, RateAboveMedian 3, RateBelowMedian 2, RateAtMedian 1, "
          "Up .66, Down 0, Same .33"}});
  // nothing stands at 3.5; of a repeated gain the later rating counts; the unrated test between tells of gains only
  Check({Measure::Rat}, {.Tests = 3, .MaxRating = 6, .Rated = "YyY"},
        {{"9/0/5 9/0/5 8/0/4 | | 1/0/3 2/0/4 3/0/1 3/0/6 9/0/5",
          "GainsAboveMedian 3, GainsBelowMedian 1, GainsAtMedian 0, RatingAvg 4.66 3.8, RateAboveMedian 3, "
          "RateBelowMedian 0, RateAtMedian 0, RateAboveMedian 3, RateBelowMedian 2, RateAtMedian 0, Up 0, Down 0, Same "
          "1"}});
  Check({Measure::Rat}, {.MaxRating = 6, .Rated = "YY"},
        {{"1/0/6",
          "GainsAboveMedian 0, GainsBelowMedian 0, GainsAtMedian 0, RatingAvg 6 0?empty, RateAboveMedian 1, "
          "RateBelowMedian 0, RateAtMedian 0, RateAboveMedian 0, RateBelowMedian 0, RateAtMedian 0, "
          "Up 0?common, Down 0?common, Same 0?common"}});
}

TEST(Scores, Categories) {
  const auto boxes = {Measure::Cat, Measure::MinCat};
  Check(boxes, {.Tests = 1, .PerCategory = 4},
        {{"1 2 5 6 3", "ArcScore .285, #OfCategoriesUsed 2, AvgItemsPerCat 2.5"},
         {"1 5 2 6 3", "ArcScore -1.143, #OfCategoriesUsed 2, AvgItemsPerCat 2.5"},
         {"1 5", "ArcScore 0?few, #OfCategoriesUsed 2, AvgItemsPerCat 1, failed"},
         {"1 2 3", "ArcScore 0?few, #OfCategoriesUsed 1, AvgItemsPerCat 3, failed"},
         {"", "ArcScore 0?few, #OfCategoriesUsed 0, AvgItemsPerCat 0?empty, failed"},
         {"1 5 9", "ArcScore 0?room, #OfCategoriesUsed 3, AvgItemsPerCat 1"},
         {"1 1 5", "ArcScore 1, #OfCategoriesUsed 2, AvgItemsPerCat 1.5"},
         {"1 0 2 5 6", "ArcScore -.143, #OfCategoriesUsed 2, AvgItemsPerCat 2"}});
  // items behind the last category belong to none
  Check(boxes, {.Tests = 1, .Items = 10, .PerCategory = 4},
        {{"9 10 1 5 2 6", "ArcScore -.091, #OfCategoriesUsed 2, AvgItemsPerCat 3"}});
  Check(boxes, {.Tests = 1, .PerCategory = 4, .Minutes = 3, .Lures = true},
        {{"1/2 5/1 4/1 8/1 2/3 6/3 3/3", "ArcScore -1.143, #OfCategoriesUsed 2, #OfCats 1 1 0, AvgItemsPerCat 2.5"}});
}

TEST(Scores, BiDirectionalItr) {
  Check({Measure::Bi}, {.Items = 128},
        {{"1 2 3 4 | 2 1 4 3", "Bi-ITR .5"},
         {"1 2 3 | 1 3 2", "Bi-ITR -.334"},
         {"5 7 5 5 | 5 5", "Bi-ITR 2.5"},
         {"1 2 | 1 2 1", "Bi-ITR 0"},
         {"1 0 2 | 3 1", "Bi-ITR 1"},   // a blank meets the end of the later list,
         {"1 9 | 0 1 9", "Bi-ITR -1"},  // and nothing meets what stands behind it
         {Sequence(128) + "| " + Sequence(128), "Bi-ITR 125.015"}});
  Check({Measure::Bi}, {.Tests = 3, .Items = 2},
        {{"1 2 | | 1", "Bi-ITR 0?empty 0?empty, failed"}, {"1 | 1 | 2", "Bi-ITR 0 0"}});
}

TEST(Scores, Patterns) {
  const auto boxes = {Measure::IP, Measure::FIP};
  Check(boxes, {.Items = 10}, {{"1 2 3 3 4 | 5 3 2 1", "ItemsWithPattern 5 1 1 3"}});
  Check(boxes, {.Tests = 3, .Items = 2}, {{"1 | 1 | 2", "ItemsWithPattern 0 1 0 0 0 0 1 0"}});
  Check(boxes, {.Items = 8, .PerCategory = 4, .Lures = true},
        {{"4 1 | 8 4", "ItemsWithPattern 5 0 1 0, LuresWithPattern 0 1 0 1"}});
}

TEST(Scores, Lures) {
  // What stands before and after a lure counts from its first entry, repeats of items included.
  Check({Measure::FBasic, Measure::MinNet, Measure::MinCum, Measure::MinGains, Measure::FWhich, Measure::FPos},
        {.PerCategory = 4, .Minutes = 2, .Lures = true},
        {{"1/1 5/1 1/1 4/1 2/1 8/2 4/2 2/2 3/2 | 8/1 12/2 12/2 9/2",
          "RecallByMin 4 2 0 1, CumulativeRecall 4 6 6 7, GainsByMin 0 1, FalseNet 3 3, LureGain 1, LureLoss 1, "
          "FalseByMin 1 2 1 2, FalseCumulative 1 3 3 4, LureGainByMin 0 1, Lure 1 1 0 0 1 1, ItemsPreLure 3, "
          "ItemsPostLure 3, ItemsPreLure 0, ItemsPostLure 1"}});
  const ProjectParameters rated = MakeProject({.PerCategory = 4, .MaxRating = 5, .Rated = "YY", .Lures = true});
  const std::string text =
      ScoreText::Of(rated, Scored(rated, "4/0/2 8/0/5 4/0/3 | 8/0/2 12/0/4 12/0/5"), {Measure::Rat});
  EXPECT_EQ(
      text.substr(text.find(", FalseRateAvg")),
      ", FalseRateAvg 3.33 3.66, FalseAboveMid 1, FalseBelowMid 1, FalseAtMid 1, FalseAboveMid 2, FalseBelowMid 1, "
      "FalseAtMid 0, FalseGainsAboveMid 1, FalseGainsBelowMid 0, FalseGainsAtMid 0, FalseUp 0, FalseDown 1, "
      "FalseSame 0");
}

TEST(Scores, KeepTheUncutValue) {
  const ProjectParameters project = MakeProject({.Tests = 3, .PerCategory = 4, .MaxRating = 7, .Rated = "YYy"});
  const ScoringArrays scores =
      Scored(project, "1/0/5 2/0/7 3/0/6 5/0/4 9/0/1 6/0/1 | 1/0/6 3/0/1 2/0/6 | 1/0/7 1/0/7 2/0/3");
  EXPECT_NEAR(scores.Categories.ArcScore[1].Uncut, 0.4, 1e-6);
  EXPECT_NEAR(scores.True.RatingAvg[3].Uncut, 17.0 / 3, 1e-6) << "a small \"y\" will do for an average";
  EXPECT_NEAR(scores.True.Changes[2].Down.Uncut, 2.0 / 3, 1e-6);
  EXPECT_NEAR(scores.Itr.BiItr[2].Uncut, 1 - 12.0 / 18, 1e-6);
}

TEST(Scores, ErrorsNameWhatAndWhere) {
  const auto expect = [](const Shape& shape, const std::string& lists, RunFault fault, const std::string& what) {
    try {
      Scored(MakeProject(shape), lists);
      ADD_FAILURE() << "no error: " << what;
    } catch (const RunError& error) {
      EXPECT_EQ(error.Fault(), fault) << error.what();
      EXPECT_NE(std::string(error.what()).find(what), std::string::npos) << error.what();
    }
  };
  constexpr RunFault kRange = RunFault::SubscriptOutOfRange;
  expect({}, "1 | 2 13", kRange, "item 13 at position 2 of test 2");
  expect({}, "1 -1 2", kRange, "item -1 at position 2 of test 1");
  expect({.PerCategory = 4, .Lures = true}, "16", kRange, "item 16");
  expect({.PerCategory = 4, .Minutes = 3, .Lures = true}, "4/9", kRange, "minute 9 of item 4 on test 1");
  expect({.Minutes = 3}, "1/3 2/4", kRange, "minute 4 of item 2 on test 1");
  expect({.Minutes = 3}, "1/3 | 2/0", kRange, "minute 0 of item 2 on test 2");
  expect({.Minutes = 3}, "1/3 0 2/1", kRange, "minute 0");  // a blank has none
  constexpr RunFault kOverflow = RunFault::Overflow;
  expect({.Items = 40, .MaxRating = 1000}, "| " + Sequence(33, 1000), kOverflow, "test 2 is 33000");
  expect({.Items = 182, .PerCategory = 182}, Sequence(182), kOverflow, "test 1 is 33124");
  expect({.Items = 129}, Sequence(129) + "| " + Sequence(129), kOverflow, "test 2 is 33024");
  expect({.Items = 400}, Sequence(182) + "| " + Sequence(181, 0, 200), kOverflow, "test 2 is 32942");
}

TEST(Scores, AnOverflowThatNobodySeesLeavesZerosAndNamesNobody) {
  const ProjectParameters project =
      MakeProject({.Tests = 3, .Items = 364, .PerCategory = 182, .MaxRating = 1000, .Rated = "YYY"});
  const std::string list = Sequence(182, 1000);  // test 1 is empty: without the overflow, ARC and ITR would fail there
  ScoringArrays scores;
  FamilySet basic;
  basic.Add(ScoreFamily::Basic);
  ScoreSubject(MakeLists(project, "| " + list + "| 183 " + list), project, basic, scores);
  EXPECT_EQ(ScoreText::Of(project, scores, {Measure::Basic, Measure::Bi, Measure::Cat}),
            "Net 0 182 183, Losses 0 0, Gains 182 1, ArcScore 0?off 0?off 0?off, Bi-ITR 0?off 0?off, "
            "#OfCategoriesUsed 0 0 0, AvgItemsPerCat 0?off 0?off 0?off");
  EXPECT_NE(ScoreText::Of(project, scores, {Measure::Rat}).find("RatingAvg 0?off 0?off 0?off, RateAboveMedian 0, "),
            std::string::npos);
  EXPECT_FALSE(scores.Categories.AnyArcFailed || scores.Itr.AnyItrFailed);
}

int Below(std::mt19937& random, int limit) { return static_cast<int>(random() % static_cast<unsigned>(limit)); }

TEST(Scores, PropertiesOfRandomLists) {
  std::mt19937 random(20);
  for (int round = 0; round < 500; ++round) {
    const bool blanks = round % 4 < 2;
    const bool lures = round % 2 == 1;
    const ProjectParameters project = MakeProject({.Items = 14, .PerCategory = 7, .Lures = lures});
    std::string text;
    for (const char* end : {"| ", ""}) {  // few different items, so that pairs come back
      for (int i = Below(random, 15); i > 0; --i) text += std::to_string(Below(random, 7) + (blanks ? 0 : 1)) + " ";
      text += end;
    }
    RecallLists lists = MakeLists(project, text);
    const ScoringArrays scores = Scored(project, lists);
    const std::vector<std::int16_t>& patterns = scores.Patterns.ItemsWithPattern;
    EXPECT_EQ(std::accumulate(patterns.begin(), patterns.end(), 0), lures ? 12 : 14) << "each item has one pattern";

    const RecallLists& scored = ListsOfTrueItems(lists, project, scores);
    int observed = 0;  // pair by pair, as the measure is defined
    for (int j = 1; j < scored.RecallCount(1); ++j) {
      const int a = scored.At(1, j).Item;
      const int b = scored.At(1, j + 1).Item;
      for (int k = 1; k <= scored.RecallCount(2); ++k) {
        const int c = scored.At(2, k).Item;
        const int d = k < scored.RecallCount(2) ? scored.At(2, k + 1).Item : 0;
        if ((c == a || c == b) && (d == a || d == b)) ++observed;
      }
    }
    ASSERT_EQ(scores.Itr.ItrObserved[2], observed) << text;

    if (blanks) continue;
    for (int test = 1; test <= 2; ++test) std::reverse(lists.Test(test), lists.Test(test) + lists.RecallCount(test));
    EXPECT_EQ(Scored(project, lists).Itr.BiItr[2], scores.Itr.BiItr[2]) << "backwards: " << text;
  }
}

TEST(Scores, PerfectClusteringIsOne) {
  std::mt19937 random(4);
  for (int round = 0; round < 100; ++round) {
    std::string list;
    for (int block = 0; block < 2 + round % 5; ++block) {
      list += Sequence(2 + Below(random, 9), 0, (round + block) % 6 * 10 + 1);
    }
    const ProjectParameters project = MakeProject({.Tests = 1, .Items = 60, .PerCategory = 10});
    EXPECT_EQ(Scored(project, list).Categories.ArcScore[1].Cut, 1.0F) << list;
  }
}

}  // namespace
}  // namespace zova::testing
