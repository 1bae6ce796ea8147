// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "tables/NewProjectFromTable.h"
#include "tables/TableSurvey.h"

namespace zova {

struct StudiedWord {
  std::string Text;
  std::string Category;  ///< of its first row
};

/// What a new project needs to know of a table beyond its survey.
struct ProposalSurvey {
  std::vector<StudiedWord> Words;  ///< of study rows, by key, in the order of their first rows
  bool HasCategories = false;
  std::size_t LongestStudy = 0;  ///< study rows of one subject and test
  int LastMinute = 0;            ///< 0 without minutes
  int LargestRating = 0;
  std::vector<std::size_t> RatedLabels;
  std::vector<VariableOffer> Variables;
};

/// Throws FileError.
ProposalSurvey SurveyForProject(Disk& disk, const TableSetup& setup, const TableSurvey& table,
                                const ImportOptions& options);

}  // namespace zova
