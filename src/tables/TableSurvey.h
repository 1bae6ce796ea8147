// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "tables/TableReader.h"
#include "words/WordList.h"

namespace zova {

/// Makes maps and sets with std::string keys searchable by std::string_view.
struct TextHash {
  using is_transparent = void;
  std::size_t operator()(std::string_view text) const noexcept { return std::hash<std::string_view>{}(text); }
};
template <typename Value>
using TextMap = std::unordered_map<std::string, Value, TextHash, std::equal_to<>>;

/// A text of the table and the line on which it stands first.
struct SeenText {
  std::string Text;
  std::size_t Line = 0;
  std::size_t Count = 0;
};

/// What one pass over a table finds out about all of it.
struct TableSurvey {
  std::size_t Rows = 0;
  std::size_t StudyRows = 0;
  std::vector<SeenText> Subjects;    ///< in the order of their first rows
  bool IsSorted = true;              ///< the rows of a subject follow each other
  std::vector<SeenText> Labels;      ///< of tests, in the order of their first rows; TableEntry::Label
  std::vector<int> LabelPlaces;      ///< their places, from 1, in order: numbers by value, others by first row
  std::vector<std::size_t> ByPlace;  ///< indices of labels in that order
  bool RankDiffers = false;          ///< a subject's own labels in order have other places
  int MostLabels = 0;                ///< of one subject
  /// By label and rank, from 0 to kMaxTests - 1: for how many subjects the label has the rank among their own.
  std::vector<std::vector<std::size_t>> LabelRanks;
  std::vector<SeenText> TrialTypes;  ///< other than study and recall
  std::vector<SeenText> Studied;     ///< distinct words of study rows, by key
  bool HasNumbers = false;           ///< responses are numbers of items
  std::size_t ZeroLine = 0;          ///< the first row with number 0; 0 for none
  int LargestNumber = 0;
  std::size_t BrokenMinuteLine = 0;  ///< the first minute that is no whole number; 0 for none
  int LargestMinute = 0;
  std::size_t LargestMinuteLine = 0;

  TextMap<std::size_t> LabelIndices;
};

/// Numbers are items in a column of them, else where no response is one of the `words`. Throws FileError.
TableSurvey SurveyTable(Disk& disk, const TableSetup& setup, const WordList& words);

/// The columns by whose values the table falls into parts that each fit into a project, by tests, subjects and studied
/// words, as the end of a sentence.
std::string PartsText(Disk& disk, const TableSetup& setup);

}  // namespace zova
