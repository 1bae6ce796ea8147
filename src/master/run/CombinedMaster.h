// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>

#include "master/groups/GroupSubjects.h"
#include "master/groups/NominalGroups.h"
#include "master/run/MasterRun.h"
#include "platform/desktop/Platform.h"

namespace zova {

/// What a combined master is made of; fixed when its run starts.
struct CombinedRequest {
  MeasureSelection Selection;
  std::string Destination;  ///< content of the destination box when the individual master was asked for
  GroupSubjects Subjects;
  std::optional<std::size_t> Separator;  ///< the variable that keeps the groups apart, from index 0
  GroupPlan Plan;
};

/// Writes the combined master, a row per group, into the destination's directory, and its pieces beside the data when
/// it is wide. A member that cannot be read is asked about as in the individual run; rows written until then stay.
/// There are no notices.
MasterRunResult CreateCombinedMaster(const ProjectParameters& project, const CombinedRequest& request,
                                     const Platform& platform);

}  // namespace zova
