// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "project/ProjectParameters.h"
#include "subjects/SubjectRecord.h"

namespace zova {

/// A doubtful or faulty place in a list.
struct CheckFinding {
  int Test = 0;
  int Position = 0;
  int Column = 1;       ///< 1 item, 2 minute, 3 rating
  std::string Message;  ///< the text of a fault or the question of a warning
  int Item = 0;         ///< that the message names
};

struct CheckResult {
  std::optional<CheckFinding> Fault;   ///< the first one; it ends the checks
  std::vector<CheckFinding> Warnings;  ///< to be asked one by one; empty after a fault
};

/// Checks gaps and ratings of all tests, then minutes, then what to warn of. Up to the first fault, recounts each
/// test's recalls and drops ratings on lines without an item.
CheckResult CheckLists(RecallLists& lists, const ProjectParameters& project);

/// The kinds of checks that the subject fails, of all tests: "gaps, ratings, minutes, duplicates, numbers out of
/// range"; "" for none.
std::string FailedChecks(const SubjectRecord& record, const ProjectParameters& project);

/// Removes the later entry of the first repeated item (lowest test, smallest first position), moves the following
/// entries up and recounts the test. Returns the message and the position removed; nullopt without repetition.
std::optional<CheckFinding> RemoveFirstDuplicate(RecallLists& lists);

/// The first value that cannot be typed and thus came from a file: a level, or an item, minute or rating in a used
/// column, with the question whether to save it. Test and position of a level are 0.
std::optional<CheckFinding> FindOutOfRange(const SubjectRecord& record, const ProjectParameters& project);

}  // namespace zova
