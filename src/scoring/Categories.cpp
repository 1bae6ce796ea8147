// SPDX-License-Identifier: GPL-3.0-or-later
//
// ARC = (R - E) / (Max - E), where R counts neighbours of one category, Max = N - k with k categories represented, and
// E = (sum of n_c squared) / N - 1 is what chance gives.

#include "scoring/MinuteRange.h"
#include "scoring/ScoreSubject.h"

namespace zova {

namespace {

void CountCategories(const RecallLists& lists, int test, const ProjectParameters& project, CategoryScores& scores,
                     std::vector<std::int16_t>& counts) {
  int previous = 0;
  std::int64_t sumSquares = 0;
  for (int position = 1; position <= lists.RecallCount(test); ++position) {
    const Recall& recall = lists.At(test, position);
    const int category = CategoryOf(recall.Item, project);
    if (category != 0) {
      std::int16_t& count = counts[static_cast<std::size_t>(category)];
      if (count == 0) {
        ++scores.CatsUsed[test];
        if (project.MinutesRecorded == 1) ++scores.CatsByMin.At(MinuteInRange(recall, test, project), test);
      }
      // (n+1)^2 - n^2, so that one walk over the list does, however many categories there are
      sumSquares += 2 * std::int64_t{count} + 1;
      ++count;
      if (category == previous) ++scores.CatRepeats[test];
    }
    previous = category;
  }
  scores.SumSquares[test] = Checked16(sumSquares, "the sum of the squared category counts", test);
}

void ComputeArc(int recallCount, int test, CategoryScores& scores) {
  scores.MaxRepeats[test] = static_cast<std::int16_t>(recallCount - scores.CatsUsed[test]);
  if (scores.CatsUsed[test] < 2 || recallCount < 3) {
    scores.ArcScore[test] = {.Gap = ScoreGap::TooFewRecalls};
    scores.AnyArcFailed = true;
    return;
  }
  const float expected = static_cast<float>(scores.SumSquares[test]) / static_cast<float>(recallCount) - 1.0F;
  scores.ExpectedRepeats[test] = expected;
  const float room = static_cast<float>(scores.MaxRepeats[test]) - expected;
  if (room == 0.0F) {
    scores.ArcScore[test] = {.Gap = ScoreGap::NoRoom};
    return;
  }
  scores.ArcScore[test] = CutRatio((static_cast<float>(scores.CatRepeats[test]) - expected) / room, kThreeDecimals);
}

}  // namespace

void ScoreCategories(const RecallLists& lists, const ProjectParameters& project, CategoryScores& scores,
                     std::vector<std::int16_t>& categoryCounts) {
  for (int test = 1; test <= lists.TestCount(); ++test) {
    const int recallCount = lists.RecallCount(test);
    categoryCounts.assign(static_cast<std::size_t>(project.CategoryCount) + 1, 0);
    CountCategories(lists, test, project, scores, categoryCounts);
    ComputeArc(recallCount, test, scores);
    scores.ItemsPerCat[test] =
        scores.CatsUsed[test] == 0
            ? Ratio{.Gap = ScoreGap::EmptyList}
            : CutRatio(static_cast<float>(recallCount) / static_cast<float>(scores.CatsUsed[test]), kTwoDecimals);
  }
}

}  // namespace zova
