// SPDX-License-Identifier: GPL-3.0-or-later

#include "scoring/further/StudyList.h"

#include "project/StudyItems.h"

#include <algorithm>

#include "scoring/ScoreSubject.h"

namespace zova {

StudyList MakeStudyList(const ProjectParameters& project) {
  const bool hasLures = IsFalseMemoryInForce(project);
  StudyList study;
  study.TestCount = project.TestCount;
  study.ItemCount = project.ItemCount;
  study.HasCategories = project.Categorized == 1;
  study.CategorySize = project.ItemsPerCategory - (hasLures ? 1 : 0);
  study.CategoryAt.assign(static_cast<std::size_t>(project.ItemCount) + 1, 0);
  study.CategorySizes.assign(static_cast<std::size_t>(std::max<int>(project.CategoryCount, 0)) + 1, 0);
  study.LureAt.assign(study.CategoryAt.size(), false);
  for (int item = 1; item <= project.ItemCount; ++item) {
    const auto at = static_cast<std::size_t>(item);
    if (hasLures && IsLure(item, project)) {
      study.LureAt[at] = true;
      ++study.LureCount;
      continue;
    }
    ++study.TrueCount;
    if (!study.HasCategories) continue;
    study.CategoryAt[at] = static_cast<std::int16_t>(CategoryOf(item, project));
    ++study.CategorySizes[static_cast<std::size_t>(study.CategoryAt[at])];
  }
  return study;
}

StudyRanks RanksOf(std::span<const std::int16_t> positions, const StudyList& study) {
  std::vector<std::size_t> items;
  items.reserve(static_cast<std::size_t>(study.TrueCount));
  for (std::size_t item = 1; item < study.LureAt.size(); ++item) {
    if (!study.LureAt[item]) items.push_back(item);
  }
  std::sort(items.begin(), items.end(),
            [&](std::size_t a, std::size_t b) { return positions[a - 1] < positions[b - 1]; });
  StudyRanks ranks(study.LureAt.size(), 0);
  std::int16_t rank = 0;
  for (const std::size_t item : items) ranks[item] = ++rank;
  return ranks;
}

}  // namespace zova
