// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "words/NearWords.h"
#include "words/WordList.h"

namespace zova {

/// The items that fit a typed text, in four parts, each by item number.
struct WordChoices {
  std::vector<int> Items;      ///< that have it as their word, begin with it, contain it, are near it (NearWords)
  std::size_t Exact = 0;       ///< how many have it as their word: 0 or 1
  std::size_t Beginning = 0;   ///< how many begin with it
  std::size_t Containing = 0;  ///< how many contain it elsewhere

  void Clear() noexcept {
    Items.clear();
    Exact = Beginning = Containing = 0;
  }
  /// The item that the text stands for without a choice of the user: its own, else the first that begins with it, else
  /// the only one that contains it; 0 for none.
  [[nodiscard]] int Meant() const noexcept {
    const bool isClear = Exact + Beginning > 0 || Containing == 1;
    return isClear ? Items.front() : 0;
  }
};

/// Completes words of a list. Texts are compared by their keys; a text without accents also fits a word that has some.
class WordCompletion {
 public:
  explicit WordCompletion(WordList list = {});

  [[nodiscard]] const WordList& List() const noexcept { return m_list; }
  [[nodiscard]] bool IsEmpty() const noexcept { return m_list.IsEmpty(); }
  /// Replaces `choices`, whose memory is used again.
  void Find(std::string_view text, WordChoices& choices) const;
  /// The item whose word the text is; 0 for none.
  [[nodiscard]] int ItemOf(std::string_view text) const;
  /// "Nearest: 27 vase."; "" when no word is near.
  [[nodiscard]] std::string NearestText(std::string_view text) const;

 private:
  struct Entry {
    std::string Key;
    std::string Plain;  // without accents
  };

  WordList m_list;
  std::vector<Entry> m_entries;
  std::unordered_map<std::string, int> m_items;       // by key
  std::unordered_map<std::string, int> m_plainItems;  // by key without accents; 0 when several words have it
  NearWords m_near;
};

/// "25 apple", or "25" for an item without a word.
std::string ItemName(const WordList& list, int item);
/// What a message that names an item adds: "25 apple.", or "" without a word.
std::string ItemNote(const WordList& list, int item);

}  // namespace zova
