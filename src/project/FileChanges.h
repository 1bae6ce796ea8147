// SPDX-License-Identifier: GPL-3.0-or-later
//
// Changes of several files of a project that are all made or none. Before the first one a journal is written, which
// holds every file before and after. A program that was interrupted leaves it behind, and the next one to open the
// project completes the changes from it.
//
// The journal ".zova-<abbreviation>.journal" in the primary directory, with LF as line end:
//
//   ZOVA changes
//   <what is changed>
//   <primary or backup>/<names of directories, and of the file, with "/" between them>     for each file
//   <length or "none">
//   <the bytes before>
//   <length or "none">
//   <the bytes after>
//   end
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/desktop/Platform.h"
#include "project/ProjectParameters.h"

namespace zova {

/// A file before and after a change; nullopt where there is none.
struct FileChange {
  bool InBackup = false;  ///< below the backup directory, else below the primary one
  std::string Name;       ///< below that, with "/" between names
  std::optional<std::string> Before;
  std::optional<std::string> After;

  bool operator==(const FileChange&) const = default;
};

struct FileChanges {
  std::string What;  ///< one line, for messages: "Renaming subject 'a' to 'b'"
  std::vector<FileChange> Files;

  bool operator==(const FileChanges&) const = default;
};

std::string JournalPath(const ProjectParameters& project);
std::string FormatJournal(const FileChanges& changes);
/// nullopt for a text that is no whole journal, or that names a file outside the two directories.
std::optional<FileChanges> ParseJournal(std::string_view bytes);

/// Makes the changes, which were just planned, in their order, each with Retry. False when the user cancelled; then
/// they are undone.
bool MakeChanges(const FileChanges& changes, const ProjectParameters& project, const Platform& platform);

/// Completes the changes of an interrupted program, if there are any. A file that has changed since is left as it is
/// and named in a message; then no file is replaced or deleted in exchange for one that could not be made. False when
/// that was given up: then nothing else may be changed.
bool FinishInterruptedChanges(const ProjectParameters& project, const Platform& platform);

}  // namespace zova
