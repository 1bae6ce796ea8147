// SPDX-License-Identifier: GPL-3.0-or-later
//
// The longest common subsequence with costs, from the end of the lists to their beginning, then one walk along the
// cheapest way. A line in common gains more than all differences of two lists can cost.

#include "compare/Alignment.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>

namespace zova {

namespace {

constexpr std::int32_t kGain = 16384;
constexpr std::int32_t kDifference = 2;
constexpr std::int32_t kHalf = 1;

int LengthOf(const RecallLists& lists, int test) {
  int length = lists.PositionCount();
  while (length > 0 && lists.At(test, length) == Recall{}) --length;
  return length;
}

// Differing minutes and ratings.
std::int32_t FurtherCost(const Recall& left, const Recall& right) {
  return (left.Minute != right.Minute ? kDifference : 0) + (left.Rating != right.Rating ? kDifference : 0);
}

class Aligner {
 public:
  Aligner(const Recall* first, int firstCount, const Recall* second, int secondCount)
      : m_first(first), m_second(second), m_rows(firstCount), m_columns(secondCount) {}

  void Align(int offset, std::vector<AlignedLine>& lines) {
    Fill();
    int i = 0, j = 0;
    const auto place = [&](int position) { return position + offset + 1; };
    while (i < m_rows || j < m_columns) {
      const std::int32_t cost = At(i, j);
      if (i < m_rows && j < m_columns && cost == PairCost(i, j) + At(i + 1, j + 1)) {
        lines.push_back({place(i++), place(j++)});
      } else if (IsSwap(i, j) && cost == SwapCost(i, j) + At(i + 2, j + 2)) {
        lines.push_back({place(i), place(j), AlignedLine::Kind::SwappedFirst});
        lines.push_back({place(i + 1), place(j + 1), AlignedLine::Kind::SwappedSecond});
        i += 2, j += 2;
      } else if (i < m_rows && cost == kDifference + At(i + 1, j)) {
        lines.push_back({place(i++), 0});
      } else {
        lines.push_back({0, place(j++)});
      }
    }
  }

 private:
  std::int32_t& At(int i, int j) {
    return m_costs[static_cast<std::size_t>(i) * (static_cast<std::size_t>(m_columns) + 1) +
                   static_cast<std::size_t>(j)];
  }

  // Two different lines cost less than two gaps, so that whole lines that are exchanged stay side by side.
  [[nodiscard]] std::int32_t PairCost(int i, int j) const {
    const std::int32_t further = FurtherCost(m_first[i], m_second[j]);
    const bool isSame = m_first[i].Item == m_second[j].Item;
    return isSame ? further - kGain : kDifference + std::min(further, kHalf);
  }

  [[nodiscard]] bool IsSwap(int i, int j) const {
    return i + 1 < m_rows && j + 1 < m_columns && m_first[i].Item == m_second[j + 1].Item &&
           m_first[i + 1].Item == m_second[j].Item && m_first[i].Item != m_first[i + 1].Item;
  }

  // The items alone may be exchanged, or whole lines. It gains no more than the one line that the longest common
  // subsequence keeps of the two; else it would beat two items that are exchanged across a line in common.
  [[nodiscard]] std::int32_t SwapCost(int i, int j) const {
    const std::int32_t items = FurtherCost(m_first[i], m_second[j]) + FurtherCost(m_first[i + 1], m_second[j + 1]);
    const std::int32_t lines = FurtherCost(m_first[i], m_second[j + 1]) + FurtherCost(m_first[i + 1], m_second[j]);
    return kDifference + std::min(items, lines) - kGain;
  }

  void Fill() {
    m_costs.assign((static_cast<std::size_t>(m_rows) + 1) * (static_cast<std::size_t>(m_columns) + 1), 0);
    for (int i = m_rows; i >= 0; --i) {
      for (int j = m_columns; j >= 0; --j) {
        if (i == m_rows && j == m_columns) continue;
        std::int32_t best = INT32_MAX;
        if (i < m_rows) best = std::min(best, kDifference + At(i + 1, j));
        if (j < m_columns) best = std::min(best, kDifference + At(i, j + 1));
        if (i < m_rows && j < m_columns) best = std::min(best, PairCost(i, j) + At(i + 1, j + 1));
        if (IsSwap(i, j)) best = std::min(best, SwapCost(i, j) + At(i + 2, j + 2));
        At(i, j) = best;
      }
    }
  }

  const Recall* m_first;
  const Recall* m_second;
  int m_rows;
  int m_columns;
  std::vector<std::int32_t> m_costs;
};

}  // namespace

std::vector<AlignedLine> AlignTest(const RecallLists& first, const RecallLists& second, int test) {
  const int firstCount = LengthOf(first, test);
  const int secondCount = LengthOf(second, test);
  const Recall* const left = first.PositionCount() > 0 ? first.Test(test) : nullptr;
  const Recall* const right = second.PositionCount() > 0 ? second.Test(test) : nullptr;
  std::vector<AlignedLine> lines;
  lines.reserve(static_cast<std::size_t>(std::max(firstCount, secondCount)));
  // Most entries are the same from one end to the other.
  int same = 0;
  while (same < std::min(firstCount, secondCount) && left[same] == right[same]) {
    ++same;
    lines.push_back({same, same});
  }
  if (same < std::max(firstCount, secondCount)) {
    Aligner(left + same, firstCount - same, right + same, secondCount - same).Align(same, lines);
  }
  return lines;
}

}  // namespace zova
