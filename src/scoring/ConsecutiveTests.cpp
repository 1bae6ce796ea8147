// SPDX-License-Identifier: GPL-3.0-or-later

#include "scoring/MinuteRange.h"
#include "scoring/ScoreSubject.h"

namespace zova {

namespace {

// Twice the distance from the midpoint (highest rating + 1) / 2, so that no fraction is needed.
int SideOfMidpoint(int rating, const ProjectParameters& project) noexcept {
  return 2 * rating - (project.MaxRating + 1);
}

// Added, not branched on: recall and ratings cannot be guessed.
void AddIf(bool condition, std::int16_t& count) noexcept {
  count = static_cast<std::int16_t>(count + (condition ? 1 : 0));
}

void CountGain(const Recall& gained, int test, bool rated, const ProjectParameters& project, ItemScores& scores) {
  ++scores.Gains[test];
  if (project.MinutesRecorded == 1) {
    ++scores.GainsByMin.At(MinuteInRange(gained, test, project), test);
  }
  if (!rated) return;
  const int side = SideOfMidpoint(gained.Rating, project);
  AddIf(side < 0, scores.GainsBelowMid[test]);
  AddIf(side > 0, scores.GainsAboveMid[test]);
  AddIf(side == 0, scores.GainsAtMid[test]);
}

// The share of the items on both tests whose rating rose, fell or stayed; nothing when either test is not rated.
RatingChange CompareRatings(const ItemTable& items, int earlier, int later, const ProjectParameters& project) {
  RatingChange change;
  if (!IsTestRated(project, earlier) || !IsTestRated(project, later)) return change;
  int both = 0;
  int up = 0;
  int down = 0;
  for (int item = 1; item <= project.ItemCount; ++item) {
    const Recall& before = items.At(item, earlier);
    const Recall& after = items.At(item, later);
    const bool onBoth = (before.Item != 0) & (after.Item != 0);
    both += onBoth ? 1 : 0;
    up += (onBoth & (before.Rating < after.Rating)) ? 1 : 0;
    down += (onBoth & (before.Rating > after.Rating)) ? 1 : 0;
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
    const int earlier = later - 1;
    const bool rated = IsTestRated(project, later);
    int losses = 0;
    for (int item = 1; item <= project.ItemCount; ++item) {
      const bool before = items.At(item, earlier).Item != 0;
      const Recall& after = items.At(item, later);
      losses += (before & (after.Item == 0)) ? 1 : 0;
      if (!before & (after.Item != 0)) CountGain(after, later, rated, project, scores);
    }
    scores.Losses[later] = static_cast<std::int16_t>(losses);
    scores.Changes[later] = CompareRatings(items, earlier, later, project);
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
    scores.RatingSum[test] = static_cast<std::int16_t>(sum);
    scores.RateBelowMid[test] = static_cast<std::int16_t>(below);
    scores.RateAboveMid[test] = static_cast<std::int16_t>(above);
    scores.RateAtMid[test] = static_cast<std::int16_t>(count - below - above);
    // Either case of the letter here, exactly "Y" for the columns: both forms are kept.
    const std::string& flag = project.RatedTests[static_cast<std::size_t>(test) - 1];
    if (flag != "Y" && flag != "y") continue;
    scores.RatingAvg[test] =
        count == 0 ? Ratio{.Gap = ScoreGap::EmptyList}
                   : CutRatio(static_cast<float>(scores.RatingSum[test]) / static_cast<float>(count), kTwoDecimals);
  }
}

}  // namespace zova
