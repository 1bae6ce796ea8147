// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "master/run/MasterRun.h"
#include "platform/files/Disk.h"
#include "project/ProjectLayout.h"
#include "project/ProjectParameters.h"

namespace zova {

/// Where the header of a master goes, its rows, and both in pieces when it is wide.
struct RowPaths {
  std::string Header;
  std::string Rows;
  std::vector<std::string> Pieces;
};

/// The files that a run writes; "" is one that was not asked for.
struct RunPaths {
  RowPaths Master;
  std::string Serial;
  std::string Combined;  ///< written by the next run
  std::string Clean;
  std::string Long;
  std::string Groups;  ///< written by the next run, too
};

/// The path that the destination box's `text` stands for, without the blanks around it: a path of the platform becomes
/// a drive path, one that ends with a separator gets the master's name, a drive without a path means its root, what has
/// no backslash lies below the primary directory, and an empty text is the default.
std::string ResolveDestination(const std::string& text, const ProjectParameters& project, const DriveMap& drives);

RunPaths IndividualPaths(const MasterRequest& request, int columnCount, const ProjectParameters& project,
                         const DriveMap& drives);
RunPaths CombinedPaths(const std::string& destination, const std::optional<std::string>& groupsFile, int columnCount,
                       const ProjectParameters& project, const DriveMap& drives);

/// Throws FileError for a file that cannot be written, before any is emptied: one without its directory, one of the
/// project's own, one with the name of a piece, in a Param directory, one that is also another file of the run, or one
/// that cannot be opened.
void CheckRunPaths(const RunPaths& paths, const ProjectParameters& project, Disk& disk);

/// The names of the pieces behind the first `pieceCount` of a master. A fault leaves names out.
std::vector<std::string> OlderPieces(ResultFile master, std::size_t pieceCount, const ProjectParameters& project,
                                     Disk& disk);

}  // namespace zova
