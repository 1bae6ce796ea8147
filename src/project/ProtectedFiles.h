// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <string>

#include "platform/desktop/Platform.h"
#include "platform/files/Disk.h"
#include "project/ProjectParameters.h"

namespace zova {

/// True when `path` is a file that masters are made from, under any link or spelling: a subject file (".dat") in any
/// project's `Sdata` or `Unfinished`, a parameter file, a saved order, or an autosave file in a directory "Param"; or a
/// path where a subject file or saved order would be. A run must not write to these. Detects hard links only to files
/// in the primary and backup directories. Throws FileError.
bool IsProjectFile(const std::string& path, const ProjectParameters& project, Disk& disk);

/// Also true for a master of the project in its primary directory, and for any name with the extension of a data or
/// parameter file: tables and plots must not overwrite these. Throws FileError.
bool IsProtectedFile(const std::string& path, const ProjectParameters& project, Disk& disk);

/// Writes a file that the user named, with Retry; one for which `isKept` holds is refused with a message. True when it
/// was written.
bool WriteNamedFile(const std::string& path, const std::function<std::string()>& content,
                    const std::function<bool(const std::string& path)>& isKept, const Platform& platform);

}  // namespace zova
