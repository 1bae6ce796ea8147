// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "project/ProjectParameters.h"
#include "scoring/ScoringError.h"
#include "subjects/RecallLists.h"

namespace zova {

/// Throws the ScoringError (SubscriptOutOfRange) of a minute that is none of the project's.
[[noreturn]] void ThrowMinuteOutOfRange(const Recall& recall, int test, const ProjectParameters& project);

/// The recall's minute. Throws ScoringError (SubscriptOutOfRange) when it is outside 1 to the project's minutes.
inline int MinuteInRange(const Recall& recall, int test, const ProjectParameters& project) {
  if (recall.Minute < 1 || recall.Minute > project.MaxMinutes) ThrowMinuteOutOfRange(recall, test, project);
  return recall.Minute;
}

}  // namespace zova
