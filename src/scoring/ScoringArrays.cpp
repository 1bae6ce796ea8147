// SPDX-License-Identifier: GPL-3.0-or-later

#include "scoring/ScoringArrays.h"

namespace zova {

namespace {

int MinuteRows(const ProjectParameters& project) { return project.MinutesRecorded == 1 ? project.MaxMinutes : 0; }

void ResetGains(ItemScores& scores, const ProjectParameters& project) {
  scores.Net.Reset(project.TestCount);
  scores.Changes.Reset(project.TestCount);
  scores.FirstToLast = {};
  scores.GainsByMin.Reset(MinuteRows(project), project.TestCount);
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
  scores.Ratings.Reset(project.TestCount);
}

void ResetCategoryScores(CategoryScores& scores, const ProjectParameters& project) {
  scores.Tests.Reset(project.TestCount);
  scores.CatsByMin.Reset(MinuteRows(project), project.TestCount);
  scores.AnyArcFailed = false;
}

void ResetItrScores(ItrScores& scores, const ProjectParameters& project) {
  scores.Pairs.Reset(project.TestCount);
  scores.AnyItrFailed = false;
}

void ResetLureScores(ScoringArrays& scores, const ProjectParameters& project) {
  if (!IsFalseMemoryInForce(project)) return;
  ResetItemScores(scores.Lures, project);
  scores.Which.LureRecalled.Reset(project.CategoryCount, project.TestCount);
  scores.Which.Tests.Reset(project.TestCount);
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
