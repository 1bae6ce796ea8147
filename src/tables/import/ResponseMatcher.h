// SPDX-License-Identifier: GPL-3.0-or-later
//
// Which item a response is. In this order, by the words' keys: the word of the list, exact; the only word that differs
// from it in accents alone; a word of another list; what was decided; a near word of the list, which is proposed.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "tables/TableSurvey.h"
#include "words/NearWords.h"
#include "words/Responses.h"
#include "words/WordList.h"

namespace zova {

enum class MatchKind { Exact, OtherList, Near, Unknown };

/// A near word.
struct NearItem {
  int Item = 0;
  std::string Word;
  int Distance = 0;

  bool operator==(const NearItem&) const = default;
};

/// What a response is before decisions. Those concern near and unknown responses.
struct ResponseMatch {
  MatchKind Kind = MatchKind::Unknown;
  int Item = 0;                ///< with Exact
  std::vector<NearItem> Near;  ///< the nearest words within the limit: one is proposed, several are a tie
};

/// The words of one list by their keys.
class ListWords {
 public:
  void Clear();
  /// Returns false, without effect, when the list has a word of this key.
  bool Add(int item, std::string_view word);
  [[nodiscard]] std::size_t Count() const noexcept { return m_items.size(); }
  /// 0 when there is none.
  [[nodiscard]] int FindExact(std::string_view key) const;
  /// The only word with these letters without accents; 0 for none or several.
  [[nodiscard]] int FindBare(std::string_view key) const;
  [[nodiscard]] std::vector<NearItem> FindNear(std::string_view key) const;
  /// "" when the list has no such item.
  [[nodiscard]] std::string_view WordOf(int item) const;

 private:
  WordList m_words;
  std::vector<int> m_items;  // of the words
  TextMap<int> m_exact;      // items by key
  TextMap<int> m_bare;       // likewise without accents; -1 for several
  mutable std::optional<NearWords> m_near;
};

/// What was decided about a response in lists of positions. A number is an item of the first of these lists; in the
/// others it means the same word.
struct ListDecision {
  std::optional<Decision> What;
  std::string Key;  ///< of the word
};

/// Matches the responses of a table. Keeps what it found in the project's list, for each text.
class ResponseMatcher {
 public:
  /// `words` may be empty; `studied` are the words of the table's study rows. Both are copied.
  ResponseMatcher(const WordList& words, const std::vector<SeenText>& studied, bool exactAccents);

  /// In the project's word list.
  [[nodiscard]] const ResponseMatch& MatchInPool(std::string_view response);
  /// In the words of one subject and test.
  [[nodiscard]] ResponseMatch MatchInList(std::string_view response, const ListWords& list) const;
  /// The item of the project's list with this key; 0 for none.
  [[nodiscard]] int ItemInPool(std::string_view key) const { return FindIn(m_pool, key); }
  /// True for the key of a word of the project or of the table's study rows.
  [[nodiscard]] bool IsWord(std::string_view key) const { return FindIn(m_pool, key) > 0 || FindIn(m_others, key) > 0; }
  [[nodiscard]] const ListWords& Pool() const noexcept { return m_pool; }
  [[nodiscard]] bool HasExactAccents() const noexcept { return m_exactAccents; }
  /// By ResponsePlace: filled by the dry run, so that the import reads numbers alike where it passes lists over.
  TextMap<ListDecision>& ListDecisions() noexcept { return m_listDecisions; }

 private:
  [[nodiscard]] int FindIn(const ListWords& list, std::string_view key) const;

  bool m_exactAccents;
  ListWords m_pool;
  ListWords m_others;              // words of study rows that are not in the pool
  TextMap<ResponseMatch> m_known;  // by response, in the pool
  TextMap<ListDecision> m_listDecisions;
};

/// Splits a cell at its separator, without empty pieces. Where that is the blank, two or three neighbouring pieces are
/// one response if their joined key is a word's key, the longest first from the left.
std::vector<std::string> SplitCell(std::string_view cell, std::string_view separator, const ResponseMatcher& matcher);

}  // namespace zova
