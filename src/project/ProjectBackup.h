// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>

#include "platform/desktop/Platform.h"
#include "project/ProjectParameters.h"

namespace zova {

/// What Create New Backup did, or asks next.
struct BackupOutcome {
  bool AsksDestination = false;  ///< the frame "New Backup Destination" is to be shown
  std::optional<MessageBox> Message = {};
};

/// Create New Backup of an open project: refreshes the backup location it has, unless the user wants a new one.
BackupOutcome BeginBackup(const ProjectParameters& project, const std::string& paramDir, const Platform& platform);

/// What the open project's parameter file says, whatever destination a backup of this run went to.
struct SavedProject {
  std::string File;  ///< the parameter file that was opened, or written by the wizard
  std::string BackupDir;
};

/// OK on that frame: the directory typed becomes the project's backup directory for the rest of the run, gets all data
/// files and "<title> Backup.prm", or, for a project in an older layout, its own parameter file. The outcome's message
/// is to be shown when the frame is gone; nothing when the frame stays (the user was told why), and then the project is
/// as it was, unless a copy failed.
std::optional<MessageBox> BackUpTo(ProjectParameters& project, const std::string& text, const SavedProject& saved,
                                   const Platform& platform);

/// Restore From Backup, step by step, since the session's state changes on the way.
/// The question of whether to go on.
bool WantsRestore(MessageBoxes& boxes);

/// Copies the data files back, and the parameter file where needed. `project` was just read from the chosen file
/// `path`; from a backup copy it becomes the project with the directories that its owner chose, in any case. The
/// message is to be shown at the end; nothing when the user gave up a failed step.
std::optional<MessageBox> RestoreData(ProjectParameters& project, const std::string& path, const std::string& paramDir,
                                      const Platform& platform);

}  // namespace zova
