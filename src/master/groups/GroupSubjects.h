// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <optional>
#include <string>
#include <vector>

#include "platform/desktop/Platform.h"
#include "project/ProjectParameters.h"

namespace zova {

/// The subjects that groups are formed of, in the order of the listing; the three have the same length.
struct GroupSubjects {
  std::vector<std::string> FileNames;
  std::vector<std::string> SubjectIds;
  std::vector<std::array<std::int16_t, kMaxVariables>> Levels;  ///< all 0 when they were not read

  /// The levels of one variable (from index 0); all 0 without one.
  [[nodiscard]] std::vector<std::int16_t> LevelsOf(std::optional<std::size_t> variable) const;
};

/// Lists the first `subjectFileCount` subjects and, `withLevels`, reads each for its levels; the lists are not kept.
/// The window can repaint between two subjects. Errors are asked about as in the run of the masters; nullopt when the
/// user gave up.
std::optional<GroupSubjects> ReadGroupSubjects(const ProjectParameters& project, int subjectFileCount, bool withLevels,
                                               const Platform& platform);

}  // namespace zova
