// SPDX-License-Identifier: GPL-3.0-or-later
//
// Rows always go to the master in the primary directory: with a destination elsewhere, that one gets the header alone,
// and an older master in the primary directory keeps its lines above the new rows. This is the rule, and is kept.

#include "master/run/RunPaths.h"

#include <algorithm>

#include "master/columns/MasterLines.h"
#include "platform/files/FileFaults.h"
#include "project/ProjectLayout.h"
#include "project/ProtectedFiles.h"
#include "text/Encoding.h"
#include "text/TypedText.h"

namespace zova {

namespace {

// The path that a box's or option's text stands for; `name` is the file's when none is given.
std::string ResolveFile(const std::string& text, std::string_view name, const ProjectParameters& project,
                        const DriveMap& drives) {
  const std::string_view typed = WithoutOuterBlanks(text);
  std::string path = FromDriveRoot(drives.ToDrivePath(typed));
  if (CanStandBelow(path)) path = JoinPath(project.PrimaryDir, path);
  return EndsWithSeparator(typed) || EndsWithSeparator(path) ? JoinPath(path, name) : path;
}

// A result in the directory of the master's header.
std::string Beside(const std::string& header, ResultFile file, const ProjectParameters& project) {
  return std::string(PathPrefix(header)) + ResultName(project, file);
}

std::string ExportPath(const std::optional<std::string>& asked, ResultFile file, const std::string& header,
                       const ProjectParameters& project, const DriveMap& drives) {
  if (!asked) return "";
  return asked->empty() ? Beside(header, file, project)
                        : ResolveFile(*asked, ResultName(project, file), project, drives);
}

std::vector<std::string> PiecePaths(ResultFile master, int columnCount, const ProjectParameters& project) {
  std::vector<std::string> paths;
  if (columnCount <= kMaxColumnsUnsplit) return paths;
  const int whole = columnCount / kMaxColumnsUnsplit;
  const std::size_t count = static_cast<std::size_t>(whole) + 1;
  for (std::size_t piece = 1; piece <= count; ++piece) paths.push_back(PiecePath(project, master, piece));
  return paths;
}

void RefuseProjectFile(const std::string& path, const ProjectParameters& project, Disk& disk) {
  if (!IsProjectFile(path, project, disk)) return;
  throw FileError(FileOperation::Write, path, std::make_error_code(std::errc::file_exists),
                  "A master cannot take the place of a project's own file.");
}

bool IsInPrimary(const ResolvedPath& file, const ProjectParameters& project, Disk& disk) {
  return disk.IsSame(DirectoryOf(file), disk.Resolve(project.PrimaryDir, FileOperation::Write));
}

// A project whose data lie there all the same keeps its masters.
void RefuseParam(const ResolvedPath& file, const ProjectParameters& project, Disk& disk) {
  for (const ResolvedPath& place : {file, disk.ResolveLinks(file, FileOperation::Write)}) {
    if (!IsParamName(NameOf(DirectoryOf(place))) || IsInPrimary(place, project, disk)) continue;
    throw FileError(FileOperation::Write, file.Shown, std::make_error_code(std::errc::operation_not_permitted),
                    "A master does not go into a directory 'Param'.");
  }
}

// A wider master would replace it.
void RefusePieceName(const ResolvedPath& file, const ProjectParameters& project, Disk& disk) {
  const std::string name = NameOf(file);
  const auto isNameOf = [&](ResultFile whole) { return EqualsIgnoringCase(name, ResultName(project, whole)); };
  const bool isWhole =
      isNameOf(ResultFile::Master) || isNameOf(ResultFile::CombinedMaster) || isNameOf(ResultFile::SerialMaster);
  if (isWhole || !IsMasterName(name, project) || !IsInPrimary(file, project, disk)) return;
  throw FileError(FileOperation::Write, file.Shown, std::make_error_code(std::errc::file_exists),
                  "The pieces of a wide master have this name.");
}

}  // namespace

std::string ResolveDestination(const std::string& text, const ProjectParameters& project, const DriveMap& drives) {
  return ResolveFile(text, LastPathComponent(DefaultMasterPath(project)), project, drives);
}

RunPaths IndividualPaths(const MasterRequest& request, int columnCount, const ProjectParameters& project,
                         const DriveMap& drives) {
  const std::string header = ResolveDestination(request.Destination, project, drives);
  return {.Master = {header, DefaultMasterPath(project), PiecePaths(ResultFile::Master, columnCount, project)},
          .Serial = request.Order ? Beside(header, ResultFile::SerialMaster, project) : "",
          .Combined = request.CombinedFollows ? Beside(header, ResultFile::CombinedMaster, project) : "",
          .Clean = ExportPath(request.CleanFile, ResultFile::CleanCsv, header, project, drives),
          .Long = ExportPath(request.LongFile, ResultFile::LongCsv, header, project, drives),
          .Groups = ExportPath(request.GroupsFile, ResultFile::GroupsCsv, header, project, drives)};
}

RunPaths CombinedPaths(const std::string& destination, const std::optional<std::string>& groupsFile, int columnCount,
                       const ProjectParameters& project, const DriveMap& drives) {
  const std::string header = ResolveDestination(destination, project, drives);
  const std::string path = Beside(header, ResultFile::CombinedMaster, project);
  return {.Master = {path, path, PiecePaths(ResultFile::CombinedMaster, columnCount, project)},
          .Serial = "",
          .Combined = "",
          .Clean = "",
          .Long = "",
          .Groups = ExportPath(groupsFile, ResultFile::GroupsCsv, header, project, drives)};
}

// Header and rows are of one master. Of all else the later file would take the place of the earlier one.
void CheckRunPaths(const RunPaths& paths, const ProjectParameters& project, Disk& disk) {
  constexpr std::size_t kOfOneFile = 2;
  std::vector<std::string> all = {paths.Master.Header, paths.Master.Rows};
  all.insert(all.end(), paths.Master.Pieces.begin(), paths.Master.Pieces.end());
  const std::size_t ofMaster = all.size();
  for (const std::string& path : {paths.Serial, paths.Combined, paths.Clean, paths.Long, paths.Groups}) {
    if (!path.empty()) all.push_back(path);
  }
  std::vector<ResolvedPath> files;
  for (const std::string& path : all) {
    RefuseProjectFile(path, project, disk);
    ResolvedPath file = disk.Resolve(path, FileOperation::Write);
    if (disk.Kind(DirectoryOf(file), FileOperation::Write) != EntryKind::Directory) {
      throw FileError(FileOperation::Write, path, FileCause::PathNotFound);
    }
    RefuseParam(file, project, disk);
    const bool isPiece = files.size() >= kOfOneFile && files.size() < ofMaster;
    if (!isPiece) RefusePieceName(file, project, disk);
    const auto isTaken = [&](const ResolvedPath& other) { return disk.IsSame(file, other); };
    if (files.size() >= kOfOneFile && std::any_of(files.begin(), files.end(), isTaken)) {
      throw FileError(FileOperation::Write, path, std::make_error_code(std::errc::file_exists),
                      "Each file of a run needs a name of its own.");
    }
    files.push_back(std::move(file));
  }
  for (const ResolvedPath& file : files) RequireOpens(disk.Layer(), file);
}

// Nothing that can be said at the end is worth a question then.
std::vector<std::string> OlderPieces(ResultFile master, std::size_t pieceCount, const ProjectParameters& project,
                                     Disk& disk) {
  std::vector<std::string> names;
  try {
    for (std::size_t piece = pieceCount + 1; disk.FileExists(PiecePath(project, master, piece)); ++piece) {
      names.emplace_back(LastPathComponent(PiecePath(project, master, piece)));
    }
  } catch (const FileError&) {
    return names;
  }
  return names;
}

}  // namespace zova
