// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <vector>

#include "tables/import/ListBuilder.h"

namespace zova {

/// Where the recalls of a test go.
struct ListBuilder::Sink {
  const std::string& SubjectId;
  RecallLists& Lists;
  std::vector<Intrusion>& Intrusions;
  std::vector<const TableEntry*>& Listed;
  int Length = 0;                        ///< entries so far, also beyond the list's end
  const TableEntry* Overflow = nullptr;  ///< the first beyond it
};

}  // namespace zova
