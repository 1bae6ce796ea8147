// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "project/ProjectParameters.h"
#include "subjects/RecallLists.h"

namespace zova {

/// One subject: the one being entered, or the one of a run that is being scored.
struct SubjectRecord {
  std::string SubjectId;                             ///< 1 to 20 characters
  std::array<std::int16_t, kMaxVariables> Levels{};  ///< per variable, from index 0: the level's number, from 1
  RecallLists Lists;
  std::string UnfinishedNote;  ///< not empty while the subject is kept as incomplete
  bool HasUnsavedChanges = false;

  bool operator==(const SubjectRecord&) const = default;
};

/// Blanks the lists and their counts, in the shape that the project asks for. Identifier and levels stay.
void ResetLists(SubjectRecord& record, const ProjectParameters& project);

}  // namespace zova
