// SPDX-License-Identifier: GPL-3.0-or-later
//
// Identifies a file by its real directory and its name, in constant time for any number of subjects. Only a file with
// several hard links is compared with the files themselves.

#include "project/ProtectedFiles.h"

#include <algorithm>
#include <system_error>
#include <vector>

#include "platform/desktop/FileErrorBoxes.h"
#include "project/ProjectLayout.h"
#include "text/Encoding.h"

namespace zova {

namespace {

enum class Masters { Free, Kept };

// On a drive that is not ready, or in a directory without access, there is no file that this user could replace.
void AddDirectory(const std::string& directory, Disk& disk, std::vector<ResolvedPath>& directories) {
  try {
    directories.push_back(disk.Resolve(directory, FileOperation::Write));
  } catch (const FileError& error) {
    if (error.Cause() == FileCause::System && error.Code() != std::errc::permission_denied) throw;
  }
}

std::vector<ResolvedPath> ProjectDirectories(const ProjectParameters& project, Disk& disk) {
  std::vector<ResolvedPath> directories;
  for (const std::string& directory : {project.PrimaryDir, project.BackupDir}) {
    if (!IsNoDirectory(directory)) AddDirectory(directory, disk, directories);
  }
  return directories;
}

std::vector<ResolvedPath> SubjectDirectories(const ProjectParameters& project, Disk& disk) {
  std::vector<ResolvedPath> directories;
  for (const std::string& directory : {project.PrimaryDir, project.BackupDir}) {
    if (IsNoDirectory(directory)) continue;
    for (const SubjectPlace place : kSubjectPlaces) {
      AddDirectory(PlaceDirectory(directory, place), disk, directories);
      AddDirectory(PlaceBelow(RemovedDirectory(directory), place), disk, directories);
    }
  }
  return directories;
}

bool IsAnyOf(const std::vector<ResolvedPath>& directories, const ResolvedPath& directory, Disk& disk) {
  return std::any_of(directories.begin(), directories.end(),
                     [&](const ResolvedPath& other) { return disk.IsSame(directory, other); });
}

// Looks up the project's directories only for a name that needs them: looking up a missing `Unfinished` lists all of
// `Sdata`. They may be links to directories of other names.
bool IsNamedAsSubject(const ResolvedPath& file, const ProjectParameters& project, Disk& disk) {
  if (!EndsIgnoringCase(NameOf(file), kDataFileEnd)) return false;
  const ResolvedPath directory = DirectoryOf(file);
  return IsSubjectDirectoryName(NameOf(directory)) || IsAnyOf(SubjectDirectories(project, disk), directory, disk);
}

bool IsNamedAsOwn(const ResolvedPath& file, const ProjectParameters& project, Masters masters, Disk& disk) {
  const std::string name = NameOf(file);
  if (EndsIgnoringCase(name, kParameterFileEnd) || IsOrderName(name) || IsCompanionName(name)) return true;
  if (IsNamedAsSubject(file, project, disk)) return true;
  const ResolvedPath directory = DirectoryOf(file);
  if (masters == Masters::Kept && IsMasterName(name, project)) {
    return IsAnyOf(ProjectDirectories(project, disk), directory, disk);
  }
  return IsAutosaveName(name) && IsParamName(NameOf(directory));
}

bool IsLinkedToOwn(const ResolvedPath& file, const ProjectParameters& project, Masters masters, Disk& disk) {
  std::vector<ResolvedPath> directories = ProjectDirectories(project, disk);
  for (ResolvedPath& directory : SubjectDirectories(project, disk)) directories.push_back(std::move(directory));
  for (const ResolvedPath& directory : directories) {
    const ResolvedPath real = disk.ResolveLinks(directory, FileOperation::Write);
    for (const std::string& name : disk.NamesOf(file, directory)) {
      if (IsNamedAsOwn(Below(real, name), project, masters, disk)) return true;
    }
  }
  return false;
}

bool IsOwn(const std::string& path, const ProjectParameters& project, Masters masters, Disk& disk) {
  const ResolvedPath file = disk.Resolve(path, FileOperation::Write);
  const ResolvedPath real = disk.ResolveLinks(file, FileOperation::Write);
  const EntryKind kind = disk.Kind(real, FileOperation::Write);
  if (kind != EntryKind::File && kind != EntryKind::Missing) return false;
  for (const ResolvedPath& name : {real, file}) {  // a link in the project's directories counts as a file there
    const bool isTaken = kind == EntryKind::File ? IsNamedAsOwn(name, project, masters, disk)
                                                 : IsOrderName(NameOf(name)) || IsCompanionName(NameOf(name)) ||
                                                       IsNamedAsSubject(name, project, disk);
    if (isTaken) return true;
  }
  return kind == EntryKind::File && disk.LinkCount(real) > 1 && IsLinkedToOwn(real, project, masters, disk);
}

}  // namespace

bool IsProjectFile(const std::string& path, const ProjectParameters& project, Disk& disk) {
  return IsOwn(path, project, Masters::Free, disk);
}

bool IsProtectedFile(const std::string& path, const ProjectParameters& project, Disk& disk) {
  return EndsIgnoringCase(path, kParameterFileEnd) || EndsIgnoringCase(path, kDataFileEnd) ||
         IsOwn(path, project, Masters::Kept, disk);
}

bool WriteNamedFile(const std::string& path, const std::function<std::string()>& content,
                    const std::function<bool(const std::string& path)>& isKept, const Platform& platform) {
  const BusyPointer busy(platform.Pointer);
  bool kept = false;
  const bool isDone = WithRetry(platform.Boxes, [&] {
    kept = isKept(path);
    if (!kept) platform.Files.Write(path, content());
  });
  if (kept) {
    Warn(platform.Boxes, "A master or a data file of a project is never replaced.  Please select another name.", path);
  }
  return isDone && !kept;
}

}  // namespace zova
