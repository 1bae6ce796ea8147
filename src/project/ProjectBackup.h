// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>

#include "platform/desktop/Platform.h"
#include "project/ProjectParameters.h"

namespace zova {

/// The result of Create New Backup.
struct BackupOutcome {
  bool AsksDestination = false;  ///< the frame "New Backup Destination" comes next
  std::optional<MessageBox> Message = {};
};

/// Create New Backup of an open project: refreshes its backup location unless the user wants a new one.
BackupOutcome BeginBackup(const ProjectParameters& project, const std::string& paramDir, const Platform& platform);

/// The state of the open project's parameter file, whatever the destination of a backup since.
struct SavedProject {
  std::string File;  ///< the parameter file opened, or written by the wizard
  std::string BackupDir;
};

/// OK on that frame: the typed directory becomes the project's backup directory until the project is closed, and gets
/// all data files and "<title> Backup.prm", or, for a project in an older layout, its own parameter file. Returns the
/// message to show after the frame closes; nullopt when the frame stays, after a message. The project is then unchanged
/// unless a copy failed.
std::optional<MessageBox> BackUpTo(ProjectParameters& project, const std::string& text, const SavedProject& saved,
                                   const Platform& platform);

/// Restore From Backup, in steps, since the session's state changes between them. Asks whether to continue.
bool WantsRestore(MessageBoxes& boxes);

/// Copies the data files back, and the parameter file if needed. `project` was read from the chosen file `path`; if
/// that is a backup copy, `project` always gets back the directories of the saved parameters. Returns the final
/// message; nullopt when the user cancels after a fault.
std::optional<MessageBox> RestoreData(ProjectParameters& project, const std::string& path, const std::string& paramDir,
                                      const Platform& platform);

}  // namespace zova
