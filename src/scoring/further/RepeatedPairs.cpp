// SPDX-License-Identifier: GPL-3.0-or-later

#include <algorithm>
#include <cmath>
#include <utility>

#include "scoring/further/ScoreFurther.h"

namespace zova {

namespace {

// c(c-1)/(hq), the chance that a pair is repeated in one order; both lists have items.
double ExpectedInOneOrder(const RepeatedPairs& pairs, const RecallSequence& first, const RecallSequence& second) {
  const double common = pairs.CommonItems;
  return common * (common - 1) / (static_cast<double>(first.Count()) * second.Count());
}

double TimesLog(std::size_t count) {
  if (count == 1) return 0;  // most pairs come once
  const auto n = static_cast<double>(count);
  return n * std::log(n);
}

}  // namespace

RepeatedPairs CountRepeatedPairs(const RecallSequence& first, const RecallSequence& second,
                                 std::vector<std::int16_t>& next) {
  next.assign(second.Has.size(), 0);
  const auto following = [&next](std::int16_t item) -> std::int16_t& { return next[static_cast<std::size_t>(item)]; };
  for (std::size_t i = 1; i < second.Chain.size(); ++i) following(second.Chain[i - 1]) = second.Chain[i];
  following(0) = 0;  // a break has no neighbour
  RepeatedPairs pairs;
  for (std::size_t i = 1; i < first.Chain.size(); ++i) {
    const auto [a, b] = std::pair(first.Chain[i - 1], first.Chain[i]);
    if (a == 0 || b == 0) continue;
    const bool sameOrder = following(a) == b;
    pairs.SameOrder += sameOrder ? 1 : 0;
    pairs.AnyOrder += sameOrder || following(b) == a ? 1 : 0;
  }
  for (const std::int16_t item : first.Items) pairs.CommonItems += second.Has[static_cast<std::size_t>(item)] ? 1 : 0;
  return pairs;
}

Measured PairFrequency(const RecallSequence& first, const RecallSequence& second, std::vector<std::int16_t>& next) {
  if (first.Count() == 0 || second.Count() == 0) return Measured::Lacking(FurtherGap::EmptyList);
  const RepeatedPairs pairs = CountRepeatedPairs(first, second, next);
  return Measured::Of(pairs.AnyOrder - 2 * ExpectedInOneOrder(pairs, first, second));
}

Measured SharedOrganization(std::span<const RecallSequence> members, std::vector<std::int16_t>& next) {
  double sum = 0;
  std::size_t pairs = 0;
  for (std::size_t first = 0; first < members.size(); ++first) {
    for (std::size_t second = first + 1; second < members.size(); ++second) {
      const Measured pair = PairFrequency(members[first], members[second], next);
      if (pair.Gap != FurtherGap::None) return pair;
      sum += pair.Value;
      ++pairs;
    }
  }
  return pairs == 0 ? Measured::Lacking(FurtherGap::NotScored) : Measured::Of(sum / static_cast<double>(pairs));
}

void ScoreRepeatedPairs(const RecallSequence& earlier, const RecallSequence& later, std::vector<std::int16_t>& next,
                        FurtherPair& scores) {
  const RepeatedPairs pairs = CountRepeatedPairs(earlier, later, next);
  scores.PairsRepeated = Measured::Of(pairs.AnyOrder);
  if (earlier.Count() == 0 || later.Count() == 0) {
    scores.ForwardItr = scores.PairsExpected = Measured::Lacking(FurtherGap::EmptyList);
    return;
  }
  const double expected = ExpectedInOneOrder(pairs, earlier, later);
  scores.ForwardItr = Measured::Of(pairs.SameOrder - expected);
  scores.PairsExpected = Measured::Of(2 * expected);
}

// Sorted, the keys of a pair are neighbours, and the pairs of a first item are.
Measured SubjectiveOrganization(std::span<const RecallSequence> tests, std::vector<std::uint32_t>& pairKeys) {
  pairKeys.clear();
  for (const RecallSequence& test : tests) {
    for (std::size_t i = 1; i < test.Items.size(); ++i) {
      pairKeys.push_back(static_cast<std::uint32_t>(test.Items[i - 1]) << 16U |
                         static_cast<std::uint32_t>(test.Items[i]));
    }
  }
  std::sort(pairKeys.begin(), pairKeys.end());
  double pairs = 0, items = 0;
  std::size_t ofPair = 0, ofItem = 0;
  for (std::size_t i = 0; i < pairKeys.size(); ++i) {
    ++ofPair;
    ++ofItem;
    const bool isLast = i + 1 == pairKeys.size();
    if (isLast || pairKeys[i + 1] != pairKeys[i]) pairs += TimesLog(std::exchange(ofPair, 0));
    if (isLast || pairKeys[i + 1] >> 16U != pairKeys[i] >> 16U) items += TimesLog(std::exchange(ofItem, 0));
  }
  return items == 0 ? Measured::Lacking(FurtherGap::NothingTwice) : Measured::Of(pairs / items);
}

}  // namespace zova
