// SPDX-License-Identifier: GPL-3.0-or-later
//
// A backup location holds, below the backup directory, `Sdata` with a copy of every data file, and beside it either the
// project's own parameter file or, for a destination chosen later, "<title> Backup.prm". That copy names the new
// destination as backup directory, where a restore finds the data, and in field 8 the one that the saved parameters
// keep, which a restore puts back.

#include "project/ProjectBackup.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "platform/files/FileCopier.h"
#include "project/DirectoryRules.h"
#include "project/ProjectFile.h"
#include "project/ProjectLayout.h"

namespace zova {

namespace {

// Makes `Sdata` in a backup directory; the message is what the command will say when all else succeeds, too.
std::optional<MessageBox> PrepareBackup(const std::string& backupDir, const BackupTools& tools) {
  const std::string sdata = SubjectDirectory(backupDir);
  bool created = false;
  const bool ready = WithRetry(tools.Errors, [&] {
    if (tools.Files.DirectoryExists(sdata)) return;
    tools.Files.CreateDirectories(sdata);
    created = true;
  });
  if (!ready) return std::nullopt;
  return MessageBox{.Text = created ? "The backup directory and files were successfully created."
                                    : "The backup data files were updated.",
                    .Icon = BoxIcon::Information};
}

// A link can make the two directories one: its files are where they belong then.
bool CopyDataFiles(const std::string& from, const std::string& to, std::string_view prefix, const BackupTools& tools) {
  std::vector<std::string> names;
  const bool listed = WithRetry(tools.Errors, [&] {
    if (!tools.Files.IsSame(from, to)) names = tools.Files.ListFiles(from, prefix, kDataFileEnd);
  });
  FileCopier copier(tools.Files, from, to, names);
  return listed && std::all_of(names.begin(), names.end(), [&](const std::string& name) {
           return WithRetry(tools.Errors, [&] { copier.Copy(name); });
         });
}

// True also when there is no such file.
bool CopyProjectFile(const std::string& name, const std::string& from, const std::string& to,
                     const BackupTools& tools) {
  return WithRetry(tools.Errors, [&] {
    if (tools.Files.IsSame(from, to) || !tools.Files.FileExists(JoinPath(from, name))) return;
    tools.Files.Copy(JoinPath(from, name), JoinPath(to, name));
  });
}

std::optional<MessageBox> RefreshBackup(const ProjectParameters& project, const BackupTools& tools) {
  const BusyPointer busy(tools.Pointer);
  const auto outcome = PrepareBackup(project.BackupDir, tools);
  const bool copied =
      outcome && CopyDataFiles(SubjectDirectory(project.PrimaryDir), SubjectDirectory(project.BackupDir), "", tools) &&
      CopyProjectFile(project.ProjectFileName, tools.ParamDir, project.BackupDir, tools);
  return copied ? outcome : std::nullopt;
}

void ShowRefusal(const char* text, const BackupTools& tools) {
  tools.Boxes.Show({.Text = text, .Icon = BoxIcon::Exclamation});
}

// The directory typed, once it exists; nothing when it cannot be the destination, after telling the user why.
std::optional<std::string> TakeDestination(const ProjectParameters& project, const std::string& text,
                                           const BackupTools& tools) {
  const std::string directory = DirectoryFromText(text, tools.Files.Drives());
  if (!HasDrive(directory)) {
    ShowRefusal("Invalid format. Please redo.", tools);
    return std::nullopt;
  }
  bool accepted = false;
  WithRetry(tools.Errors, [&] {
    tools.Files.Resolve(directory, FileOperation::CreateDirectory);  // on a drive that is not ready nothing is asked
    if (!HasValidComponents(directory) || tools.Files.FileExists(directory)) {
      ShowRefusal("Invalid Backup directory name.", tools);
    } else if (tools.Files.IsSame(directory, project.PrimaryDir)) {
      ShowRefusal("The primary and backup directories cannot be the same.", tools);
    } else {
      accepted = ExistsOrIsCreated(directory, tools.Files, tools.Boxes);
    }
  });
  return accepted ? std::optional(directory) : std::nullopt;
}

// The backup copy is in the current layout, whose data files have other names than those of older projects: an older
// project restored from it would miss its data. It gets its own parameter file.
bool WriteBackupCopy(const ProjectParameters& project, const std::string& projectFile, const BackupTools& tools) {
  if (project.FormatMarker != kCurrentMarker) {
    return WithRetry(tools.Errors, [&] {
      if (tools.Files.IsSame(DirectoryOfPath(projectFile), project.BackupDir)) return;
      tools.Files.Copy(projectFile, ParameterFilePath(project.BackupDir, project));
    });
  }
  const std::string path = BackupCopyPath(project);
  const std::string content = FormatProject(project, kBackupMarker, project.PreviousBackupDir);
  return WithRetry(tools.Errors, [&] { tools.Files.Write(path, content); });
}

void MakePrimary(const ProjectParameters& project, Disk& disk) {
  const std::string sdata = SubjectDirectory(project.PrimaryDir);
  if (IsNoDirectory(project.PrimaryDir)) {  // in older layouts; some platforms would make "(none)"
    throw FileError(FileOperation::CreateDirectory, sdata, FileCause::PathNotFound);
  }
  disk.CreateDirectories(sdata);
}

struct RestoreSource {
  std::string Directory;  // has `Sdata`
  bool IsBesideChosenFile = false;
};

// The backup may have moved since it was recorded; then whoever chose a file in it has shown where it is.
RestoreSource FindBackup(const ProjectParameters& project, std::string_view path, Disk& disk) {
  const std::string recorded = SubjectDirectory(project.BackupDir);
  if (disk.DirectoryExists(recorded)) return {project.BackupDir};
  const std::string beside(DirectoryOfPath(path));
  if (disk.DirectoryExists(SubjectDirectory(beside)) &&
      !disk.IsSame(SubjectDirectory(beside), SubjectDirectory(project.PrimaryDir))) {
    return {beside, true};
  }
  throw FileError(FileOperation::List, recorded, FileCause::PathNotFound);
}

// What a backup copy's project is once restored, and also when its restore was given up: the directories that its owner
// chose, and the layout whose file names all its subjects have.
ProjectParameters WithoutBackupCopy(const ProjectParameters& project) {
  ProjectParameters own = project;
  own.BackupDir = std::exchange(own.PreviousBackupDir, {});
  own.FormatMarker = kCurrentMarker;
  return own;
}

// The parameter file is made again, then the project is what that file says.
bool RestoreParameters(ProjectParameters& project, const BackupTools& tools) {
  if (!WriteProjectFile(project, tools.ParamDir, /*restoring=*/true, tools.Files, tools.Errors)) return false;
  return WithRetry(tools.Errors,
                   [&] { project = ReadProjectFile(tools.Files, ParameterFilePath(tools.ParamDir, project)); });
}

MessageBox NoBackupMessage() {
  return {.Text =
              "There was not a backup location for this project.  If you saved one manually you can create an "
              "'Sdata' folder in your primary directory and copy all data (.dat) files to it.  You can determine "
              "your primary directory by selecting 'Options', 'View Parameters', then 'Next'.",
          .Icon = BoxIcon::Exclamation};
}

}  // namespace

BackupOutcome BeginBackup(const ProjectParameters& project, const BackupTools& tools) {
  if (IsNoDirectory(project.BackupDir)) return {.AsksDestination = true};
  const BoxAnswer answer = tools.Boxes.Show(
      {.Text = "This feature will create a new backup of all the entered data for the current project.  This project's "
               "data already has a backup location at: '" +
               project.BackupDir +
               "'.  To recreate or refresh the data at this location, select 'No'.  Do you want to specify a new "
               "backup location?",
       .Icon = BoxIcon::Question,
       .Buttons = BoxButtons::YesNoCancel,
       .Default = BoxAnswer::No});
  if (answer == BoxAnswer::No) return {.Message = RefreshBackup(project, tools)};
  return {.AsksDestination = answer == BoxAnswer::Yes};
}

LocationTexts BackupDestinationTexts() {
  return {.Title = "New Backup Destination",
          .Instruction =
              "Please choose the location for the backup information by selecting the appropriate drive and "
              "double-clicking on the appropriate directory or typing it in directly.",
          .Note =
              "NOTE: This will not change your parameter settings.  If you restore this data using the 'Restore "
              "From Backup' feature, your original destination directories will remain unchanged."};
}

std::optional<MessageBox> BackUpTo(ProjectParameters& project, const std::string& text, const SavedProject& saved,
                                   const BackupTools& tools) {
  const auto destination = TakeDestination(project, text, tools);
  if (!destination) return std::nullopt;
  const BusyPointer busy(tools.Pointer);
  const auto outcome = PrepareBackup(*destination, tools);
  if (!outcome) return std::nullopt;
  project.PreviousBackupDir = saved.BackupDir;
  project.BackupDir = *destination;
  const bool copied =
      CopyDataFiles(SubjectDirectory(project.PrimaryDir), SubjectDirectory(project.BackupDir), "", tools) &&
      WriteBackupCopy(project, saved.File, tools);
  return copied ? outcome : std::nullopt;
}

bool WantsRestore(MessageBoxes& boxes) {
  return boxes.Show(
             {.Text = "This procedure will allow you to select a parameter (.prm) file for a project.  The file can be "
                      "found in the 'Param' directory.  Backups can also be found in the primary or backup directories "
                      "of a project.  Once the file is selected, ZOVA will copy all appropriate files and directories "
                      "from the backup location to the primary location.  ZOVA will overwrite all existing data (.dat) "
                      "files in primary directory that are related to the project.  Do you wish to continue?",
              .Icon = BoxIcon::Exclamation,
              .Buttons = BoxButtons::YesNoCancel,
              .Default = BoxAnswer::No,
              .Title = "Restore from Backup"}) == BoxAnswer::Yes;
}

std::optional<MessageBox> RestoreData(ProjectParameters& project, const std::string& path, const BackupTools& tools) {
  const BusyPointer busy(tools.Pointer);
  const ProjectParameters chosen = project;
  const bool isBackupCopy = chosen.FormatMarker == kBackupMarker;
  if (isBackupCopy) project = WithoutBackupCopy(chosen);
  if (IsNoDirectory(chosen.BackupDir)) return NoBackupMessage();
  RestoreSource source;
  if (!WithRetry(tools.Errors, [&] { MakePrimary(chosen, tools.Files); }) ||
      !WithRetry(tools.Errors, [&] { source = FindBackup(chosen, path, tools.Files); }) ||
      !CopyDataFiles(SubjectDirectory(source.Directory), SubjectDirectory(chosen.PrimaryDir), SavedPrefix(chosen),
                     tools)) {
    return std::nullopt;
  }
  const bool done = isBackupCopy ? RestoreParameters(project, tools)
                                 : CopyProjectFile(chosen.ProjectFileName, source.Directory, tools.ParamDir, tools);
  if (!done) return std::nullopt;
  MessageBox message{.Text = "The data was successfully restored.", .Icon = BoxIcon::Information, .Title = "Restore"};
  if (source.IsBesideChosenFile) {
    message.Details = "The data files were taken from '" + SubjectDirectory(source.Directory) + "'.";
  }
  return message;
}

}  // namespace zova
