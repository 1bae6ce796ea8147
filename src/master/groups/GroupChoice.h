// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "master/groups/GroupSubjects.h"
#include "master/groups/NominalGroups.h"

namespace zova {

/// Nominal groups as a command line asks for them.
struct GroupChoice {
  int Size = 0;
  std::optional<std::size_t> Separator;  ///< only subjects of one level of this variable form a group
  std::string OrderFile;                 ///< "" for the order of the listing
};

struct ChosenGroups {
  GroupSubjects Subjects;
  GroupPlan Plan;
  std::vector<std::string> NotInOrder;  ///< subjects without a line in the file of the order, which come last
};

/// Forms the groups of the first `subjectFileCount` subjects. Faults show boxes; nullopt after one, when the user
/// cancels, and when there are too few subjects for a group.
std::optional<ChosenGroups> ReadChosenGroups(const ProjectParameters& project, int subjectFileCount,
                                             const GroupChoice& choice, const Platform& platform);

}  // namespace zova
