// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "project/ProjectParameters.h"
#include "scoring/ScoringError.h"
#include "subjects/RecallLists.h"

namespace zova {

/// Throws ScoringError (SubscriptOutOfRange) for a minute outside the test.
[[noreturn]] void ThrowMinuteOutOfRange(const Recall& recall, int test, const ProjectParameters& project);

/// The recall's minute. Throws ScoringError (SubscriptOutOfRange) outside 1 to the project's minutes per test.
inline int MinuteInRange(const Recall& recall, int test, const ProjectParameters& project) {
  if (recall.Minute < 1 || recall.Minute > project.MaxMinutes) ThrowMinuteOutOfRange(recall, test, project);
  return recall.Minute;
}

}  // namespace zova
