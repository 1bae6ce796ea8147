// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "project/ProjectParameters.h"
#include "subjects/SubjectRecord.h"

namespace zova {

enum class SubjectState {
  Complete,
  Unfinished,
  Both,         ///< complete, and an unfinished entry beside it
  Unreadable,   ///< the complete file, or the unfinished one when there is no other
  SecondAlone,  ///< a second entry whose first one is gone
  Foreign,      ///< another project's file, whose name begins like this project's
  Removed
};

/// What there is of a second entry.
struct SecondEntry {
  enum class State {
    None,
    Unfinished,
    Agrees,
    Differs,
    Settled,  ///< with this second entry, not with an earlier one
    Alone,    ///< there is no complete first entry
    Unreadable
  };
  State Is = State::None;
  int Differences = 0;
  std::string Reason = {};  ///< of an unreadable one
};

/// Counts the differences of a first and a second entry.
using CountDifferences = std::function<int(const SubjectRecord& first, const SubjectRecord& second)>;

/// One subject of a project, by its files.
struct SubjectRow {
  std::string Id;
  std::string File;  ///< its file's name; for a removed one as it is among these
  SubjectState State = SubjectState::Complete;
  int RemovedNumber = 1;  ///< of a removed one: which of this identifier
  bool HasUnfinished = false;
  std::string Reason;  ///< of an unreadable one
  std::array<std::int16_t, kMaxVariables> Levels{};
  std::vector<std::int16_t> Recalls;  ///< per test
  std::string FailedChecks;           ///< "gaps, duplicates"
  SecondEntry Second;
  bool IsInSample = false;   ///< chosen for a second entry
  std::int64_t SavedAt = 0;  ///< nanoseconds since 1970

  [[nodiscard]] bool HasData() const noexcept {
    return State != SubjectState::Unreadable && State != SubjectState::Foreign && State != SubjectState::SecondAlone;
  }
};

}  // namespace zova
