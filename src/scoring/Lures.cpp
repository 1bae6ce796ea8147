// SPDX-License-Identifier: GPL-3.0-or-later

#include "project/StudyItems.h"
#include "scoring/ScoreSubject.h"

namespace zova {

namespace {

// The entries of one category so far.
struct CategoryWalk {
  std::int16_t Entries = 0;     // without lures
  std::int16_t BeforeLure = 0;  // of these, before the lure's first entry
};

void ScoreTest(const RecallLists& lists, int test, const ProjectParameters& project, LureScores& scores,
               std::vector<CategoryWalk>& walks) {
  walks.assign(static_cast<std::size_t>(project.CategoryCount), {});
  for (int position = 1; position <= lists.RecallCount(test); ++position) {
    const int item = lists.At(test, position).Item;
    if (item < 1) continue;
    const int category = (item - 1) / project.ItemsPerCategory + 1;
    if (category > project.CategoryCount) continue;
    CategoryWalk& walk = walks[static_cast<std::size_t>(category) - 1];
    if (!IsLure(item, project)) {
      ++walk.Entries;
    } else if (scores.LureRecalled.At(category, test) == 0) {
      scores.LureRecalled.At(category, test) = 1;
      walk.BeforeLure = walk.Entries;
    }
  }
  TestLures& found = scores.Tests[test];
  for (int lure = 1; lure <= project.CategoryCount; ++lure) {
    if (scores.LureRecalled.At(lure, test) == 0) continue;
    const CategoryWalk& walk = walks[static_cast<std::size_t>(lure) - 1];
    found.ItemsPreLure = static_cast<std::int16_t>(found.ItemsPreLure + walk.BeforeLure);
    found.ItemsPostLure = static_cast<std::int16_t>(found.ItemsPostLure + walk.Entries - walk.BeforeLure);
  }
}

}  // namespace

void ScoreWhichLures(const RecallLists& lists, const ProjectParameters& project, LureScores& scores) {
  std::vector<CategoryWalk> walks;
  for (int test = 1; test <= lists.TestCount(); ++test) ScoreTest(lists, test, project, scores, walks);
}

}  // namespace zova
