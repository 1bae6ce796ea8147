// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <optional>
#include <string>
#include <vector>

#include "platform/desktop/Platform.h"
#include "project/ProjectParameters.h"

namespace zova {

/// The subjects of the groups, in the order of the listing; three parallel lists.
struct GroupSubjects {
  std::vector<std::string> FileNames;
  std::vector<std::string> SubjectIds;
  std::vector<std::array<std::int16_t, kMaxVariables>> Levels;  ///< all 0 if not read

  /// The levels of one variable (from index 0); all 0 for nullopt.
  [[nodiscard]] std::vector<std::int16_t> LevelsOf(std::optional<std::size_t> variable) const;
};

/// Lists the first `subjectFileCount` subjects and, `withLevels`, reads the levels of each. The window repaints between
/// subjects. Errors show the boxes of a run; nullopt when the user cancels.
std::optional<GroupSubjects> ReadGroupSubjects(const ProjectParameters& project, int subjectFileCount, bool withLevels,
                                               const Platform& platform);

}  // namespace zova
