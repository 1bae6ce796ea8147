// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <vector>

#include "subjects/RecallLists.h"

namespace zova {

/// A line of two lists side by side: positions from 1, 0 for a gap.
struct AlignedLine {
  enum class Kind { Plain, SwappedFirst, SwappedSecond };
  int First = 0;
  int Second = 0;
  /// Two lines in succession whose items are exchanged.
  Kind Is = Kind::Plain;

  bool operator==(const AlignedLine&) const = default;
};

/// Aligns the lists of a test. The lines with the same item in both are as many as possible, where two neighbouring
/// items that are exchanged count as one. Among these alignments it has the fewest differences: gaps, other items,
/// other minutes and ratings, where those of two different items count as half of one. Of equal ones it has the
/// earliest lines together.
std::vector<AlignedLine> AlignTest(const RecallLists& first, const RecallLists& second, int test);

}  // namespace zova
