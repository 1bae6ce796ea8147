// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "project/ProjectParameters.h"
#include "subjects/RecallLists.h"

namespace zova {

/// Where a list has to be looked at again, and why.
struct CheckFinding {
  int Test = 0;
  int Position = 0;
  int Column = 1;       ///< 1 item, 2 minute, 3 rating
  std::string Message;  ///< a fault's text, or a warning's question
};

struct CheckResult {
  std::optional<CheckFinding> Fault;   ///< the first ends the checks
  std::vector<CheckFinding> Warnings;  ///< to be asked one by one; only without a fault
};

/// Gaps and ratings of all tests, then minutes, then what to warn of. Counts each test's recalls anew and drops ratings
/// on lines without an item, as far as it comes.
CheckResult CheckLists(RecallLists& lists, const ProjectParameters& project);

/// The first item that one test has twice (lowest test, smallest first position): the later entry is removed, what
/// follows moves up, and the test is counted anew. Its message tells so; its position is the removed one. Nothing when
/// there is none.
std::optional<CheckFinding> RemoveFirstDuplicate(RecallLists& lists);

}  // namespace zova
