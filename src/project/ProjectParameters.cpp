// SPDX-License-Identifier: GPL-3.0-or-later

#include "project/ProjectParameters.h"

#include <algorithm>

namespace zova {

bool IsFalseMemoryInForce(const ProjectParameters& project) noexcept {
  return project.FalseMemory == 1 && project.Categorized == 1 && project.ItemsPerCategory >= 2;
}

bool IsTestRated(const ProjectParameters& project, int test) {
  // Kept: exactly "Y" here, while the rating averages also accept "y".
  return project.Rated == 1 && project.RatedTests.at(static_cast<std::size_t>(test) - 1) == "Y";
}

std::string_view LevelName(const ProjectParameters& project, std::size_t variable, int level) {
  if (level < 1 || level > project.LevelCounts.at(variable)) return {};
  return project.LevelNames.at(variable).at(static_cast<std::size_t>(level) - 1);
}

std::string LevelLabel(const ProjectParameters& project, std::size_t variable, int level) {
  const std::string_view name = LevelName(project, variable, level);
  if (name.empty()) return std::to_string(level);
  const auto begin = project.LevelNames[variable].begin();
  const bool isOnly = std::count(begin, begin + project.LevelCounts[variable], name) == 1;
  return isOnly ? std::string(name) : std::string(name) + " (" + std::to_string(level) + ")";
}

}  // namespace zova
