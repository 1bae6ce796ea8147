// SPDX-License-Identifier: GPL-3.0-or-later
//
// Running minutes number the minutes of all tests consecutively: minute m of test t is (t-1)*M + m. The cumulative
// curve adds every entry of test 1, repeats included; the gains of test 2; and for each later test the items on neither
// test 1 nor test 2. Kept: from test 4 on, an item first recalled on test 3 counts as new each time.

#include "scoring/MinuteRange.h"
#include "scoring/ScoreSubject.h"

namespace zova {

namespace {

std::int16_t Added(std::int16_t total, std::int16_t count, int test) {
  return Checked16(std::int64_t{total} + count, "cumulative recall", test);
}

// For a test from the third on, adds the new items of each minute to `cumulative` at the test's running minutes.
void CountNewByMinute(const ItemTable& items, int test, const ProjectParameters& project,
                      std::vector<std::int16_t>& cumulative) {
  const std::size_t offset = static_cast<std::size_t>(test - 1) * static_cast<std::size_t>(project.MaxMinutes);
  const Recall* const first = items.Test(1);
  const Recall* const second = items.Test(2);
  const Recall* const now = items.Test(test);
  for (int i = 0; i < items.RowCount(); ++i) {
    const bool isNew = (now[i].Item != 0) & (first[i].Item == 0) & (second[i].Item == 0);
    if (isNew) ++cumulative[offset + static_cast<std::size_t>(MinuteInRange(now[i], test, project)) - 1];
  }
}

}  // namespace

void ScoreMinutes(const RecallLists& lists, const ItemTable& items, const ProjectParameters& project,
                  ItemScores& scores) {
  for (int test = 1; test <= lists.TestCount(); ++test) {
    for (int position = 1; position <= lists.RecallCount(test); ++position) {
      ++scores.RecallByMin.At(MinuteInRange(lists.At(test, position), test, project), test);
    }
  }
  std::vector<std::int16_t>& cumulative = scores.CumulativeRecall;
  std::size_t running = 0;
  std::int16_t total = 0;
  for (int test = 1; test <= project.TestCount; ++test) {
    if (test >= 3) CountNewByMinute(items, test, project, cumulative);
    for (int minute = 1; minute <= project.MaxMinutes; ++minute, ++running) {
      std::int16_t count = cumulative[running];
      if (test == 1) count = scores.RecallByMin.At(minute, 1);
      if (test == 2) count = scores.GainsByMin.At(minute, 2);
      total = Added(total, count, test);
      cumulative[running] = total;
    }
  }
}

}  // namespace zova
