// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <vector>

#include "compare/Alignment.h"
#include "project/ProjectParameters.h"
#include "subjects/SubjectRecord.h"

namespace zova {

/// One typing error, as far as two entries of a subject show it.
struct Difference {
  enum class Kind {
    Level,       ///< of the variable
    OnlyFirst,   ///< a line of the first entry alone
    OnlySecond,  ///< a line of the second entry alone
    Moved,       ///< the same item stands alone on `Line` of one entry and on `OtherLine` of the other
    Swapped,     ///< the items of `Line` and `OtherLine` are exchanged
    Item,        ///< another item, minute or rating
    Minute,
    Rating
  };
  Kind Is = Kind::Item;
  int Test = 0;               ///< 0 for a level
  std::size_t Line = 0;       ///< of the test's aligned lines, from 0; of a level the variable
  std::size_t OtherLine = 0;  ///< likewise

  bool operator==(const Difference&) const = default;
};

/// Two entries of a subject side by side.
struct Comparison {
  std::vector<std::vector<AlignedLine>> Tests;  ///< test 1 at index 0
  std::vector<Difference> Differences;          ///< levels first, then in order of test and line
};

/// Minutes and ratings count where the project keeps them.
Comparison Compare(const SubjectRecord& first, const SubjectRecord& second, const ProjectParameters& project);

int CountDifferencesOf(const SubjectRecord& first, const SubjectRecord& second, const ProjectParameters& project);

}  // namespace zova
