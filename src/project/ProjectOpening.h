// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>

#include "platform/desktop/Platform.h"
#include "project/ProjectParameters.h"

namespace zova {

/// False, after a message, for a backup copy of a parameter file: it does not name the location of the data.
bool MayOpenProject(const ProjectParameters& project, MessageBoxes& boxes);

/// The names in a parameter file from elsewhere may lead out of the project's directories. Why the project can only be
/// viewed: its abbreviation is no part of a file name. "" when it is one.
std::string ViewOnlyReason(const ProjectParameters& project);
/// Why it can be neither backed up nor restored: the same, or a file name that no parameter file of its layout has. ""
/// when it can.
std::string NoBackupReason(const ProjectParameters& project);

/// The parameter file that the user chooses in a dialog with this title that starts in `paramDir`; nullopt when the
/// dialog was cancelled.
std::optional<std::string> ChooseProjectFile(const std::string& title, const std::string& paramDir,
                                             FileDialogs& dialogs);

struct ChosenProject {
  ProjectParameters Parameters;
  std::string Path;
};

/// Reads a parameter file that is known by its path; reports a failure.
std::optional<ChosenProject> ReadProject(const std::string& path, const Platform& platform);

/// The project that a command works on: may be opened, can be more than viewed, and has no interrupted changes left.
/// nullopt after a message.
std::optional<ProjectParameters> OpenForCommand(const std::string& path, const Platform& platform);
/// What OpenForCommand requires of a project that was read. A command that writes nothing leaves an interrupted change
/// as it is.
bool IsReadyForCommand(const ProjectParameters& project, const Platform& platform, bool mayWrite);

/// Calls ChooseProjectFile and reads the file. Reports a file that is not a parameter file and shows the dialog again.
/// nullopt when the user cancels the dialog or a failed read.
std::optional<ChosenProject> ChooseProject(const std::string& title, const std::string& paramDir,
                                           const Platform& platform);

}  // namespace zova
