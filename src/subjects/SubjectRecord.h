// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "project/ProjectLayout.h"
#include "project/ProjectParameters.h"
#include "subjects/RecallLists.h"

namespace zova {

/// A subject file and what it held when it was loaded, saved or accepted for replacement.
struct KnownFile {
  std::string Path;
  std::string Content;

  bool operator==(const KnownFile&) const = default;
};

/// The subject being entered or scored.
struct SubjectRecord {
  std::string SubjectId;                             ///< 1 to 20 characters
  std::array<std::int16_t, kMaxVariables> Levels{};  ///< per variable: the level's number, from 1
  RecallLists Lists;
  WhichEntry Which = WhichEntry::First;
  std::string UnfinishedNote;  ///< not empty for an incomplete subject
  bool HasUnsavedChanges = false;
  /// Corrects a complete subject. Else the subject is entered anew: what it was settled from no longer holds.
  bool IsCorrection = false;
  std::vector<KnownFile> KnownFiles;  ///< the files that a save replaces without a question unless they have changed

  bool operator==(const SubjectRecord&) const = default;
};

/// Blanks the lists and sizes them for the project. Keeps identifier and levels.
void ResetLists(SubjectRecord& record, const ProjectParameters& project);

void NoteKnownFile(SubjectRecord& record, const std::string& path, const std::string& content);

}  // namespace zova
