// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "means/MasterTable.h"
#include "platform/files/Disk.h"

namespace zova {

/// True when the master at `path` is one of the project's: its variables are the project's, and its name begins with
/// the abbreviation and " Master" or " Combined Master", or it lies in the primary directory and is not called like the
/// master of another project whose subjects lie there.
bool IsMasterOfProject(const MasterTable& table, const std::string& path, const ProjectParameters& project, Disk& disk);

}  // namespace zova
