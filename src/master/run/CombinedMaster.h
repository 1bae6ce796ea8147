// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <optional>
#include <string>
#include <vector>

#include "master/groups/NominalGroups.h"
#include "master/run/MasterRun.h"
#include "platform/desktop/Platform.h"

namespace zova {

/// The subjects that groups are formed of, in the order of the listing; the three have the same length.
struct GroupSubjects {
  std::vector<std::string> FileNames;
  std::vector<std::string> SubjectIds;
  std::vector<std::array<std::int16_t, kMaxVariables>> Levels;  ///< all 0 when they were not read

  /// The levels of one variable (from index 0); all 0 without one.
  [[nodiscard]] std::vector<std::int16_t> LevelsOf(std::optional<std::size_t> variable) const;
};

/// What a combined master is made of; fixed when its run starts.
struct CombinedRequest {
  MeasureSelection Selection;
  std::string Destination;  ///< content of the destination box when the individual master was asked for
  GroupSubjects Subjects;
  std::optional<std::size_t> Separator;  ///< the variable that keeps the groups apart, from index 0
  GroupPlan Plan;
};

/// Lists the first `subjectFileCount` subjects and, `withLevels`, reads each for its levels; the lists are not kept.
/// The window breathes through the bar. Errors are asked about as in the run of the masters; nothing when the user gave
/// up.
std::optional<GroupSubjects> ReadGroupSubjects(const ProjectParameters& project, int subjectFileCount, bool withLevels,
                                               const Platform& platform);

/// Writes the combined master, a row per group, into the destination's directory, and its pieces beside the data when
/// it is wide. A member that cannot be read is asked about as in the individual run; rows written until then stay.
/// There are no notices.
MasterRunResult CreateCombinedMaster(const ProjectParameters& project, const CombinedRequest& request,
                                     const Platform& platform);

}  // namespace zova
