// SPDX-License-Identifier: GPL-3.0-or-later
//
// Rows always go to the master in the primary directory: with a destination elsewhere, that one gets the header alone,
// and an older master in the primary directory keeps its lines above the new rows. This is the rule, and is kept.

#include "master/run/RunPaths.h"

#include <algorithm>

#include "master/columns/MasterLines.h"
#include "master/run/OwnFiles.h"
#include "text/Encoding.h"
#include "text/TypedText.h"

namespace zova {

namespace fs = std::filesystem;

namespace {

// The path that a box's or option's text stands for; `name` is the file's when none is given.
std::string ResolveFile(const std::string& text, std::string_view name, const ProjectParameters& project,
                        const DriveMap& drives) {
  const std::string_view typed = WithoutOuterBlanks(text);
  std::string path = drives.ToDrivePath(typed);
  const bool hasDrive = path.size() > 1 && path[1] == ':';
  if (hasDrive && path.find_first_of("\\/") != 2) path.insert(2, "\\");
  const bool isDirectory =
      typed.empty() || typed.ends_with('\\') || typed.ends_with('/') || (hasDrive && path.size() == 3);
  const bool isBelowPrimary = !hasDrive && !path.starts_with('/') && path.find('\\') == std::string::npos;
  if (isBelowPrimary) path = JoinPath(project.PrimaryDir, path);
  if (!isDirectory) return path;
  if (!path.ends_with('/')) path = JoinPath(path, "");
  return path.append(name);
}

// Up to and including the last separator.
std::string DirectoryOf(const std::string& path) {
  return path.substr(0, path.size() - LastPathComponent(path).size());
}

std::vector<std::string> PiecePaths(const char* name, int columnCount, const ProjectParameters& project) {
  std::vector<std::string> paths;
  if (columnCount <= kMaxColumnsUnsplit) return paths;
  for (int piece = 1; piece <= columnCount / kMaxColumnsUnsplit + 1; ++piece) {
    paths.push_back(JoinPath(project.PrimaryDir, project.Abbreviation + name + std::to_string(piece) + ".txt"));
  }
  return paths;
}

// Also by a link, and where neither is there yet: once the first is written, the other's spelling finds it.
bool IsSameFile(const fs::path& left, const fs::path& right) {
  std::error_code code;
  if (fs::exists(left, code) && fs::exists(right, code)) return fs::equivalent(left, right, code);
  return EqualsIgnoringCase(PathText(left.filename()), PathText(right.filename())) &&
         (left.parent_path() == right.parent_path() || fs::equivalent(left.parent_path(), right.parent_path(), code));
}

}  // namespace

std::string ResolveDestination(const std::string& text, const ProjectParameters& project, const DriveMap& drives) {
  return ResolveFile(text, LastPathComponent(DefaultMasterPath(project)), project, drives);
}

RunPaths IndividualPaths(const MasterRequest& request, int columnCount, const ProjectParameters& project,
                         const DriveMap& drives) {
  const std::string header = ResolveDestination(request.Destination, project, drives);
  const std::string stem = DirectoryOf(header) + project.Abbreviation;
  const auto exportPath = [&](const std::optional<std::string>& asked, const char* name) -> std::string {
    if (!asked) return "";
    return asked->empty() ? stem + name : ResolveFile(*asked, project.Abbreviation + name, project, drives);
  };
  return {.Master = {header, DefaultMasterPath(project), PiecePaths(" Master", columnCount, project)},
          .Serial = request.Order ? stem + " Serial Position Master.txt" : "",
          .Combined = request.CombinedFollows ? CombinedPaths(request.Destination, 0, project, drives).Master.Rows : "",
          .Clean = exportPath(request.CleanFile, " Clean.csv"),
          .Long = exportPath(request.LongFile, " Long.csv")};
}

RunPaths CombinedPaths(const std::string& destination, int columnCount, const ProjectParameters& project,
                       const DriveMap& drives) {
  const std::string path =
      DirectoryOf(ResolveDestination(destination, project, drives)) + project.Abbreviation + " Combined Master.txt";
  return {.Master = {path, path, PiecePaths(" Combined Master", columnCount, project)},
          .Serial = "",
          .Combined = "",
          .Clean = "",
          .Long = ""};
}

// Header and rows are of one master, and pieces have names of their own. Of all else the later file would take the
// place of the earlier one.
void CheckRunPaths(const RunPaths& paths, const ProjectParameters& project, Disk& disk) {
  std::vector<std::string> all = {paths.Master.Header, paths.Master.Rows};
  all.insert(all.end(), paths.Master.Pieces.begin(), paths.Master.Pieces.end());
  const std::size_t ofMaster = all.size();
  for (const std::string& path : {paths.Serial, paths.Combined, paths.Clean, paths.Long}) {
    if (!path.empty()) all.push_back(path);
  }
  std::vector<fs::path> natives;
  for (const std::string& path : all) {
    RefuseOwnFile(path, project, disk);
    const fs::path native = disk.Resolve(path, FileOperation::Write);
    if (std::error_code code; !fs::is_directory(native.parent_path(), code)) {
      throw FileError(FileOperation::Write, path, std::make_error_code(std::errc::no_such_file_or_directory));
    }
    const auto isTaken = [&](const fs::path& other) { return IsSameFile(native, other); };
    if (natives.size() >= ofMaster && std::any_of(natives.begin(), natives.end(), isTaken)) {
      throw FileError(FileOperation::Write, path, std::make_error_code(std::errc::file_exists),
                      "Each file of a run needs a name of its own.");
    }
    natives.push_back(native);
  }
}

}  // namespace zova
