// SPDX-License-Identifier: GPL-3.0-or-later
//
// The order of the families is fixed: minutes and inter-test repetition read the gains.

#include "scoring/ScoreSubject.h"
#include "project/StudyItems.h"

namespace zova {

namespace {

// Runs one family. Ignores an overflow in a family that is not shown.
template <typename Score, typename Reset>
void RunFamily(bool isShown, Score&& score, Reset&& reset) {
  try {
    score();
  } catch (const ScoringError& error) {
    if (isShown || error.Fault() != ScoringFault::Overflow) throw;
    reset();
  }
}

void CountEntries(const RecallLists& lists, ItemScores& scores) {
  for (int test = 1; test <= lists.TestCount(); ++test) scores.Net[test] = lists.RecallCount(test);
}

void ScoreLures(const RecallLists& lists, const ProjectParameters& project, ScoringArrays& scores) {
  CountEntries(scores.LureLists, scores.Lures);
  if (project.TestCount > 1) ScoreConsecutiveTests(scores.LureItems, project, scores.Lures);
  if (project.MinutesRecorded == 1) ScoreMinutes(scores.LureLists, scores.LureItems, project, scores.Lures);
  if (project.Rated == 1) ScoreRatings(scores.LureLists, project, scores.Lures);
  ScoreWhichLures(lists, project, scores.Which);
}

}  // namespace

void StripLures(const RecallLists& lists, const ProjectParameters& project, RecallLists& trueLists,
                RecallLists& lureLists) {
  trueLists.Reset(lists.TestCount(), lists.PositionCount());
  lureLists.Reset(lists.TestCount(), lists.PositionCount());
  for (int test = 1; test <= lists.TestCount(); ++test) {
    std::int16_t& trueCount = trueLists.RecallCount(test);
    std::int16_t& lureCount = lureLists.RecallCount(test);
    for (int position = 1; position <= lists.RecallCount(test); ++position) {
      const Recall& recall = lists.At(test, position);
      if (IsLure(recall.Item, project)) {
        lureLists.At(test, ++lureCount) = recall;
      } else {
        trueLists.At(test, ++trueCount) = recall;
      }
    }
  }
}

void IndexByItem(const RecallLists& lists, const ProjectParameters& project, ItemTable& items) {
  for (int test = 1; test <= lists.TestCount(); ++test) {
    for (int position = 1; position <= lists.RecallCount(test); ++position) {
      const Recall& recall = lists.At(test, position);
      if (recall.Item < 0 || recall.Item > project.ItemCount) {
        ThrowItemOutOfRange(recall.Item, position, test, project.ItemCount);
      }
      if (recall.Item > 0) items.At(recall.Item, test) = recall;  // not a blank inside the list
    }
  }
}

const RecallLists& ListsOfTrueItems(const RecallLists& lists, const ProjectParameters& project,
                                    const ScoringArrays& scores) {
  return IsFalseMemoryInForce(project) ? scores.TrueLists : lists;
}

void ScoreSubject(const RecallLists& lists, const ProjectParameters& project, const FamilySet& shown,
                  ScoringArrays& scores) {
  ResetScores(scores, project);
  const bool falseMemory = IsFalseMemoryInForce(project);
  if (falseMemory) StripLures(lists, project, scores.TrueLists, scores.LureLists);
  const RecallLists& trueLists = ListsOfTrueItems(lists, project, scores);
  IndexByItem(trueLists, project, scores.TrueItems);
  if (falseMemory) IndexByItem(scores.LureLists, project, scores.LureItems);
  CountEntries(trueLists, scores.True);

  if (project.TestCount > 1) {
    ScoreConsecutiveTests(scores.TrueItems, project, scores.True);
    CountPatterns(scores.TrueItems, falseMemory ? &scores.LureItems : nullptr, project, scores.Patterns);
    RunFamily(
        shown.Has(ScoreFamily::Itr),
        [&] { ScoreItr(trueLists, scores.True.Changes, project, scores.Itr, scores.Places); },
        [&] { ResetItrScores(scores.Itr, project); });
  }
  if (project.MinutesRecorded == 1) {
    RunFamily(
        shown.Has(ScoreFamily::Minutes), [&] { ScoreMinutes(trueLists, scores.TrueItems, project, scores.True); },
        [&] { ResetMinuteScores(scores.True, project); });
  }
  if (project.Categorized == 1) {
    RunFamily(
        shown.Has(ScoreFamily::Categories),
        [&] { ScoreCategories(trueLists, project, scores.Categories, scores.CategoryCounts); },
        [&] { ResetCategoryScores(scores.Categories, project); });
  }
  if (project.Rated == 1) {
    RunFamily(
        shown.Has(ScoreFamily::Ratings), [&] { ScoreRatings(trueLists, project, scores.True); },
        [&] { ResetRatingScores(scores.True, project); });
  }
  if (falseMemory) {
    RunFamily(
        shown.Has(ScoreFamily::Lures), [&] { ScoreLures(lists, project, scores); },
        [&] { ResetLureScores(scores, project); });
  }
}

}  // namespace zova
