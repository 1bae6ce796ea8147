// SPDX-License-Identifier: GPL-3.0-or-later

#include "words/NearWords.h"

#include <algorithm>
#include <array>

#include "words/WordKey.h"

namespace zova {

namespace {

constexpr std::size_t kMaxDistance = 2;

std::size_t LimitOf(std::size_t shorter) noexcept {
  if (shorter < 3) return 0;
  return shorter < 6 ? 1 : kMaxDistance;
}

std::uint64_t LettersOf(std::u32string_view points) noexcept {
  std::uint64_t letters = 0;
  for (const char32_t point : points) letters |= std::uint64_t{1} << (point % 64);
  return letters;
}

// Each letter that the other key lacks costs at least one change.
bool HasMoreThan(std::uint64_t letters, std::size_t count) noexcept {
  for (; count > 0; --count) letters &= letters - 1;
  return letters != 0;
}

// The distance of two keys, or limit + 1 if it is above `limit`, which the difference of their lengths may not exceed.
// Of the table of distances only the band of 2 * limit + 1 cells along the diagonal can hold values up to the limit;
// cell e of row i stands for the first i points of `left` and the first i + e - limit of `right`.
std::size_t Distance(std::u32string_view left, std::u32string_view right, std::size_t limit) noexcept {
  using Band = std::array<std::size_t, 2 * kMaxDistance + 1>;
  const std::size_t beyond = limit + 1;
  const std::size_t width = 2 * limit + 1;
  Band before{};  // row i - 2
  Band above{};   // row i - 1
  for (std::size_t e = 0; e < width; ++e) above[e] = e < limit ? beyond : e - limit;
  for (std::size_t i = 1; i <= left.size(); ++i) {
    Band row{};
    std::size_t least = beyond;
    for (std::size_t e = 0; e < width; ++e) {
      row[e] = beyond;
      if (i + e < limit || i + e - limit > right.size()) continue;
      const std::size_t j = i + e - limit;
      if (e + 1 < width) row[e] = std::min(row[e], above[e + 1] + 1);
      if (e > 0 && j > 0) row[e] = std::min(row[e], row[e - 1] + 1);
      if (j > 0) row[e] = std::min(row[e], above[e] + (left[i - 1] == right[j - 1] ? 0U : 1U));
      if (i > 1 && j > 1 && left[i - 1] == right[j - 2] && left[i - 2] == right[j - 1]) {
        row[e] = std::min(row[e], before[e] + 1);
      }
      least = std::min(least, row[e]);
    }
    if (least == beyond) return beyond;
    before = above;
    above = row;
  }
  return above[right.size() + limit - left.size()];
}

}  // namespace

NearWords::NearWords(const WordList& list) {
  m_entries.reserve(list.Words.size());
  for (std::size_t i = 0; i < list.Words.size(); ++i) {
    const std::u32string points = KeyPoints(WordKey(list.Words[i].Text));
    if (points.empty() || HasDigits(points)) continue;
    m_entries.push_back({points.size(), m_points.size(), LettersOf(points), static_cast<int>(i) + 1});
    m_points += points;
  }
  std::stable_sort(m_entries.begin(), m_entries.end(),
                   [](const Entry& left, const Entry& right) { return left.Length < right.Length; });
}

// Calls visit(entry, points of the key, points of the word, limit) for each word that may be near.
template <typename Visit>
void NearWords::Walk(std::string_view key, Visit&& visit) const {
  const std::u32string points = KeyPoints(key);
  if (points.empty() || HasDigits(points)) return;
  const std::uint64_t letters = LettersOf(points);
  const std::size_t reach = LimitOf(points.size());
  auto entry = std::lower_bound(m_entries.begin(), m_entries.end(), points.size() - std::min(points.size(), reach),
                                [](const Entry& left, std::size_t length) { return left.Length < length; });
  for (; entry != m_entries.end() && entry->Length <= points.size() + reach; ++entry) {
    const std::size_t limit = LimitOf(std::min(entry->Length, points.size()));
    if (entry->Length + limit < points.size()) continue;
    if (HasMoreThan(letters & ~entry->Letters, limit) || HasMoreThan(entry->Letters & ~letters, limit)) continue;
    visit(*entry, points, std::u32string_view(m_points).substr(entry->Start, entry->Length), limit);
  }
}

NearMatch NearWords::Find(std::string_view key) const {
  NearMatch match;
  std::size_t least = kMaxDistance;
  Walk(key, [&](const Entry& entry, std::u32string_view points, std::u32string_view word, std::size_t limit) {
    limit = std::min(limit, least);
    if (word.size() > points.size() + limit || points.size() > word.size() + limit) return;
    const std::size_t distance = Distance(points, word, limit);
    if (distance > limit) return;
    if (distance < least) match.Items.clear();
    least = distance;
    match.Items.push_back(entry.Item);
  });
  if (!match.Items.empty()) match.Distance = static_cast<int>(least);
  std::sort(match.Items.begin(), match.Items.end());
  return match;
}

std::vector<int> NearWords::Within(std::string_view key) const {
  std::vector<int> items;
  Walk(key, [&](const Entry& entry, std::u32string_view points, std::u32string_view word, std::size_t limit) {
    if (Distance(points, word, limit) <= limit) items.push_back(entry.Item);  // NOLINT: few are near
  });
  std::sort(items.begin(), items.end());
  return items;
}

}  // namespace zova
