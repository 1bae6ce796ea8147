// SPDX-License-Identifier: GPL-3.0-or-later

#include "scoring/ScoringArrays.h"

namespace zova {

namespace {

int MinuteRows(const ProjectParameters& project) { return project.MinutesRecorded == 1 ? project.MaxMinutes : 0; }

void ResetGains(ItemScores& scores, const ProjectParameters& project) {
  const int tests = project.TestCount;
  scores.Net.Reset(tests);
  scores.Gains.Reset(tests);
  scores.Losses.Reset(tests);
  scores.GainsByMin.Reset(MinuteRows(project), tests);
  scores.GainsAboveMid.Reset(tests);
  scores.GainsBelowMid.Reset(tests);
  scores.GainsAtMid.Reset(tests);
  scores.Changes.Reset(tests);
  scores.FirstToLast = {};
}

void ResetItemScores(ItemScores& scores, const ProjectParameters& project) {
  ResetGains(scores, project);
  ResetMinuteScores(scores, project);
  ResetRatingScores(scores, project);
}

}  // namespace

void ResetMinuteScores(ItemScores& scores, const ProjectParameters& project) {
  scores.RecallByMin.Reset(MinuteRows(project), project.TestCount);
  scores.CumulativeRecall.assign(
      static_cast<std::size_t>(MinuteRows(project)) * static_cast<std::size_t>(project.TestCount), 0);
}

void ResetRatingScores(ItemScores& scores, const ProjectParameters& project) {
  const int tests = project.TestCount;
  scores.RateAboveMid.Reset(tests);
  scores.RateBelowMid.Reset(tests);
  scores.RateAtMid.Reset(tests);
  scores.RatingSum.Reset(tests);
  scores.RatingAvg.Reset(tests);
}

void ResetCategoryScores(CategoryScores& scores, const ProjectParameters& project) {
  const int tests = project.TestCount;
  scores.CatsUsed.Reset(tests);
  scores.CatsByMin.Reset(MinuteRows(project), tests);
  scores.CatRepeats.Reset(tests);
  scores.SumSquares.Reset(tests);
  scores.MaxRepeats.Reset(tests);
  scores.ExpectedRepeats.Reset(tests);
  scores.ArcScore.Reset(tests);
  scores.ItemsPerCat.Reset(tests);
  scores.AnyArcFailed = false;
}

void ResetItrScores(ItrScores& scores, const ProjectParameters& project) {
  const int tests = project.TestCount;
  scores.ItrObserved.Reset(tests);
  scores.ItrCommon.Reset(tests);
  scores.ItrExpected.Reset(tests);
  scores.BiItr.Reset(tests);
  scores.AnyItrFailed = false;
}

void ResetLureScores(ScoringArrays& scores, const ProjectParameters& project) {
  if (!IsFalseMemoryInForce(project)) return;
  ResetItemScores(scores.Lures, project);
  scores.Which.LureRecalled.Reset(project.CategoryCount, project.TestCount);
  scores.Which.ItemsPreLure.Reset(project.TestCount);
  scores.Which.ItemsPostLure.Reset(project.TestCount);
}

void ResetScores(ScoringArrays& scores, const ProjectParameters& project) {
  ResetItemScores(scores.True, project);
  ResetCategoryScores(scores.Categories, project);
  ResetItrScores(scores.Itr, project);
  ResetLureScores(scores, project);
  scores.TrueItems.Reset(project.ItemCount, project.TestCount);
  const bool lures = IsFalseMemoryInForce(project);
  if (lures) scores.LureItems.Reset(project.ItemCount, project.TestCount);
  const std::size_t patterns = project.TestCount > 1 ? std::size_t{1} << static_cast<unsigned>(project.TestCount) : 0;
  scores.Patterns.ItemsWithPattern.assign(patterns, 0);
  scores.Patterns.LuresWithPattern.assign(lures ? patterns : 0, 0);
}

}  // namespace zova
