// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "platform/files/Disk.h"
#include "project/ProjectParameters.h"

namespace zova {

/// Throws FileError when the file `path` is one that masters are made from, by whatever link or spelling: a subject
/// file (".dat") in the primary or backup directory's `Sdata` or its `Unfinished`, a parameter file, an order that is
/// saved or may be, or the autosave file or one put aside in a directory "Param". A destination is taken as it stands,
/// but nothing that a run writes takes the place of these. Of hard links only those to files in the primary and backup
/// directories are known.
void RefuseOwnFile(const std::string& path, const ProjectParameters& project, Disk& disk);

}  // namespace zova
