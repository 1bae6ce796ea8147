// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "project/ProjectParameters.h"
#include "scoring/RunError.h"
#include "subjects/RecallLists.h"

namespace zova {

/// The recall's minute. Throws RunError (SubscriptOutOfRange) when it is outside 1 to the project's minutes.
inline int MinuteInRange(const Recall& recall, int test, const ProjectParameters& project) {
  if (recall.Minute < 1 || recall.Minute > project.MaxMinutes) {
    throw RunError(RunFault::SubscriptOutOfRange,
                   "minute " + std::to_string(recall.Minute) + " of item " + std::to_string(recall.Item) +
                       " on test " + std::to_string(test) + " is outside 1 to " + std::to_string(project.MaxMinutes));
  }
  return recall.Minute;
}

}  // namespace zova
