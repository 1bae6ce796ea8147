// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>

#include "platform/desktop/MessageBoxes.h"
#include "platform/files/Disk.h"
#include "project/ProjectParameters.h"

namespace zova {

/// Parses a parameter file in any of its three layouts. The last component of `path` becomes `ProjectFileName` in the
/// older layouts. Throws FieldError; checks only that the fields exist, that numbers are numbers, and that they fit the
/// tables.
ProjectParameters ParseProject(std::string_view bytes, std::string_view path);

/// Reads the file and parses it with ParseProject. Throws FileError.
ProjectParameters ReadProjectFile(Disk& disk, const std::string& path);

/// The file's content in the current layout, with `marker` in its last field and, when not empty,
/// `previousBackupDir` in field 8.
std::string FormatProject(const ProjectParameters& project, std::string_view marker,
                          std::string_view previousBackupDir = {});

/// Writes the parameter file into `paramDir`, the primary directory and, unless `restoring`, the backup directory;
/// creates a missing `Sdata` directory in the latter two. Skips directories that are "(none)". Sets the record's marker
/// to "VB Version". False when the user cancels after a fault; files already written stay.
bool WriteProjectFile(ProjectParameters& project, const std::string& paramDir, bool restoring, Disk& disk,
                      MessageBoxes& boxes);

/// The example project of new users.
ProjectParameters ExampleProject(const std::string& programDir);

/// Writes "Example.prm" into `paramDir` and copies it into "Sample Data" below `programDir` (created if missing). False
/// when the user cancels the first; cancelling the copy is no failure.
bool WriteExampleProject(const std::string& paramDir, const std::string& programDir, Disk& disk, MessageBoxes& boxes);

}  // namespace zova
