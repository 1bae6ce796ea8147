// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "scoring/ScoringArrays.h"
#include "scoring/further/FurtherScores.h"
#include "subjects/SubjectRecord.h"

namespace zova {

/// One subject read and scored by the run of the individual master. Valid only during the call.
struct ScoredSubject {
  const std::string& SubjectId;
  const SubjectRecord& Record;
  const ScoringArrays& Scores;
  const std::string& MasterRow;            ///< the subject's line of the master, without its line end
  const FurtherScores* Further = nullptr;  ///< null unless the run computes them
};

/// Receives every subject of a run, in the same pass.
class ScoredSubjectSink {
 public:
  virtual ~ScoredSubjectSink() = default;
  /// Called for each subject in the order of the listing, after its row is written. False ends the run, like a row that
  /// could not be written; the implementation has informed the user.
  virtual bool Add(const ScoredSubject& subject) = 0;
  /// Called when the rows are taken back: all subjects follow again.
  virtual void Restart() = 0;
};

}  // namespace zova
