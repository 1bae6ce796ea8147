// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>

#include "platform/desktop/Platform.h"
#include "project/ProjectLayout.h"
#include "subjects/SubjectRecord.h"

namespace zova {

/// True for a valid identifier: not blank, at most 20 characters, usable in a file name.
bool IsSubjectId(std::string_view text);

/// The result of a save.
struct SaveOutcome {
  /// False when the user declined, or cancelled after a fault: what was entered is unchanged, copies already written
  /// stay.
  bool Saved = false;
  bool UnfinishedEmptied = false;  ///< the directory of unfinished subjects became empty and was deleted
};

/// Writes the subject to the primary and backup directories, as incomplete if its note is not empty, else as complete,
/// after a question for each file there with a content that is not known (SubjectRecord::KnownFiles).
/// After both copies exist, deletes a completed subject's unfinished copies, then the autosave file in `paramDir`,
/// informs the user, and blanks a completed subject's lists.
SaveOutcome SaveSubject(SubjectRecord& record, const ProjectParameters& project, const std::string& paramDir,
                        const Platform& platform);

}  // namespace zova
