// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "scoring/ScoringArrays.h"
#include "subjects/SubjectRecord.h"

namespace zova {

/// One subject as the run of the individual master has read and scored it. Valid only during the call that hands it on.
struct ScoredSubject {
  const std::string& SubjectId;
  const SubjectRecord& Record;
  const ScoringArrays& Scores;
  const std::string& MasterRow;  ///< the subject's line of the master, without its line end
};

/// What else is made of the subjects of a run, in the same pass.
class ScoredSubjectSink {
 public:
  virtual ~ScoredSubjectSink() = default;
  /// Called once per subject, in the order of the listing, after the subject's row is written. False ends the run, like
  /// a row that could not be written; the user was told.
  virtual bool Add(const ScoredSubject& subject) = 0;
};

}  // namespace zova
