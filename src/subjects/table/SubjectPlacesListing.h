// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <string>
#include <vector>

#include "platform/files/Disk.h"
#include "project/ProjectLayout.h"

namespace zova {

/// One directory of subject files, and the names in it as ListSubjectFiles has them; none for a missing one.
struct ListedPlace {
  ResolvedPath Directory;
  std::vector<std::string> Names;
};
using ListedPlaces = std::array<ListedPlace, kSubjectPlaces.size()>;  ///< by SubjectPlace

/// Those below a primary or backup directory, of subjects or of removed ones. Throws FileError.
ListedPlaces ListSubjectPlaces(Disk& disk, const ProjectParameters& project, const std::string& root, bool areRemoved);

}  // namespace zova
