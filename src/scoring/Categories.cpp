// SPDX-License-Identifier: GPL-3.0-or-later
//
// ARC = (R - E) / (Max - E); ScoreSubject.h defines the terms.

#include "project/StudyItems.h"
#include "scoring/MinuteRange.h"
#include "scoring/ScoreSubject.h"

namespace zova {

namespace {

void CountCategories(const RecallLists& lists, int test, const ProjectParameters& project, CategoryScores& scores,
                     std::vector<std::int16_t>& counts) {
  TestClustering& clustering = scores.Tests[test];
  int previous = 0;
  std::int64_t sumSquares = 0;
  for (int position = 1; position <= lists.RecallCount(test); ++position) {
    const Recall& recall = lists.At(test, position);
    const int category = CategoryOf(recall.Item, project);
    if (category != 0) {
      std::int16_t& count = counts[static_cast<std::size_t>(category)];
      if (count == 0) {
        ++clustering.CatsUsed;
        if (project.MinutesRecorded == 1) ++scores.CatsByMin.At(MinuteInRange(recall, test, project), test);
      }
      // (n+1)^2 - n^2: one pass over the list, however many categories there are
      sumSquares += 2 * std::int64_t{count} + 1;
      ++count;
      if (category == previous) ++clustering.CatRepeats;
    }
    previous = category;
  }
  clustering.SumSquares = Checked16(sumSquares, "the sum of the squared category counts", test);
}

// False with fewer than 2 categories or 3 recalls.
bool ComputeArc(int recallCount, TestClustering& scores) {
  scores.MaxRepeats = static_cast<std::int16_t>(recallCount - scores.CatsUsed);
  if (scores.CatsUsed < 2 || recallCount < 3) {
    scores.ArcScore = {.Gap = ScoreGap::TooFewRecalls};
    return false;
  }
  scores.ExpectedRepeats = static_cast<float>(scores.SumSquares) / static_cast<float>(recallCount) - 1.0F;
  const float room = static_cast<float>(scores.MaxRepeats) - scores.ExpectedRepeats;
  if (room == 0.0F) {
    scores.ArcScore = {.Gap = ScoreGap::NoRoom};
    return true;
  }
  scores.ArcScore = CutRatio((static_cast<float>(scores.CatRepeats) - scores.ExpectedRepeats) / room, kThreeDecimals);
  return true;
}

}  // namespace

void ScoreCategories(const RecallLists& lists, const ProjectParameters& project, CategoryScores& scores,
                     std::vector<std::int16_t>& categoryCounts) {
  for (int test = 1; test <= lists.TestCount(); ++test) {
    const int recallCount = lists.RecallCount(test);
    categoryCounts.assign(static_cast<std::size_t>(project.CategoryCount) + 1, 0);
    CountCategories(lists, test, project, scores, categoryCounts);
    TestClustering& clustering = scores.Tests[test];
    if (!ComputeArc(recallCount, clustering)) scores.AnyArcFailed = true;
    clustering.ItemsPerCat =
        clustering.CatsUsed == 0
            ? Ratio{.Gap = ScoreGap::EmptyList}
            : CutRatio(static_cast<float>(recallCount) / static_cast<float>(clustering.CatsUsed), kTwoDecimals);
  }
}

}  // namespace zova
