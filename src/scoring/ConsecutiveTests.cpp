// SPDX-License-Identifier: GPL-3.0-or-later

#include "scoring/MinuteRange.h"
#include "scoring/ScoreSubject.h"

namespace zova {

namespace {

// Twice the distance from the midpoint (highest rating + 1) / 2, to stay in integers.
int SideOfMidpoint(int rating, const ProjectParameters& project) noexcept {
  return 2 * rating - (project.MaxRating + 1);
}

// Gains and losses from one test to the next. Adds conditions instead of branching on them, since recall and ratings
// are unpredictable branches.
void ScorePair(const ItemTable& items, int later, const ProjectParameters& project, ItemScores& scores) {
  const Recall* const before = items.Test(later - 1);
  const Recall* const after = items.Test(later);
  int gains = 0;
  int losses = 0;
  int above = 0;
  int below = 0;
  for (int i = 0; i < items.RowCount(); ++i) {
    losses += ((before[i].Item != 0) & (after[i].Item == 0)) ? 1 : 0;
    const bool gained = (before[i].Item == 0) & (after[i].Item != 0);
    if (!gained) continue;
    ++gains;
    if (project.MinutesRecorded == 1) ++scores.GainsByMin.At(MinuteInRange(after[i], later, project), later);
    const int side = SideOfMidpoint(after[i].Rating, project);
    above += side > 0 ? 1 : 0;
    below += side < 0 ? 1 : 0;
  }
  TestChange& change = scores.Changes[later];
  change.Gains = static_cast<std::int16_t>(gains);
  change.Losses = static_cast<std::int16_t>(losses);
  if (!IsTestRated(project, later)) return;
  change.GainsAboveMid = static_cast<std::int16_t>(above);
  change.GainsBelowMid = static_cast<std::int16_t>(below);
  change.GainsAtMid = static_cast<std::int16_t>(gains - above - below);
}

// The shares of the items on both tests whose rating rose, fell or stayed. No effect unless both tests are rated.
RatingChange CompareRatings(const ItemTable& items, int earlier, int later, const ProjectParameters& project) {
  RatingChange change;
  if (!IsTestRated(project, earlier) || !IsTestRated(project, later)) return change;
  const Recall* const before = items.Test(earlier);
  const Recall* const after = items.Test(later);
  int both = 0;
  int up = 0;
  int down = 0;
  for (int i = 0; i < items.RowCount(); ++i) {
    const bool onBoth = (before[i].Item != 0) & (after[i].Item != 0);
    both += onBoth ? 1 : 0;
    up += (onBoth & (before[i].Rating < after[i].Rating)) ? 1 : 0;
    down += (onBoth & (before[i].Rating > after[i].Rating)) ? 1 : 0;
  }
  change.BothRecalled = static_cast<std::int16_t>(both);
  const auto share = [&](int count) -> Ratio {
    if (both == 0) return {.Gap = ScoreGap::NothingInCommon};
    return CutRatio(static_cast<float>(count) / static_cast<float>(both), kTwoDecimals);
  };
  change.Up = share(up);
  change.Down = share(down);
  change.Same = share(both - up - down);
  return change;
}

}  // namespace

void ScoreConsecutiveTests(const ItemTable& items, const ProjectParameters& project, ItemScores& scores) {
  const int tests = project.TestCount;
  for (int later = 2; later <= tests; ++later) {
    ScorePair(items, later, project, scores);
    scores.Changes[later].Ratings = CompareRatings(items, later - 1, later, project);
  }
  if (tests >= 3) scores.FirstToLast = CompareRatings(items, 1, tests, project);
}

void ScoreRatings(const RecallLists& lists, const ProjectParameters& project, ItemScores& scores) {
  for (int test = 1; test <= lists.TestCount(); ++test) {
    const int count = lists.RecallCount(test);
    std::int64_t sum = 0;
    int below = 0;
    int above = 0;
    for (int position = 1; position <= count; ++position) {
      const int rating = lists.At(test, position).Rating;
      const int side = SideOfMidpoint(rating, project);
      below += side < 0 ? 1 : 0;
      above += side > 0 ? 1 : 0;
      sum = Checked16(sum + rating, "the sum of the ratings", test);
    }
    TestRatings& ratings = scores.Ratings[test];
    ratings.RatingSum = static_cast<std::int16_t>(sum);
    ratings.RateBelowMid = static_cast<std::int16_t>(below);
    ratings.RateAboveMid = static_cast<std::int16_t>(above);
    ratings.RateAtMid = static_cast<std::int16_t>(count - below - above);
    // Kept: either case of the flag here, exactly "Y" for the columns.
    const std::string& flag = project.RatedTests[static_cast<std::size_t>(test) - 1];
    if (flag != "Y" && flag != "y") continue;
    ratings.RatingAvg = count == 0
                            ? Ratio{.Gap = ScoreGap::EmptyList}
                            : CutRatio(static_cast<float>(ratings.RatingSum) / static_cast<float>(count), kTwoDecimals);
  }
}

}  // namespace zova
