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
  Both,          ///< complete, and an unfinished entry beside it
  Unreadable,    ///< the complete file, or the unfinished one when there is no other
  SecondAlone,   ///< a second entry, perhaps unfinished, whose first one is gone
  FirstAlone,    ///< a first entry that was put aside when the subject was settled; its data are gone
  EntriesAlone,  ///< both entries as they were typed; the data are gone, and can be settled again
  Foreign,       ///< another project's file, whose name begins like this project's
  Removed
};

/// What there is of a second entry.
struct SecondEntry {
  enum class State {
    None,
    Unfinished,
    UnfinishedAlone,  ///< and there is no first entry
    Agrees,
    Differs,
    Settled,  ///< with this second entry, not with an earlier one
    Alone,    ///< there is no first entry
    FirstUnreadable,
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
    return State == SubjectState::Complete || State == SubjectState::Unfinished || State == SubjectState::Both ||
           State == SubjectState::Removed;
  }
};

}  // namespace zova
