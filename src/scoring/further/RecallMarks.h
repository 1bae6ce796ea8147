// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "scoring/further/RecallSequence.h"

namespace zova {

/// What stands at one place of a recall list.
struct RecallMark {
  RecallKind Kind = RecallKind::First;
  std::int16_t Position = 0;  ///< study position of a studied item; 0 where it is not known
  std::int16_t Category = 0;  ///< of an item; 0 for none

  bool operator==(const RecallMark&) const = default;
};

/// The recall lists of many subjects: subject by subject, test by test.
struct RecallMarks {
  int TestCount = 0;
  std::vector<RecallMark> Marks;
  std::vector<std::size_t> Ends;  ///< one per list
  std::vector<bool> IsRead;       ///< one per subject; false for one whose lists could not be read

  /// `subject` counts from 0, `test` from 1.
  [[nodiscard]] std::span<const RecallMark> ListOf(std::size_t subject, int test) const;
};

/// Adds a subject's lists, one per test. `orders` has the study order of each; null where it is not known.
void AppendMarks(std::span<const RecallSequence> tests, std::span<const StudyRanks* const> orders,
                 const StudyList& study, RecallMarks& marks);
/// Adds a subject whose lists could not be read.
void AppendUnread(const StudyList& study, RecallMarks& marks);

}  // namespace zova
