// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "platform/files/Disk.h"
#include "project/ProjectParameters.h"

namespace zova {

/// True when `path` is a file that masters are made from, by whatever link or spelling: a subject file (".dat") in the
/// primary or backup directory's `Sdata` or its `Unfinished`, a parameter file, an order that is saved or may be, or
/// the autosave file or one put aside in a directory "Param". Nothing that a run writes takes the place of these. Of
/// hard links only those to files in the primary and backup directories are known. Throws FileError.
bool IsProjectFile(const std::string& path, const ProjectParameters& project, Disk& disk);

/// True also for a master of the project in its primary directory, and for any name that ends as a data or parameter
/// file's: what is computed from a master takes the place of none of these. Throws FileError.
bool IsProtectedFile(const std::string& path, const ProjectParameters& project, Disk& disk);

}  // namespace zova
