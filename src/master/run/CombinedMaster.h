// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>

#include "master/groups/GroupSubjects.h"
#include "master/groups/NominalGroups.h"
#include "master/run/MasterRun.h"
#include "platform/desktop/Platform.h"

namespace zova {

/// The input of a combined master's run.
struct CombinedRequest {
  MeasureSelection Selection;
  std::string Destination;  ///< content of the destination box when the individual master was requested
  GroupSubjects Subjects;
  std::optional<std::size_t> Separator;  ///< index of the separating variable
  GroupPlan Plan;
  std::optional<std::string> GroupsFile = std::nullopt;  ///< as in MasterRequest
};

/// Writes the combined master, one row per group, into the destination's directory, the pieces of a wide one into the
/// primary directory, and the CSV of the groups (GroupsExport.h) if it is asked for. Faults of a member show the boxes
/// of the individual run; rows already written stay. The only notice is of older pieces.
MasterRunResult CreateCombinedMaster(const ProjectParameters& project, const CombinedRequest& request,
                                     const Platform& platform);

}  // namespace zova
