// SPDX-License-Identifier: GPL-3.0-or-later
//
// A backup location is a backup directory with `Sdata`, a copy of every data file, and beside it either the project's
// own parameter file or, for a destination chosen later, "<title> Backup.prm". That copy names the new destination as
// backup directory, where a restore finds the data, and in field 8 that of the saved parameters, which a restore puts
// back. The companion files lie beside it, too.

#include "project/ProjectBackup.h"

#include <array>
#include <map>
#include <utility>
#include <vector>

#include "platform/desktop/FileErrorBoxes.h"
#include "project/CompanionCopies.h"
#include "project/CopyRun.h"
#include "project/DirectoryRules.h"
#include "project/ProjectFile.h"
#include "project/ProjectLayout.h"
#include "text/Counted.h"
#include "text/Encoding.h"

namespace zova {

namespace {

// Creates `Sdata` in a backup directory. Returns the command's message for the case that everything else succeeds.
std::optional<MessageBox> PrepareBackup(const std::string& backupDir, const Platform& platform) {
  const std::string sdata = SubjectDirectory(backupDir);
  bool created = false;
  const bool ready = WithRetry(platform.Boxes, [&] {
    if (platform.Files.DirectoryExists(sdata)) return;
    platform.Files.CreateDirectories(sdata);
    created = true;
  });
  if (!ready) return std::nullopt;
  return MessageBox{.Text = created ? "The backup directory and files were successfully created."
                                    : "The backup data files were updated.",
                    .Icon = BoxIcon::Information};
}

std::string CopiedText(std::size_t files) { return Counted(files, "file was copied.", "files were copied."); }

// If both directories are one through a link, the files are already in place. Returns how many were copied; nullopt
// when that was given up.
std::optional<std::size_t> CopyDataFiles(const std::string& from, const std::string& to, std::string_view prefix,
                                         const Platform& platform) {
  std::vector<std::string> names;
  const bool listed = WithRetry(platform.Boxes, [&] {
    if (!platform.Files.IsSame(from, to)) names = platform.Files.ListFiles(from, prefix, kDataFileEnd);
  });
  if (!listed) return std::nullopt;
  const CopyOutcome outcome = CopyFilesByName(from, to, names, platform);
  if (outcome.IsStopped) {
    Inform(platform.Boxes, "Copying was cancelled.  Of " + Counted(names.size(), "file", "files") + ", " +
                               std::to_string(outcome.Copied) + " had been copied.");
  }
  return outcome.IsComplete ? std::optional(outcome.Copied) : std::nullopt;
}

// All subjects but unfinished first entries and removed ones.
constexpr std::array kCopiedPlaces = {SubjectPlace::Complete, SubjectPlace::Second, SubjectPlace::SecondUnfinished,
                                      SubjectPlace::First, SubjectPlace::Settled};

// Between a primary and a backup directory. Makes the directories of second entries if there are any.
std::optional<std::size_t> CopySubjects(const std::string& from, const std::string& to, std::string_view prefix,
                                        const Platform& platform) {
  std::size_t total = 0;
  for (const SubjectPlace place : kCopiedPlaces) {
    const std::string source = PlaceDirectory(from, place);
    const std::string target = PlaceDirectory(to, place);
    const bool isReady = place == SubjectPlace::Complete || WithRetry(platform.Boxes, [&] {
                           Disk& disk = platform.Files;
                           if (!disk.ListFiles(source, prefix, kDataFileEnd).empty()) disk.CreateDirectories(target);
                         });
    const auto copied = isReady ? CopyDataFiles(source, target, prefix, platform) : std::nullopt;
    if (!copied) return std::nullopt;
    total += *copied;
  }
  return total;
}

// Data files and companion files. Returns how many; nullopt when that was given up.
std::optional<std::size_t> CopyToBackup(const ProjectParameters& project, const Platform& platform) {
  const auto data = CopySubjects(project.PrimaryDir, project.BackupDir, "", platform);
  const auto companions = data ? BackUpCompanions(project, platform) : std::nullopt;
  return companions ? std::optional(*data + *companions) : std::nullopt;
}

// A file that was only copied back, say, may be newer and yet the same.
std::size_t CountNewer(const std::string& primary, const std::string& backup, std::string_view prefix,
                       const Platform& platform) {
  Disk& disk = platform.Files;
  if (disk.IsSame(primary, backup)) return 0;
  // By exact names, since looking a name up without regard to case lists the whole directory.
  std::map<std::string, std::string> copies;
  for (std::string& name : disk.ListFiles(backup, prefix, kDataFileEnd))
    copies.emplace(UpperCase(name), std::move(name));
  std::size_t newer = 0;
  std::string own, copy;
  ForEachFile(disk.ListFiles(primary, prefix, kDataFileEnd), platform.Bar, [&](const std::string& name) {
    const auto found = copies.find(UpperCase(name));
    if (found == copies.end()) return;
    const std::string file = JoinPath(primary, name);
    const std::string copyFile = JoinPath(backup, found->second);
    if (disk.ChangedAt(file) <= disk.ChangedAt(copyFile)) return;
    disk.Read(file, own);
    disk.Read(copyFile, copy);
    if (own != copy) ++newer;
  });
  return newer;
}

bool MayReplaceNewer(const std::string& primary, const std::string& backup, std::string_view prefix,
                     const Platform& platform) {
  std::size_t newer = 0;
  const auto count = [&] {
    newer = 0;
    for (const SubjectPlace place : kCopiedPlaces) {
      newer += CountNewer(PlaceDirectory(primary, place), PlaceDirectory(backup, place), prefix, platform);
    }
  };
  if (!WithRetry(platform.Boxes, count)) return false;
  return newer == 0 || Confirm(platform.Boxes, {.Text = std::to_string(newer) +
                                                        " data files in the primary directory are newer than their "
                                                        "backup copies.  Do you wish to replace them?",
                                                .Buttons = BoxButtons::YesNo,
                                                .Title = "Restore"});
}

// Also true when there is no such file.
bool CopyProjectFile(const std::string& name, const std::string& from, const std::string& to,
                     const Platform& platform) {
  return WithRetry(platform.Boxes, [&] {
    if (platform.Files.IsSame(from, to) || !platform.Files.FileExists(JoinPath(from, name))) return;
    platform.Files.Copy(JoinPath(from, name), JoinPath(to, name));
  });
}

std::optional<MessageBox> RefreshBackup(const ProjectParameters& project, const std::string& paramDir,
                                        const Platform& platform) {
  const BusyPointer busy(platform.Pointer);
  auto outcome = PrepareBackup(project.BackupDir, platform);
  if (!outcome) return std::nullopt;
  const auto copied = CopyToBackup(project, platform);
  if (!copied || !CopyProjectFile(project.ProjectFileName, paramDir, project.BackupDir, platform)) return std::nullopt;
  outcome->Details = CopiedText(*copied);
  return outcome;
}

// The typed directory, created if necessary; nullopt, after a message, when it cannot be the destination.
std::optional<std::string> CheckDestination(const ProjectParameters& project, const std::string& text,
                                            const Platform& platform) {
  const std::string directory = platform.Files.Drives().StoredDirectory(text);
  if (!HasDrive(directory)) {
    Warn(platform.Boxes, kNoDrivePath);
    return std::nullopt;
  }
  bool accepted = false;
  bool exists = false;
  WithRetry(platform.Boxes, [&] {
    platform.Files.Resolve(directory,
                           FileOperation::CreateDirectory);  // throws before any question if the drive is not ready
    if (!HasValidComponents(directory) || platform.Files.FileExists(directory)) {
      Warn(platform.Boxes, kInvalidBackup);
    } else if (platform.Files.IsSame(directory, project.PrimaryDir)) {
      Warn(platform.Boxes, kBackupIsPrimary);
    } else {
      exists = platform.Files.DirectoryExists(directory);
      accepted = true;
    }
  });
  if (accepted && !exists) {
    accepted = WantsCreated(directory, platform.Boxes) &&
               WithRetry(platform.Boxes, [&] { platform.Files.CreateDirectories(directory); });
  }
  return accepted ? std::optional(directory) : std::nullopt;
}

// The backup copy is in the current layout, in which data files have other names than in older projects: an older
// project restored from it would miss its data. So an older project gets its own parameter file.
bool WriteBackupCopy(const ProjectParameters& project, const std::string& projectFile, const Platform& platform) {
  if (project.FormatMarker != kCurrentMarker) {
    return WithRetry(platform.Boxes, [&] {
      if (platform.Files.IsSame(DirectoryOfPath(projectFile), project.BackupDir)) return;
      platform.Files.Copy(projectFile, ParameterFilePath(project.BackupDir, project));
    });
  }
  const std::string path = BackupCopyPath(project);
  const std::string content = FormatProject(project, kBackupMarker, project.PreviousBackupDir);
  return WithRetry(platform.Boxes, [&] { platform.Files.Write(path, content); });
}

void MakePrimary(const ProjectParameters& project, Disk& disk) {
  const std::string sdata = SubjectDirectory(project.PrimaryDir);
  if (IsNoDirectory(project.PrimaryDir)) {  // in older layouts; some platforms would create "(none)"
    throw FileError(FileOperation::CreateDirectory, sdata, FileCause::PathNotFound);
  }
  disk.CreateDirectories(sdata);
}

struct RestoreSource {
  std::string Directory;  // has `Sdata`
  bool IsBesideChosenFile = false;
};

// The backup may have moved since it was recorded; the chosen file then shows its location.
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

// A file of the project's name may be anything when the project comes from elsewhere.
void RequireReplaceable(const std::string& file, Disk& disk) {
  if (!disk.FileExists(file)) return;
  try {
    ReadProjectFile(disk, file);
  } catch (const FileError& error) {
    if (error.Cause() != FileCause::EndOfData) throw;
    throw FileError(FileOperation::Write, file, std::make_error_code(std::errc::file_exists),
                    "A file that is no project is not replaced.");
  }
}

// What a backup copy's project is once restored, and also when its restore was given up: the directories that its owner
// chose, and the layout whose file names all its subjects have.
ProjectParameters WithoutBackupCopy(const ProjectParameters& project) {
  ProjectParameters own = project;
  own.BackupDir = std::exchange(own.PreviousBackupDir, {});
  own.FormatMarker = kCurrentMarker;
  return own;
}

// Writes the parameter file again and reads the project from it.
bool RestoreParameters(ProjectParameters& project, const std::string& paramDir, const Platform& platform) {
  if (!WriteProjectFile(project, paramDir, /*restoring=*/true, platform.Files, platform.Boxes)) return false;
  return WithRetry(platform.Boxes,
                   [&] { project = ReadProjectFile(platform.Files, ParameterFilePath(paramDir, project)); });
}

MessageBox NoBackupMessage() {
  return {.Text =
              "There was not a backup location for this project.  If you saved one manually you can create an "
              "'Sdata' folder in your primary directory and copy all data (.dat) files to it.  You can determine "
              "your primary directory by selecting 'Options', 'View Parameters', then 'Next'.",
          .Icon = BoxIcon::Exclamation};
}

}  // namespace

BackupOutcome BeginBackup(const ProjectParameters& project, const std::string& paramDir, const Platform& platform) {
  if (IsNoDirectory(project.BackupDir)) return {.AsksDestination = true};
  const BoxAnswer answer = platform.Boxes.Show(
      {.Text = "This feature will create a new backup of all the entered data for the current project.  This project's "
               "data already has a backup location at: '" +
               project.BackupDir +
               "'.  To recreate or refresh the data at this location, select 'No'.  Do you want to specify a new "
               "backup location?",
       .Icon = BoxIcon::Question,
       .Buttons = BoxButtons::YesNoCancel,
       .Default = BoxAnswer::No});
  if (answer == BoxAnswer::No) return {.Message = RefreshBackup(project, paramDir, platform)};
  return {.AsksDestination = answer == BoxAnswer::Yes};
}

std::optional<MessageBox> BackUpTo(ProjectParameters& project, const std::string& text, const SavedProject& saved,
                                   const Platform& platform) {
  const auto destination = CheckDestination(project, text, platform);
  if (!destination) return std::nullopt;
  const BusyPointer busy(platform.Pointer);
  auto outcome = PrepareBackup(*destination, platform);
  if (!outcome) return std::nullopt;
  project.PreviousBackupDir = saved.BackupDir;
  project.BackupDir = *destination;
  const auto copied = CopyToBackup(project, platform);
  if (!copied || !WriteBackupCopy(project, saved.File, platform)) return std::nullopt;
  outcome->Details = CopiedText(*copied);
  return outcome;
}

bool WantsRestore(MessageBoxes& boxes) {
  return Confirm(
      boxes, {.Text = "This procedure will allow you to select a parameter (.prm) file for a project.  The file can be "
                      "found in the 'Param' directory.  Backups can also be found in the primary or backup directories "
                      "of a project.  Once the file is selected, ZOVA will copy all appropriate files and directories "
                      "from the backup location to the primary location.  ZOVA will overwrite all existing data (.dat) "
                      "files in primary directory that are related to the project.  Do you wish to continue?",
              .Title = "Restore from Backup"});
}

std::optional<MessageBox> RestoreData(ProjectParameters& project, const std::string& path, const std::string& paramDir,
                                      const Platform& platform) {
  const BusyPointer busy(platform.Pointer);
  const ProjectParameters chosen = project;
  const bool isBackupCopy = chosen.FormatMarker == kBackupMarker;
  if (isBackupCopy) project = WithoutBackupCopy(chosen);
  if (IsNoDirectory(chosen.BackupDir)) return NoBackupMessage();
  RestoreSource source;
  const auto requireReplaceable = [&] {
    RequireReplaceable(ParameterFilePath(paramDir, chosen), platform.Files);
    if (isBackupCopy) RequireReplaceable(ParameterFilePath(chosen.PrimaryDir, chosen), platform.Files);
  };
  if (!WithRetry(platform.Boxes, requireReplaceable) ||
      !WithRetry(platform.Boxes, [&] { MakePrimary(chosen, platform.Files); }) ||
      !WithRetry(platform.Boxes, [&] { source = FindBackup(chosen, path, platform.Files); })) {
    return std::nullopt;
  }
  if (!MayReplaceNewer(chosen.PrimaryDir, source.Directory, SavedPrefix(chosen), platform)) return std::nullopt;
  const auto companions = ChooseCompanions(chosen, source.Directory, platform);
  if (!companions) return std::nullopt;
  const auto copied = CopySubjects(source.Directory, chosen.PrimaryDir, SavedPrefix(chosen), platform);
  if (!copied || !CopyFilesByName(source.Directory, chosen.PrimaryDir, *companions, platform).IsComplete) {
    return std::nullopt;
  }
  const bool done = isBackupCopy ? RestoreParameters(project, paramDir, platform)
                                 : CopyProjectFile(chosen.ProjectFileName, source.Directory, paramDir, platform);
  if (!done) return std::nullopt;
  MessageBox message{.Text = "The data was successfully restored.",
                     .Icon = BoxIcon::Information,
                     .Title = "Restore",
                     .Details = CopiedText(*copied + companions->size())};
  if (source.IsBesideChosenFile) {
    message.Details += "  The data files were taken from '" + SubjectDirectory(source.Directory) + "'.";
  }
  return message;
}

}  // namespace zova
