// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>

#include "platform/desktop/Platform.h"
#include "project/ProjectParameters.h"

namespace zova {

/// False, after a message, for a backup copy of a parameter file: it does not name the location of the data.
bool MayOpenProject(const ProjectParameters& project, MessageBoxes& boxes);

/// Shows a file dialog with this title, starting in `paramDir`; nullopt when the user cancels.
std::optional<std::string> ChooseProjectFile(const std::string& title, const std::string& paramDir,
                                             FileDialogs& dialogs);

struct ChosenProject {
  ProjectParameters Parameters;
  std::string Path;
};

/// Calls ChooseProjectFile and reads the file. Reports a file that is not a parameter file and shows the dialog again.
/// nullopt when the user cancels the dialog or a failed read.
std::optional<ChosenProject> ChooseProject(const std::string& title, const std::string& paramDir,
                                           const Platform& platform);

}  // namespace zova
