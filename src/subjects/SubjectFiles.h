// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>

#include "platform/desktop/Platform.h"
#include "project/ProjectLayout.h"
#include "subjects/SubjectRecord.h"

namespace zova {

/// False for what cannot be a subject's identifier: blank, longer than 20 characters, or no part of a file's name.
bool IsSubjectId(std::string_view text);

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
