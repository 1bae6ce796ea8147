// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>

#include "platform/desktop/MessageBoxes.h"
#include "platform/files/Disk.h"
#include "project/ProjectParameters.h"

namespace zova {

/// Reads a parameter file in any of its three layouts. `bytes` is the file's content, `path` where it was found (its
/// last component becomes `ProjectFileName` in the older layouts). Throws FieldError; nothing is checked but that the
/// fields are there, that numbers are numbers, and that the tables hold them.
ProjectParameters ParseProject(std::string_view bytes, std::string_view path);

/// The same from the disk. Throws FileError.
ProjectParameters ReadProjectFile(Disk& disk, const std::string& path);

/// The file's content in the current layout, with `marker` in its last field and, when not empty,
/// `previousBackupDir` in field 8.
std::string FormatProject(const ProjectParameters& project, std::string_view marker,
                          std::string_view previousBackupDir = {});

/// Writes the parameter file into `paramDir`, the primary directory and, unless `restoring`, the backup directory;
/// makes the `Sdata` directory below the latter two when only that is missing. Directories that are "(none)" are
/// passed over. Then the record's marker is "VB Version". False when the user gave up a failed step; what was written
/// until then stays.
bool WriteProjectFile(ProjectParameters& project, const std::string& paramDir, bool restoring, Disk& disk,
                      MessageBoxes& boxes);

/// The example project of new users.
ProjectParameters ExampleProject(const std::string& programDir);

/// Writes "Example.prm" into `paramDir` and copies it into "Sample Data" below `programDir` (created when missing).
/// False when the user gave up writing the first; a copy given up is no failure.
bool WriteExampleProject(const std::string& paramDir, const std::string& programDir, Disk& disk, MessageBoxes& boxes);

}  // namespace zova
