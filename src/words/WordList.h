// SPDX-License-Identifier: GPL-3.0-or-later
//
// "AB Words.csv": the words of a project's items. Columns: item, word, and category if the file names the categories.
// Items 1 to N, each once, in any order; words differ in their keys.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/desktop/MessageBoxes.h"
#include "platform/files/Disk.h"
#include "project/ProjectParameters.h"

namespace zova {

struct Word {
  std::string Text;
  std::string Category;  ///< "" where categories have no names

  bool operator==(const Word&) const = default;
};

/// The word of item i at index i - 1; empty in a project without a word list.
struct WordList {
  std::vector<Word> Words;
  bool HasCategories = false;  ///< the file has the column

  /// "" for an item without a word.
  [[nodiscard]] std::string_view TextOf(int item) const noexcept {
    return item < 1 || static_cast<std::size_t>(item) > Words.size() ? std::string_view()
                                                                     : Words[static_cast<std::size_t>(item) - 1].Text;
  }
  /// The name of a category from 1; "" without one.
  [[nodiscard]] std::string_view CategoryName(int category, const ProjectParameters& project) const noexcept;
  [[nodiscard]] bool IsEmpty() const noexcept { return Words.empty(); }
  bool operator==(const WordList&) const = default;
};

/// A fault of a word list, and the item concerned.
struct WordFault {
  std::string Text;
  int Item = 0;
  bool IsCategory = false;  ///< the category is at fault
};

/// The first fault by item: a word that is missing or has no letter or digit, two words with one key (named both), a
/// category that is not that of the other items of its category, or is that of another one.
std::vector<WordFault> FindWordFaults(const WordList& list, const ProjectParameters& project);

/// Throws CsvError.
WordList ParseWordList(std::string_view bytes, const ProjectParameters& project);
std::string FormatWordList(const WordList& list);

/// The project's word list; an empty one when it has none. Throws FileError.
WordList ReadWordList(Disk& disk, const ProjectParameters& project);
/// As ReadWordList, with Retry. A file that does not fit is reported and counts as none.
WordList WordListOf(const ProjectParameters& project, Disk& disk, MessageBoxes& boxes);

}  // namespace zova
