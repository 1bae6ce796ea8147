// SPDX-License-Identifier: GPL-3.0-or-later
//
// Which item a response is. In this order, by the words' keys: the word of the list, exact; the only word that differs
// from it in accents alone; a word of another list; what was decided; a near word of the list, which is proposed.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "tables/TableSurvey.h"
#include "words/Responses.h"
#include "words/WordList.h"

namespace zova {

enum class MatchKind { Exact, OtherList, Decided, Proposed, Unknown };

/// A near word.
struct NearItem {
  int Item = 0;
  std::string Word;
  int Distance = 0;

  bool operator==(const NearItem&) const = default;
};

struct ResponseMatch {
  MatchKind Kind = MatchKind::Unknown;
  int Item = 0;                ///< Exact and Proposed
  Decision Decided;            ///< with Decided
  std::vector<NearItem> Near;  ///< the nearest words within the limit: one is proposed, several are a tie
};

/// The words of one list by their keys.
class ListWords {
 public:
  void Clear();
  /// False when the list has a word of this key already.
  bool Add(int item, std::string_view word);
  [[nodiscard]] std::size_t Count() const noexcept { return m_words.size(); }
  /// 0 when there is none.
  [[nodiscard]] int FindExact(std::string_view key) const;
  /// The only word with these letters without accents; 0 for none or several.
  [[nodiscard]] int FindBare(std::string_view key) const;
  [[nodiscard]] std::vector<NearItem> FindNear(std::string_view key) const;
  [[nodiscard]] std::string_view WordOf(int item) const;

 private:
  struct Entry {
    int Item;
    std::string Text;
    std::string Key;
  };
  std::vector<Entry> m_words;
  TextMap<std::size_t> m_exact;
  TextMap<int> m_bare;  // -1 for several
};

/// Matches the responses of a table. Keeps what it found for each text.
class ResponseMatcher {
 public:
  /// `words` may be empty; `studied` are the words of the table's study rows. Both are copied.
  ResponseMatcher(const WordList& words, const std::vector<SeenText>& studied, bool exactAccents);

  /// In the project's word list.
  [[nodiscard]] const ResponseMatch& MatchInPool(std::string_view response);
  /// In the words of one subject and test.
  [[nodiscard]] ResponseMatch MatchInList(std::string_view response, const ListWords& list);
  /// True for a word of the project or of the table's study rows.
  [[nodiscard]] bool IsWord(std::string_view key) const;
  [[nodiscard]] const ListWords& Pool() const noexcept { return m_pool; }
  [[nodiscard]] bool HasExactAccents() const noexcept { return m_exactAccents; }

 private:
  [[nodiscard]] int FindIn(const ListWords& list, std::string_view key) const;

  ListWords m_pool;
  ListWords m_others;  // words of study rows that are not in the pool
  bool m_exactAccents;
  TextMap<ResponseMatch> m_known;  // by response, in the pool
};

/// True for what stands for nothing: "", ".", NA, N/A and NaN in any case.
bool IsNothing(std::string_view response) noexcept;

/// Splits a cell at its separator. Where that is the blank, two or three neighbouring pieces whose keys together are a
/// word's key are one response, the longest first from the left. `isWord` tells of a key whether it is one.
template <typename IsWord>
void SplitCell(std::string_view cell, std::string_view separator, IsWord&& isWord, std::vector<std::string>& pieces);

}  // namespace zova
