// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "project/ProjectParameters.h"

namespace zova {

/// An item's word from a list that was made elsewhere.
struct ForeignWord {
  int Item = 0;
  std::size_t Line = 0;
  std::string Text;
  std::string Category;
  bool HasCategory = false;  ///< the list has the column

  bool operator==(const ForeignWord&) const = default;
};

enum class WordSource { File, Pasted };

/// Reads a list with a word a line, or a table with commas, semicolons or tabs. A table has the columns that its header
/// names (item, word, category, among others); without a header two are an item and its word, or, where the first is no
/// number, a word and its category, and three are all of them. Words without a number are those of the items from
/// `firstItem` on; a blank line of a pasted list leaves its item out. A project of 0 items is one whose number of items
/// follows from the list. Faults are CsvErrors with their line.
std::vector<ForeignWord> ReadForeignWords(std::string_view text, WordSource source, int firstItem,
                                          const ProjectParameters& project);

/// A word as it is kept: without blanks around it, and with blanks for control characters.
std::string TidyWord(std::string_view text);

}  // namespace zova
