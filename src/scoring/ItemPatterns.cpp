// SPDX-License-Identifier: GPL-3.0-or-later
//
// A pattern's number in binary, test 1 first: 1 if the item was recalled ("C"), 0 if not ("N").

#include "scoring/ScoreSubject.h"

#include "project/StudyItems.h"

namespace zova {

void CountPatterns(const ItemTable& items, const ItemTable* lures, const ProjectParameters& project,
                   PatternCounts& patterns) {
  for (int item = 1; item <= project.ItemCount; ++item) {
    const bool isLure = lures != nullptr && IsLure(item, project);
    const ItemTable& table = isLure ? *lures : items;
    std::size_t pattern = 0;
    for (int test = 1; test <= project.TestCount; ++test) {
      pattern = pattern * 2 + (table.At(item, test).Item != 0 ? 1U : 0U);
    }
    ++(isLure ? patterns.LuresWithPattern : patterns.ItemsWithPattern)[pattern];
  }
}

}  // namespace zova
