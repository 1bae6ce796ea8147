// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <optional>
#include <string>

#include "platform/Choosers.h"
#include "platform/Disk.h"
#include "platform/FileErrorHandler.h"
#include "platform/MessageBoxes.h"
#include "project/ProjectParameters.h"

namespace zova {

/// False, after telling the user, for a backup copy of a parameter file: it names no place where the data lie.
bool MayOpenProject(const ProjectParameters& project, MessageBoxes& boxes);

struct ChosenProject {
  ProjectParameters Parameters;
  std::string Path;
};

/// Lets the user choose a parameter file in a dialog with this title that starts in `paramDir`, and reads it. A file
/// that is none is told, and the dialog offered again. Nothing when the dialog was cancelled or a failed read given up.
/// `onChosen`, if any, is called for every file chosen, before it is read.
std::optional<ChosenProject> ChooseProject(const std::string& title, const std::string& paramDir, Disk& disk,
                                           Choosers& choosers, FileErrorHandler& errors,
                                           const std::function<void()>& onChosen = {});

}  // namespace zova
