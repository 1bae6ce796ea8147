// SPDX-License-Identifier: GPL-3.0-or-later
//
// Observed repetitions: an adjacent pair (a, b) of the earlier test matches an adjacent pair (c, d) of the later test
// if both c and d are in {a, b}. For a != b the matches are {a, b} in either order, (a, a) and (b, b). A table of the
// later pairs, without regard to order, gives the matches of each earlier pair in constant time. A later list without
// repeats or blanks, the usual case, needs only the position of each item.
//
// The last entry of the later list forms a pair with the blank (0) after it, which matches only an earlier pair with a
// blank.

#include <algorithm>
#include <bit>

#include "scoring/ScoreSubject.h"

namespace zova {

namespace {

// Counts unordered pairs of items, by open addressing. A slot holds the pair's key in its upper half and the count in
// its lower half; 0 is a free slot.
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
    std::size_t index = (key * 0x9E3779B1U) >> static_cast<unsigned>(m_shift);  // the high bits mix best
    for (;; ++index) {
      std::uint64_t& slot = m_slots[index & mask];
      if (slot == 0 || slot >> 32U == key) return slot;
    }
  }

  std::vector<std::uint64_t>& m_slots;
  int m_shift = 0;
};

// The place of each item of the later list, from 2, and of the blank after the list; 0 for an item not on it. False
// when an item is repeated or a blank stands inside the list, so that items have more than one place.
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

// For items with one place each: a repeated pair has places that differ by one.
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
