// SPDX-License-Identifier: GPL-3.0-or-later

#include "project/ProjectOpening.h"

#include <utility>

#include "platform/desktop/FileErrorBoxes.h"
#include "project/DirectoryRules.h"
#include "project/FileChanges.h"
#include "project/ProjectFile.h"
#include "project/ProjectLayout.h"
#include "text/Encoding.h"

namespace zova {

bool MayOpenProject(const ProjectParameters& project, MessageBoxes& boxes) {
  if (project.FormatMarker != kBackupMarker) return true;
  Warn(boxes,
       "You cannot use the backup parameters to open this project.  If the proper project file does not "
       "exist in the 'Param' folder then you must first use the 'Restore From Backup' feature on the "
       "'Tools' menu.");
  return false;
}

std::string ViewOnlyReason(const ProjectParameters& project) {
  if (IsFileNamePart(project.Abbreviation)) return "";
  return "This project can be viewed only: its abbreviation '" + project.Abbreviation +
         "' cannot be part of a file name.";
}

std::string NoBackupReason(const ProjectParameters& project) {
  if (std::string reason = ViewOnlyReason(project); !reason.empty()) return reason;
  const std::string& name = project.ProjectFileName;
  // In the older layouts the name is that of the file which was opened.
  const bool isOlder = project.FormatMarker == kOldestMarker || project.FormatMarker.starts_with("Sc");
  if (IsFileNamePart(name) && (isOlder || EndsIgnoringCase(name, kParameterFileEnd))) return "";
  return "This project can be neither backed up nor restored: its file name '" + name +
         "' is not that of a parameter file.";
}

std::optional<std::string> ChooseProjectFile(const std::string& title, const std::string& paramDir,
                                             FileDialogs& dialogs) {
  return dialogs.ChooseFile(
      {.Title = title, .Directory = paramDir, .Filters = {{"PRM files (*.prm)", "*.prm"}, {"All files (*.*)", "*"}}});
}

std::optional<ChosenProject> ReadProject(const std::string& path, const Platform& platform) {
  ChosenProject chosen = {.Parameters = {}, .Path = path};
  if (!WithRetry(platform.Boxes, [&] { chosen.Parameters = ReadProjectFile(platform.Files, path); }))
    return std::nullopt;
  return chosen;
}

bool IsReadyForCommand(const ProjectParameters& project, const Platform& platform, bool mayWrite) {
  if (!MayOpenProject(project, platform.Boxes)) return false;
  if (const std::string reason = ViewOnlyReason(project); !reason.empty()) {
    Warn(platform.Boxes, reason);
    return false;
  }
  return !mayWrite || FinishInterruptedChanges(project, platform);
}

std::optional<ProjectParameters> OpenForCommand(const std::string& path, const Platform& platform) {
  auto chosen = ReadProject(path, platform);
  if (!chosen || !IsReadyForCommand(chosen->Parameters, platform, true)) return std::nullopt;
  return std::move(chosen->Parameters);
}

std::optional<ChosenProject> ChooseProject(const std::string& title, const std::string& paramDir,
                                           const Platform& platform) {
  for (bool offersAgain = true; offersAgain;) {
    const std::optional<std::string> path = ChooseProjectFile(title, paramDir, platform.Dialogs);
    if (!path) return std::nullopt;
    ChosenProject chosen = {.Parameters = {}, .Path = *path};
    const bool isRead = WithRetry(platform.Boxes, [&] {
      try {
        chosen.Parameters = ReadProjectFile(platform.Files, *path);
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
