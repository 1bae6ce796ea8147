// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "project/ProjectParameters.h"

namespace zova {

/// The study list of a project, as the further measures need it. Items index from 1.
struct StudyList {
  int TestCount = 0;
  int ItemCount = 0;  ///< with lures
  int TrueCount = 0;  ///< N: items that are studied
  int LureCount = 0;
  bool HasCategories = false;
  int CategorySize = 0;                     ///< m: studied items per category
  std::vector<std::int16_t> CategoryAt;     ///< by item; 0 for none
  std::vector<std::int16_t> CategorySizes;  ///< by category, from 1: studied items that it really has
  std::vector<bool> LureAt;                 ///< by item
};

StudyList MakeStudyList(const ProjectParameters& project);

/// The position of each item among the studied ones, from 1, at the item's number; 0 for a lure.
using StudyRanks = std::vector<std::int16_t>;

/// The ranks of the studied items by `positions`, which has that of item i at index i - 1. Those of lures do not count.
StudyRanks RanksOf(std::span<const std::int16_t> positions, const StudyList& study);

}  // namespace zova
