// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/desktop/Platform.h"
#include "subjects/SubjectRecord.h"

namespace zova {

/// False for what cannot be a subject's identifier: blank, longer than 20 characters, or no part of a file's name.
bool IsSubjectId(std::string_view text);

/// Where a project's subject files lie, below a primary or backup directory.
std::string SubjectDirectory(const std::string& directory);
std::string UnfinishedDirectory(const std::string& directory);

/// The name of a subject's file: abbreviation + " Sub#" + identifier + ".dat" when the project's marker begins with
/// "VB", else without " Sub#".
std::string SubjectFileName(const ProjectParameters& project, std::string_view subjectId);

/// The identifier in the name of a listed file: without the expected prefix (in either case) and ".dat". A name without
/// that prefix is another project's; its whole name without ".dat" shows it.
std::string SubjectIdFromFileName(const ProjectParameters& project, std::string_view path);

/// The names of the project's files in a directory (abbreviation + anything + ".dat"), in the order of a master's
/// rows. Throws FileError.
std::vector<std::string> ListSubjectFiles(Disk& disk, const ProjectParameters& project, const std::string& directory);

/// What a save did.
struct SaveOutcome {
  bool Saved = false;  ///< false: the user gave up a failed step. The record is as it was; copies already written stay
  bool UnfinishedEmptied = false;  ///< the directory of unfinished subjects holds no file any more, and went
};

/// Writes the subject to the primary and backup directories: as incomplete when its note is not empty, else as
/// complete. After both copies stand, the unfinished copies of a completed subject go, then the autosave file in
/// `paramDir`; the user is told, and a completed subject's lists are blanked.
SaveOutcome SaveSubject(SubjectRecord& record, const ProjectParameters& project, const std::string& paramDir,
                        const Platform& platform);

}  // namespace zova
