// SPDX-License-Identifier: GPL-3.0-or-later

#include "project/ProjectOpening.h"

#include "project/ProjectFile.h"

namespace zova {

bool MayOpenProject(const ProjectParameters& project, MessageBoxes& boxes) {
  if (project.FormatMarker != kBackupMarker) return true;
  boxes.Show({.Text = "You cannot use the backup parameters to open this project.  If the proper project file does not "
                      "exist in the 'Param' folder then you must first use the 'Restore From Backup' feature on the "
                      "'Tools' menu.",
              .Icon = BoxIcon::Exclamation});
  return false;
}

std::optional<std::string> ChooseProjectFile(const std::string& title, const std::string& paramDir,
                                             Choosers& choosers) {
  return choosers.ChooseFile(
      {.Title = title, .Directory = paramDir, .Filters = {{"PRM files (*.prm)", "*.prm"}, {"All files (*.*)", "*"}}});
}

std::optional<ChosenProject> ChooseProject(const std::string& title, const std::string& paramDir, Disk& disk,
                                           Choosers& choosers, FileErrorHandler& errors) {
  for (bool offersAgain = true; offersAgain;) {
    const std::optional<std::string> path = ChooseProjectFile(title, paramDir, choosers);
    if (!path) return std::nullopt;
    ChosenProject chosen = {.Parameters = {}, .Path = *path};
    const bool isRead = WithRetry(errors, [&] {
      try {
        chosen.Parameters = ReadProjectFile(disk, *path);
      } catch (const FileError& error) {
        offersAgain = error.Cause() == FileCause::EndOfData;
        throw;
      }
    });
    if (isRead) return chosen;
  }
  return std::nullopt;
}

}  // namespace zova
