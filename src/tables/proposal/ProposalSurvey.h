// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <map>
#include <string>
#include <vector>

#include "tables/TableSurvey.h"
#include "tables/proposal/NewProjectFromTable.h"

namespace zova {

struct StudiedWord {
  std::string Text;
  std::string Category;  ///< of its first row
};

/// A text that the rows give an item, and the first one that differs from it.
struct SaidOfItem {
  std::string Text;
  std::string Other;
  std::size_t Line = 0;  ///< of Text; 0 for none
  std::size_t OtherLine = 0;
};

struct NumberedItem {
  std::size_t Line = 0;  ///< its first row
  SaidOfItem Word;       ///< that of study rows, if there are any
  SaidOfItem Category;
  bool IsStudied = false;
  bool HasStudiedWord = false;
};

/// What a new project needs to know of a table beyond its survey.
struct ProposalSurvey {
  std::vector<StudiedWord> Words;  ///< of study rows, by key, in the order of their first rows
  bool HasCategories = false;
  std::map<int, NumberedItem> Numbered;  ///< in a table with a row per number, by number, from 1
  bool HasNumberedWords = false;         ///< that table has a column of words, too
  int LargestNumber = 0;
  std::size_t LongestStudy = 0;  ///< study rows of one subject and test
  int LastMinute = 0;            ///< 0 without minutes
  int LargestRating = 0;
  std::vector<std::size_t> RatedLabels;
  std::vector<VariableOffer> Variables;
};

/// Goes through the rows of a draft that is set up and surveyed. Throws FileError.
ProposalSurvey SurveyForProject(Disk& disk, const ImportDraft& draft);

}  // namespace zova
