// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "words/WordList.h"

namespace zova {

/// The words nearest to a key.
struct NearMatch {
  int Distance = 0;        ///< optimal string alignment
  std::vector<int> Items;  ///< ascending; empty when no word is near, more than one for a tie

  bool operator==(const NearMatch&) const = default;
};

/// Finds the words of a list that differ from a key in few letters. The distance counts letters that are replaced, left
/// out or added, and neighbours that changed places, in code points (optimal string alignment). How far a word may be
/// depends on the shorter of the two keys: with one or two letters it must be the same, with three to five the distance
/// is 1 at most, with six and more 2. Keys with digits are near to none.
class NearWords {
 public:
  explicit NearWords(const WordList& list);

  /// The words at the least distance. A word's own key is at distance 0.
  [[nodiscard]] NearMatch Find(std::string_view key) const;
  /// Every item within the limit, ascending.
  [[nodiscard]] std::vector<int> Within(std::string_view key) const;

 private:
  struct Entry {
    std::size_t Length = 0;     // in code points
    std::size_t Start = 0;      // of its code points in m_points
    std::uint64_t Letters = 0;  // a bit for each letter, some for more than one
    int Item = 0;
  };
  template <typename Visit>
  void Walk(std::string_view key, Visit&& visit) const;

  std::vector<Entry> m_entries;  // by length
  std::u32string m_points;
};

}  // namespace zova
