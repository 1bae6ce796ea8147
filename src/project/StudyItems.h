// SPDX-License-Identifier: GPL-3.0-or-later
//
// Which items are lures, and the category of an item. Items count from 1.
#pragma once

#include "project/ProjectParameters.h"

namespace zova {

/// Lures are the whole multiples of the category size. Only for a project with IsFalseMemoryInForce.
inline bool IsLure(int item, const ProjectParameters& project) noexcept {
  return item > 0 && item % project.ItemsPerCategory == 0;
}

/// The item's category, from 1; 0 for a blank or an item beyond the last category.
inline int CategoryOf(int item, const ProjectParameters& project) noexcept {
  if (item < 1 || project.ItemsPerCategory < 1) return 0;
  const int category = (item - 1) / project.ItemsPerCategory + 1;
  return category <= project.CategoryCount ? category : 0;
}

/// True for an item that is no lure, in any project.
inline bool IsStudied(int item, const ProjectParameters& project) noexcept {
  return !IsFalseMemoryInForce(project) || !IsLure(item, project);
}

/// The number of items of the list that are no lures.
inline int StudiedItemCount(const ProjectParameters& project) noexcept {
  return project.ItemCount - (IsFalseMemoryInForce(project) ? project.CategoryCount : 0);
}

}  // namespace zova
