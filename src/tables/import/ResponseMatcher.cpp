// SPDX-License-Identifier: GPL-3.0-or-later

#include "tables/import/ResponseMatcher.h"

#include <algorithm>

#include "text/TypedText.h"
#include "words/WordKey.h"

namespace zova {

void ListWords::Clear() {
  m_words.Words.clear();
  m_items.clear();
  m_exact.clear();
  m_bare.clear();
  m_near.reset();
}

bool ListWords::Add(int item, std::string_view word) {
  std::string key = WordKey(word);
  if (m_exact.find(key) != m_exact.end()) return false;
  const auto [bare, isNew] = m_bare.emplace(WithoutAccents(key), item);
  if (!isNew) bare->second = -1;
  m_exact.emplace(std::move(key), item);
  m_words.Words.push_back({std::string(word), {}});
  m_items.push_back(item);
  m_near.reset();
  return true;
}

int ListWords::FindExact(std::string_view key) const {
  const auto found = m_exact.find(key);
  return found == m_exact.end() ? 0 : found->second;
}

int ListWords::FindBare(std::string_view key) const {
  const auto found = m_bare.find(WithoutAccents(key));
  return found == m_bare.end() ? 0 : std::max(found->second, 0);
}

std::vector<NearItem> ListWords::FindNear(std::string_view key) const {
  if (!m_near) m_near.emplace(m_words);
  const NearMatch match = m_near->Find(key);
  std::vector<NearItem> near;
  near.reserve(match.Items.size());
  for (const int word : match.Items) {
    const auto index = static_cast<std::size_t>(word) - 1;
    near.push_back({m_items[index], m_words.Words[index].Text, match.Distance});
  }
  std::sort(near.begin(), near.end(),
            [](const NearItem& left, const NearItem& right) { return left.Item < right.Item; });
  return near;
}

std::string_view ListWords::WordOf(int item) const {
  const auto found = std::find(m_items.begin(), m_items.end(), item);
  if (found == m_items.end()) return {};
  return m_words.Words[static_cast<std::size_t>(found - m_items.begin())].Text;
}

ResponseMatcher::ResponseMatcher(const WordList& words, const std::vector<SeenText>& studied, bool exactAccents)
    : m_exactAccents(exactAccents) {
  for (std::size_t i = 0; i < words.Words.size(); ++i) m_pool.Add(static_cast<int>(i) + 1, words.Words[i].Text);
  for (std::size_t i = 0; i < studied.size(); ++i) {
    if (m_pool.FindExact(WordKey(studied[i].Text)) == 0) m_others.Add(static_cast<int>(i) + 1, studied[i].Text);
  }
}

int ResponseMatcher::FindIn(const ListWords& list, std::string_view key) const {
  if (key.empty()) return 0;
  const int item = list.FindExact(key);
  return item > 0 || m_exactAccents ? item : list.FindBare(key);
}

const ResponseMatch& ResponseMatcher::MatchInPool(std::string_view response) {
  const auto known = m_known.find(response);
  if (known != m_known.end()) return known->second;
  return m_known.emplace(response, MatchInList(response, m_pool)).first->second;
}

ResponseMatch ResponseMatcher::MatchInList(std::string_view response, const ListWords& list) const {
  const std::string key = WordKey(response);
  ResponseMatch match;
  match.Item = FindIn(list, key);
  if (match.Item > 0) {
    match.Kind = MatchKind::Exact;
  } else if (IsWord(key)) {
    match.Kind = MatchKind::OtherList;
  } else {
    match.Near = list.FindNear(key);
    match.Kind = match.Near.empty() ? MatchKind::Unknown : MatchKind::Near;
  }
  return match;
}

std::vector<std::string> SplitCell(std::string_view cell, std::string_view separator, const ResponseMatcher& matcher) {
  constexpr std::size_t kMostJoined = 3;
  std::vector<std::string> pieces;
  while (!cell.empty()) {
    const std::size_t end = std::min(cell.find(separator), cell.size());
    const std::string_view piece = WithoutOuterBlanks(cell.substr(0, end));
    if (!piece.empty()) pieces.emplace_back(piece);  // NOLINT: their number is not known before
    cell.remove_prefix(std::min(cell.size(), end + separator.size()));
  }
  if (separator != " ") return pieces;
  std::vector<std::string> responses;
  responses.reserve(pieces.size());
  for (std::size_t i = 0; i < pieces.size();) {
    std::size_t joined = std::min(kMostJoined, pieces.size() - i);
    std::string response;
    for (; joined > 1; --joined) {
      response = pieces[i];
      for (std::size_t k = 1; k < joined; ++k) response.append(" ").append(pieces[i + k]);
      if (matcher.IsWord(WordKey(response))) break;
    }
    responses.push_back(joined > 1 ? std::move(response) : std::move(pieces[i]));
    i += joined;
  }
  return responses;
}

}  // namespace zova
