// SPDX-License-Identifier: GPL-3.0-or-later

#include "scoring/MinuteRange.h"
#include "scoring/ScoreSubject.h"

namespace zova {

namespace {

// Twice the distance from the midpoint (highest rating + 1) / 2, so that no fraction is needed.
int SideOfMidpoint(int rating, const ProjectParameters& project) noexcept {
  return 2 * rating - (project.MaxRating + 1);
}

void CountGain(const Recall& gained, int test, bool rated, const ProjectParameters& project, ItemScores& scores) {
  ++scores.Gains[test];
  if (project.MinutesRecorded == 1) {
    ++scores.GainsByMin.At(MinuteInRange(gained, test, project), test);
  }
  if (!rated) return;
  const int side = SideOfMidpoint(gained.Rating, project);
  if (side < 0) ++scores.GainsBelowMid[test];
  if (side > 0) ++scores.GainsAboveMid[test];
  if (side == 0) ++scores.GainsAtMid[test];
}

// The share of the items on both tests whose rating rose, fell or stayed; nothing when either test is not rated.
RatingChange CompareRatings(const ItemTable& items, int earlier, int later, const ProjectParameters& project) {
  RatingChange change;
  if (!IsTestRated(project, earlier) || !IsTestRated(project, later)) return change;
  int up = 0;
  int down = 0;
  int same = 0;
  for (int item = 1; item <= project.ItemCount; ++item) {
    const Recall& before = items.At(item, earlier);
    const Recall& after = items.At(item, later);
    if (before.Item == 0 || after.Item == 0) continue;
    ++change.BothRecalled;
    if (before.Rating < after.Rating) ++up;
    if (before.Rating > after.Rating) ++down;
    if (before.Rating == after.Rating) ++same;
  }
  const auto share = [&](int count) -> Ratio {
    if (change.BothRecalled == 0) return {.Gap = ScoreGap::NothingInCommon};
    return CutRatio(static_cast<float>(count) / static_cast<float>(change.BothRecalled), kTwoDecimals);
  };
  change.Up = share(up);
  change.Down = share(down);
  change.Same = share(same);
  return change;
}

}  // namespace

void ScoreConsecutiveTests(const ItemTable& items, const ProjectParameters& project, ItemScores& scores) {
  const int tests = project.TestCount;
  for (int later = 2; later <= tests; ++later) {
    const int earlier = later - 1;
    const bool rated = IsTestRated(project, later);
    for (int item = 1; item <= project.ItemCount; ++item) {
      const bool before = items.At(item, earlier).Item != 0;
      const Recall& after = items.At(item, later);
      if (!before && after.Item != 0) CountGain(after, later, rated, project, scores);
      if (before && after.Item == 0) ++scores.Losses[later];
    }
    scores.Changes[later] = CompareRatings(items, earlier, later, project);
  }
  if (tests >= 3) scores.FirstToLast = CompareRatings(items, 1, tests, project);
}

void ScoreRatings(const RecallLists& lists, const ProjectParameters& project, ItemScores& scores) {
  for (int test = 1; test <= lists.TestCount(); ++test) {
    const int count = lists.RecallCount(test);
    std::int64_t sum = 0;
    for (int position = 1; position <= count; ++position) {
      const int rating = lists.At(test, position).Rating;
      const int side = SideOfMidpoint(rating, project);
      if (side < 0) ++scores.RateBelowMid[test];
      if (side > 0) ++scores.RateAboveMid[test];
      if (side == 0) ++scores.RateAtMid[test];
      sum = Checked16(sum + rating, "the sum of the ratings", test);
    }
    scores.RatingSum[test] = static_cast<std::int16_t>(sum);
    // Either case of the letter here, exactly "Y" for the columns: both forms are kept.
    const std::string& flag = project.RatedTests[static_cast<std::size_t>(test) - 1];
    if (flag != "Y" && flag != "y") continue;
    scores.RatingAvg[test] =
        count == 0 ? Ratio{.Gap = ScoreGap::EmptyList}
                   : CutRatio(static_cast<float>(scores.RatingSum[test]) / static_cast<float>(count), kTwoDecimals);
  }
}

}  // namespace zova
