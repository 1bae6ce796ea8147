// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "platform/files/Disk.h"
#include "project/ProjectParameters.h"

namespace zova {

/// Throws FileError when `path` is a file that masters are made from (IsProjectFile). A destination is taken as it
/// stands, but nothing that a run writes takes the place of these.
void RefuseOwnFile(const std::string& path, const ProjectParameters& project, Disk& disk);

}  // namespace zova
