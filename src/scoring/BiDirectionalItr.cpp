// SPDX-License-Identifier: GPL-3.0-or-later
//
// Observed repetitions: each pair of neighbours (a, b) of the earlier test is held against each pair (c, d) of the
// later one; it counts when both c and d are among a and b. For a pair of two different items that is {a, b} in either
// order, and also (a, a) and (b, b). Counting the later pairs once, whatever their order, answers this for every
// earlier pair without walking the later list again; and a later list without repeats, the usual one, needs not even
// that.
//
// The last entry of the later list makes a pair with the position behind it, which counts as 0: it meets only an
// earlier pair that holds a blank.

#include <algorithm>
#include <bit>

#include "scoring/ScoreSubject.h"

namespace zova {

namespace {

// A table from unordered pairs of items to how often they stand together, in one array with open addressing. A slot
// holds the pair's key in its upper and the count in its lower half; 0 is a free slot, as no count is 0.
class PairTable {
 public:
  PairTable(std::vector<std::uint64_t>& slots, std::size_t pairCount) : m_slots(slots) {
    const std::size_t size = std::bit_ceil(std::max<std::size_t>(16, 4 * pairCount));
    m_slots.assign(size, 0);
    m_shift = 32 - std::countr_zero(size);
  }

  void Add(int first, int second) noexcept {
    std::uint64_t& slot = Find(Key(first, second));
    if (slot == 0) slot = static_cast<std::uint64_t>(Key(first, second)) << 32U;
    ++slot;
  }

  [[nodiscard]] std::int64_t Count(int first, int second) noexcept {
    return static_cast<std::int64_t>(Find(Key(first, second)) & 0xFFFFFFFFU);
  }

 private:
  static std::uint32_t Key(int first, int second) noexcept {
    return (static_cast<std::uint32_t>(std::min(first, second)) << 16U) |
           static_cast<std::uint32_t>(std::max(first, second));
  }

  std::uint64_t& Find(std::uint32_t key) noexcept {
    const std::size_t mask = m_slots.size() - 1;
    std::size_t index = (key * 0x9E3779B1U) >> static_cast<unsigned>(m_shift);  // the bits that all of the key reaches
    for (;; ++index) {
      std::uint64_t& slot = m_slots[index & mask];
      if (slot == 0 || slot >> 32U == key) return slot;
    }
  }

  std::vector<std::uint64_t>& m_slots;
  int m_shift = 0;
};

// Where the items of the later list stand, from 2; 0 for those that do not. The blank behind the list stands behind its
// last entry. False when an item stands twice or a blank inside, so that one place does not tell all.
bool FindPlaces(const RecallLists& lists, int test, int itemCount, std::vector<std::int32_t>& places) {
  places.assign(static_cast<std::size_t>(itemCount) + 1, 0);
  const int count = lists.RecallCount(test);
  places[0] = count + 2;
  std::int32_t taken = 0;
  for (int position = 1; position <= count; ++position) {
    std::int32_t& place = places[static_cast<std::size_t>(lists.At(test, position).Item)];
    taken |= place;
    place = position + 1;
  }
  return taken == 0;
}

// Every item at one place: a pair of neighbours found again has places that differ by one.
std::int64_t CountByPlaces(const RecallLists& lists, int earlier, const std::vector<std::int32_t>& places) {
  std::int64_t observed = 0;
  for (int position = 1; position < lists.RecallCount(earlier); ++position) {
    const std::int32_t a = places[static_cast<std::size_t>(lists.At(earlier, position).Item)];
    const std::int32_t b = places[static_cast<std::size_t>(lists.At(earlier, position + 1).Item)];
    observed += ((a - b == 1) | (b - a == 1)) ? 1 : 0;
  }
  return observed;
}

std::int64_t CountByPairs(const RecallLists& lists, int later, std::vector<std::uint64_t>& pairSlots) {
  const int earlier = later - 1;
  const int laterCount = lists.RecallCount(later);
  PairTable pairs(pairSlots, static_cast<std::size_t>(laterCount));
  for (int position = 1; position <= laterCount; ++position) {
    const int next = position < laterCount ? lists.At(later, position + 1).Item : 0;
    pairs.Add(lists.At(later, position).Item, next);
  }
  std::int64_t observed = 0;
  for (int position = 1; position < lists.RecallCount(earlier); ++position) {
    const int a = lists.At(earlier, position).Item;
    const int b = lists.At(earlier, position + 1).Item;
    observed += pairs.Count(a, a);
    if (a != b) observed += pairs.Count(a, b) + pairs.Count(b, b);
  }
  return observed;
}

}  // namespace

void ScoreItr(const RecallLists& lists, const PerTest<TestChange>& changes, const ProjectParameters& project,
              ItrScores& scores, ItrWork& work) {
  for (int test = 2; test <= project.TestCount; ++test) {
    const std::int64_t count = lists.RecallCount(test);
    const std::int64_t countBefore = lists.RecallCount(test - 1);
    const std::int64_t observed = FindPlaces(lists, test, project.ItemCount, work.ItemPlaces)
                                      ? CountByPlaces(lists, test - 1, work.ItemPlaces)
                                      : CountByPairs(lists, test, work.PairSlots);
    PairRepetition& pair = scores.Pairs[test];
    pair.ItrObserved = Checked16(observed, "the number of repeated pairs", test);
    const std::int64_t common = count - changes[test].Gains;
    pair.ItrCommon = static_cast<std::int16_t>(common);
    const bool failed = count < 1 || countBefore < 1;
    if (failed) {
      scores.AnyItrFailed = true;
    } else {
      const std::int16_t chances = Checked16((common - 1) * 2 * common, "the product of the common items", test);
      const std::int16_t product = Checked16(count * countBefore, "the product of the list lengths", test);
      pair.ItrExpected = static_cast<float>(chances) / static_cast<float>(product);
    }
    pair.BiItr = CutRatio(static_cast<float>(pair.ItrObserved) - pair.ItrExpected, kThreeDecimals);
    if (failed) pair.BiItr.Gap = ScoreGap::EmptyList;
  }
}

}  // namespace zova
