// SPDX-License-Identifier: GPL-3.0-or-later

#include <random>

#include "scoring/Examples.h"

namespace zova::testing {
namespace {

// Lists, and the columns of `boxes` that they make in a project of this shape.
void Check(std::initializer_list<Measure> boxes, const Shape& shape,
           std::initializer_list<std::pair<std::string, const char*>> examples) {
  const ProjectParameters project = MakeProject(shape);
  for (const auto& [lists, expected] : examples) {
    EXPECT_EQ(Columns(project, Scored(project, lists), boxes), expected) << lists;
  }
}

TEST(Scores, NetLossesGains) {
  Check({Measure::Basic}, {},
        {{"5 5 1 | 1 6 6", "Net 3 3, Losses 1, Gains 1"},
         {"1 0 2 | 2", "Net 2 1, Losses 1, Gains 1"}});  // a blank takes the last item's place
  Check({Measure::Basic}, {.Tests = 3},
        {{"1 2 | | 3", "Net 2 0 1, Losses 2 0, Gains 0 1"}, {"1 | 2 | 1", "Net 1 1 1, Losses 1 1, Gains 1 1"}});
  Check({Measure::Basic}, {.PerCategory = 4, .Lures = true},
        {{"8 4 0 3 5 | 4 0 1 8", "Net 2 2, Losses 1, Gains 1"}});  // two lures in a row; a lure after the list
}

TEST(Scores, Minutes) {
  // from test 3 on, what tests 1 and 2 lack is new each time
  Check({Measure::MinNet, Measure::MinCum, Measure::MinGains}, {.Tests = 4, .Minutes = 2},
        {{"1/2 | 2/1 | 7/2 1/1 2/1 | 7/1 1/2",
          "RecallByMin 0 1 1 0 2 1 1 1, CumulativeRecall 0 1 2 2 2 3 4 4, GainsByMin 1 0 1 1 0 0"}});
}

TEST(Scores, Ratings) {
  Check({Measure::Rat}, {.MaxRating = 7, .Rated = "YY"},
        {{"1/0/2 2/0/2 3/0/5 | 3/0/5 2/0/3 1/0/7 4/0/4 5/0/5 6/0/3",
          "GainsAboveMedian 1, GainsBelowMedian 1, GainsAtMedian 1, RatingAvg 3 4.5, RateAboveMedian 1, "
          "RateBelowMedian 2, RateAtMedian 0, RateAboveMedian 3, RateBelowMedian 2, RateAtMedian 1, "
          "Up .66, Down 0, Same .33"}});
  // no rating is 3.5; of a repeated gain the later rating counts; the unrated test between has only gains
  Check({Measure::Rat}, {.Tests = 3, .MaxRating = 6, .Rated = "YyY"},
        {{"9/0/5 9/0/5 8/0/4 | | 1/0/3 2/0/4 3/0/1 3/0/6 9/0/5",
          "GainsAboveMedian 3, GainsBelowMedian 1, GainsAtMedian 0, RatingAvg 4.66 3.8, RateAboveMedian 3, "
          "RateBelowMedian 0, RateAtMedian 0, RateAboveMedian 3, RateBelowMedian 2, RateAtMedian 0, Up 0, Down 0, Same "
          "1"}});
}

TEST(Scores, Categories) {
  const auto boxes = {Measure::Cat, Measure::MinCat};
  Check(boxes, {.Tests = 1, .PerCategory = 4},
        {{"1 5 2 6 3", "ArcScore -1.143, #OfCategoriesUsed 2, AvgItemsPerCat 2.5"},
         {"", "ArcScore 0, #OfCategoriesUsed 0, AvgItemsPerCat 0"},
         {"1 5 9", "ArcScore 0, #OfCategoriesUsed 3, AvgItemsPerCat 1"},
         {"1 1 5", "ArcScore 1, #OfCategoriesUsed 2, AvgItemsPerCat 1.5"},
         {"1 0 2 5 6", "ArcScore -.143, #OfCategoriesUsed 2, AvgItemsPerCat 2"}});
  // items beyond the last category belong to none
  Check(boxes, {.Tests = 1, .Items = 10, .PerCategory = 4},
        {{"9 10 1 5 2 6", "ArcScore -.091, #OfCategoriesUsed 2, AvgItemsPerCat 3"}});
  Check(boxes, {.Tests = 1, .PerCategory = 4, .Minutes = 3, .Lures = true},
        {{"1/2 5/1 4/1 8/1 2/3 6/3 3/3", "ArcScore -1.143, #OfCategoriesUsed 2, #OfCats 1 1 0, AvgItemsPerCat 2.5"}});
}

TEST(Scores, BiDirectionalItr) {
  Check({Measure::Bi}, {.Items = 128},
        {{"1 2 3 4 | 2 1 4 3", "Bi-ITR .5"},
         {"5 7 5 5 | 5 5", "Bi-ITR 2.5"},
         {"1 0 2 | 3 1", "Bi-ITR 1"},   // a blank meets the end of the later list,
         {"1 9 | 0 1 9", "Bi-ITR -1"},  // and nothing meets what follows it
         {Sequence(128) + "| " + Sequence(128), "Bi-ITR 125.015"}});
  Check({Measure::Bi}, {.Tests = 3}, {{"1 2 | | 1", "Bi-ITR 0 0"}, {"1 | 1 | 2", "Bi-ITR 0 0"}});
}

TEST(Scores, KeepTheUncutValueAndTheReason) {
  const ProjectParameters project =
      MakeProject({.Tests = 3, .Items = 8, .PerCategory = 4, .MaxRating = 6, .Rated = "YYN"});
  const ScoringArrays scores = Scored(project, "1/0/5 2/0/5 5/0/4 6/0/5 3/0/3 | 1/0/4 2/0/5 5/0/4 |");
  const float expected = 13.0F / 5.0F - 1.0F;
  EXPECT_EQ(scores.Categories.Tests[1].ArcScore, (Ratio{.285F, (2.0F - expected) / (3.0F - expected), ScoreGap::None}));
  EXPECT_EQ(scores.Categories.Tests[2].ArcScore.Cut, 1.0F) << "perfect clustering";
  EXPECT_EQ(scores.Categories.Tests[3].ArcScore.Gap, ScoreGap::TooFewRecalls);
  EXPECT_EQ(Scored(project, "1 5").Categories.Tests[1].ArcScore.Gap, ScoreGap::TooFewRecalls) << "two, of two";
  EXPECT_EQ(scores.Categories.Tests[3].ItemsPerCat.Gap, ScoreGap::EmptyList);
  EXPECT_EQ(scores.True.Ratings[2].RatingAvg, (Ratio{4.33F, 13.0F / 3.0F, ScoreGap::None}));
  EXPECT_EQ(scores.True.Ratings[3].RatingAvg.Gap, ScoreGap::NotScored);
  EXPECT_EQ(scores.True.Changes[2].Ratings.Down, (Ratio{.33F, 1.0F / 3.0F, ScoreGap::None}));
  EXPECT_EQ(scores.Itr.Pairs[3].BiItr.Gap, ScoreGap::EmptyList);
}

TEST(Scores, Patterns) {
  Check({Measure::IP}, {.Tests = 3, .Items = 6}, {{"1 2 3 3 | 5 3 | 3", "ItemsWithPattern 2 0 1 0 2 0 0 1"}});
  Check({Measure::IP, Measure::FIP}, {.Items = 8, .PerCategory = 4, .Lures = true},
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
  Check({Measure::Rat}, {.PerCategory = 4, .MaxRating = 5, .Rated = "YY", .Lures = true},
        {{"4/0/2 8/0/5 4/0/3 | 8/0/2 12/0/4 12/0/5",
          "GainsAboveMedian 0, GainsBelowMedian 0, GainsAtMedian 0, RatingAvg 0 0, RateAboveMedian 0, RateBelowMedian "
          "0, RateAtMedian 0, RateAboveMedian 0, RateBelowMedian 0, RateAtMedian 0, Up 0, Down 0, Same 0, FalseRateAvg "
          "3.33 3.66, FalseAboveMid 1, FalseBelowMid 1, FalseAtMid 1, FalseAboveMid 2, FalseBelowMid 1, FalseAtMid 0, "
          "FalseGainsAboveMid 1, FalseGainsBelowMid 0, FalseGainsAtMid 0, FalseUp 0, FalseDown 1, FalseSame 0"}});
}

TEST(Scores, ErrorsNameWhatAndWhere) {
  const Shape lures{.PerCategory = 4, .Minutes = 3, .Lures = true};
  const std::tuple<Shape, std::string, const char*> kCases[] = {
      {{}, "1 | 2 13", "item 13 at position 2 of test 2"},
      {{}, "1 -1 2", "item -1 at position 2 of test 1"},
      {lures, "4/9", "minute 9 of item 4 on test 1"},
      {{.Minutes = 3}, "1/3 | 2/0", "minute 0 of item 2 on test 2"},
      {{.Minutes = 3}, "1/3 0 2/1", "minute 0"},  // a blank has none
      {{.Items = 40, .MaxRating = 1000}, "| " + Sequence(33, 1000), "test 2 is 33000"},
      {{.Items = 182, .PerCategory = 182}, Sequence(182), "test 1 is 33124"},
      {{.Items = 129}, Sequence(129) + "| " + Sequence(129), "test 2 is 33024"},
      {{.Items = 400}, Sequence(182) + "| " + Sequence(181, 0, 200), "test 2 is 32942"}};
  for (const auto& [shape, lists, what] : kCases) {
    try {
      Scored(MakeProject(shape), lists);
      ADD_FAILURE() << "no error: " << what;
    } catch (const ScoringError& error) {
      EXPECT_EQ(error.Fault(), shape.Items > 12 ? ScoringFault::Overflow : ScoringFault::SubscriptOutOfRange) << what;
      EXPECT_NE(std::string(error.what()).find(what), std::string::npos) << error.what();
    }
  }
}

TEST(Scores, AnOverflowThatNobodySeesLeavesZerosAndNamesNobody) {
  const ProjectParameters project =
      MakeProject({.Tests = 3, .Items = 364, .PerCategory = 182, .MaxRating = 1000, .Rated = "YYY"});
  const std::string list = Sequence(182, 1000);  // test 1 is empty: without the overflow, ARC and ITR would fail there
  ScoringArrays scores;
  FamilySet basic;
  basic.Add(ScoreFamily::Basic);
  ScoreSubject(MakeLists(project, "| " + list + "| 183 " + list), project, basic, scores);
  EXPECT_EQ(Columns(project, scores, {Measure::Basic, Measure::Bi, Measure::Cat}),
            "Net 0 182 183, Losses 0 0, Gains 182 1, ArcScore 0 0 0, Bi-ITR 0 0, "
            "#OfCategoriesUsed 0 0 0, AvgItemsPerCat 0 0 0");
  EXPECT_EQ(scores.True.Ratings[3].RatingAvg.Gap, ScoreGap::NotScored);
  EXPECT_FALSE(scores.Categories.AnyArcFailed);
  EXPECT_FALSE(scores.Itr.AnyItrFailed);
}

TEST(Scores, ItrObservedIsWhatTheDoubleLoopFinds) {
  std::mt19937 random(20);
  for (int round = 0; round < 500; ++round) {
    const ProjectParameters project = MakeProject({.Items = 14, .PerCategory = 7, .Lures = round % 2 == 1});
    const unsigned lowest = round % 4 < 2 ? 0 : 1;  // with blanks and without
    std::string text;
    for (const char* end : {"| ", ""}) {  // few different items, so that pairs come back
      for (auto i = random() % 15; i > 0; --i) text += std::to_string(random() % 7 + lowest) + " ";
      text += end;
    }
    const ScoringArrays scores = Scored(project, text);
    const RecallLists lists = MakeLists(project, text);
    const RecallLists& scored = ListsOfTrueItems(lists, project, scores);
    int observed = 0;
    for (int j = 1; j < scored.RecallCount(1); ++j) {
      const int a = scored.At(1, j).Item;
      const int b = scored.At(1, j + 1).Item;
      for (int k = 1; k <= scored.RecallCount(2); ++k) {
        const int c = scored.At(2, k).Item;
        const int d = k < scored.RecallCount(2) ? scored.At(2, k + 1).Item : 0;
        if ((c == a || c == b) && (d == a || d == b)) ++observed;
      }
    }
    ASSERT_EQ(scores.Itr.Pairs[2].ItrObserved, observed) << text;
  }
}

}  // namespace
}  // namespace zova::testing
