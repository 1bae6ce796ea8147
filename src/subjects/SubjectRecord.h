// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "project/ProjectParameters.h"
#include "subjects/RecallLists.h"

namespace zova {

/// The subject being entered or scored.
struct SubjectRecord {
  std::string SubjectId;                             ///< 1 to 20 characters
  std::array<std::int16_t, kMaxVariables> Levels{};  ///< per variable: the level's number, from 1
  RecallLists Lists;
  std::string UnfinishedNote;  ///< not empty for an incomplete subject
  bool HasUnsavedChanges = false;

  bool operator==(const SubjectRecord&) const = default;
};

/// Blanks the lists and sizes them for the project. Keeps identifier and levels.
void ResetLists(SubjectRecord& record, const ProjectParameters& project);

}  // namespace zova
