// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "scoring/further/StudyList.h"
#include "subjects/RecallLists.h"

namespace zova {

/// Where a response stood that is no item of the list.
struct IntrusionPlace {
  std::int16_t Test = 0;   ///< from 1
  std::int16_t Place = 0;  ///< entries of the subject's list before it, repeats and lures included, blanks not

  bool operator==(const IntrusionPlace&) const = default;
};

/// What an entry of a recall list is.
enum class RecallKind : std::uint8_t { First, Repeat, Lure, RepeatedLure, Intrusion };

struct RecallEntry {
  std::int16_t Item = 0;  ///< 0 for an intrusion
  RecallKind Kind = RecallKind::First;
};

/// One test of a subject, in output order and without blanks.
struct RecallSequence {
  std::vector<RecallEntry> Entries;
  std::vector<std::int16_t> Items;  ///< each studied item once, in the order of recall
  /// The same with 0 wherever lures or intrusions stand. A list closes up over its repeats.
  std::vector<std::int16_t> Chain;
  std::vector<bool> Has;  ///< by item, lures included
  int Repeats = 0;        ///< entries of studied items beyond their first
  int Lures = 0;          ///< recalled, each once
  int Intrusions = 0;

  /// r, the studied items recalled.
  [[nodiscard]] int Count() const noexcept { return static_cast<int>(Items.size()); }
};

/// Fills `sequence` from all cells of a test, also those behind a blank. `intrusions` are those of the test, by place;
/// one beyond the end stands at the end. Throws ScoringError (SubscriptOutOfRange) for an item beyond the study list.
void ReadSequence(const RecallLists& lists, int test, std::span<const IntrusionPlace> intrusions,
                  const StudyList& study, RecallSequence& sequence);

}  // namespace zova
