// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "means/MasterTable.h"

namespace zova {

/// The levels of one variable that occur, in display order.
struct OccurringLevels {
  std::vector<std::string_view> Texts;
  std::vector<std::string> Names;  ///< as Texts
  std::vector<std::size_t> OfRow;  ///< index into both lists
};

/// A variable whose levels stand in an order of the user's.
struct LevelOrder {
  std::string Variable;
  std::vector<std::string> Levels;  ///< their names; others follow in ascending order

  bool operator==(const LevelOrder&) const = default;
};

/// Puts the levels that `order` names first.
void Arrange(const LevelOrder& order, OccurringLevels& levels);

/// The names that levels of a variable of the project can have on a plot: "Man", or for two of one name also "Man (1)".
std::vector<std::string> LevelsOf(const ProjectParameters& project, std::size_t variable);

/// The levels of a variable of `table`, which must outlive them, in ascending order. `project`, the master's project or
/// null, names them; levels without a name show their numbers.
OccurringLevels LevelsOf(const MasterTable& table, std::size_t variable, const ProjectParameters* project);

}  // namespace zova
