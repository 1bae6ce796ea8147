// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>

#include "platform/desktop/Platform.h"
#include "project/ProjectParameters.h"

namespace zova {

/// False, after telling the user, for a backup copy of a parameter file: it names no place where the data lie.
bool MayOpenProject(const ProjectParameters& project, MessageBoxes& boxes);

/// The names in a parameter file from elsewhere may lead out of the project's directories. Why the project can only be
/// viewed: its abbreviation is no part of a file name. "" when it is one.
std::string ViewOnlyReason(const ProjectParameters& project);
/// Why it can be neither backed up nor restored: the same, or a file name that no parameter file of its layout has. ""
/// when it can.
std::string NoBackupReason(const ProjectParameters& project);

/// The parameter file that the user chooses in a dialog with this title that starts in `paramDir`; nothing when the
/// dialog was cancelled.
std::optional<std::string> ChooseProjectFile(const std::string& title, const std::string& paramDir,
                                             FileDialogs& dialogs);

struct ChosenProject {
  ProjectParameters Parameters;
  std::string Path;
};

/// The same, and reads the file. One that is no parameter file is told, and the dialog offered again. Nothing when the
/// dialog was cancelled or a failed read given up.
std::optional<ChosenProject> ChooseProject(const std::string& title, const std::string& paramDir,
                                           const Platform& platform);

}  // namespace zova
