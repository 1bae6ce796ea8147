// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "means/MasterTable.h"
#include "platform/files/Disk.h"

namespace zova {

/// True when the master at `path` belongs to the project: it has the project's variables, and either its name begins
/// with the abbreviation and " Master" or " Combined Master", or it is in the primary directory and not named like the
/// master of another project with subjects there.
bool IsMasterOfProject(const MasterTable& table, const std::string& path, const ProjectParameters& project, Disk& disk);

}  // namespace zova
