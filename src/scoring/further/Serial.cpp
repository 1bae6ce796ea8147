// SPDX-License-Identifier: GPL-3.0-or-later
//
// The studied positions that are left are bits, so that those within a distance are counted word by word.

#include <algorithm>
#include <bit>
#include <cstdlib>

#include "scoring/further/ScoreFurther.h"

namespace zova {

namespace {

constexpr int kWordBits = 64;

// Position p is bit p + kMaxLag, and a word more than the list needs follows, so that all lags of a position are bits.
class PositionsLeft {
 public:
  PositionsLeft(std::vector<std::uint64_t>& words, int count) : m_words(words), m_count(count), m_left(count) {
    const int last = count + kMaxLag;
    m_words.assign(static_cast<std::size_t>(last / kWordBits) + 2, 0);
    std::fill_n(m_words.begin(), last / kWordBits + 1, ~std::uint64_t{0});
    m_words.front() &= ~Below(kMaxLag + 1);  // positions count from 1
    m_words[static_cast<std::size_t>(last / kWordBits)] &= Below(last % kWordBits + 1);
  }

  void Take(int position) noexcept {
    const int bit = position + kMaxLag;
    m_words[static_cast<std::size_t>(bit / kWordBits)] &= ~Bit(bit);
    --m_left;
  }
  [[nodiscard]] bool Has(int position) const noexcept {
    const int bit = position + kMaxLag;
    return position >= 1 && position <= m_count && (m_words[static_cast<std::size_t>(bit / kWordBits)] & Bit(bit)) != 0;
  }
  /// From `first` to `last`, as far as they lie on the list.
  [[nodiscard]] int CountFrom(int first, int last) const noexcept {
    first = (first < 1 ? 1 : first) + kMaxLag;
    last = (last > m_count ? m_count : last) + kMaxLag;
    int count = 0;
    for (int word = first / kWordBits; word <= last / kWordBits; ++word) {
      std::uint64_t bits = m_words[static_cast<std::size_t>(word)];
      if (word == first / kWordBits) bits &= ~Below(first % kWordBits);
      if (word == last / kWordBits) bits &= Below(last % kWordBits + 1);
      count += std::popcount(bits);
    }
    return count;
  }
  [[nodiscard]] int Count() const noexcept { return m_left; }
  /// The positions from `position` - kMaxLag on as bits from 0 on.
  [[nodiscard]] std::uint64_t Around(int position) const noexcept {
    const auto word = static_cast<std::size_t>(position / kWordBits);
    const auto shift = static_cast<unsigned>(position % kWordBits);
    const std::uint64_t low = m_words[word] >> shift;
    return shift == 0 ? low : low | m_words[word + 1] << (kWordBits - shift);
  }

 private:
  static std::uint64_t Bit(int bit) noexcept { return std::uint64_t{1} << static_cast<unsigned>(bit % kWordBits); }
  // The lowest `bits`, at most all of them.
  static std::uint64_t Below(int bits) noexcept {
    return bits == kWordBits ? ~std::uint64_t{0} : (std::uint64_t{1} << static_cast<unsigned>(bits)) - 1;
  }

  std::vector<std::uint64_t>& m_words;
  int m_count;
  int m_left;
};

// What is collected over the transitions of a test.
struct Transitions {
  double RankSum = 0;
  int Ranked = 0;
  std::array<int, kLagCount> Actual{};
  std::array<int, kLagCount> Possible{};
};

// The percentile rank of the transition's nearness among all still possible ones; ties have their average.
void AddRank(int from, int to, const PositionsLeft& left, Transitions& all) {
  const int possible = left.Count();
  if (possible < 2) return;
  const int distance = std::abs(to - from);
  const int ties = (left.Has(from - distance) ? 1 : 0) + (left.Has(from + distance) ? 1 : 0);
  const int farther = possible - left.CountFrom(from - distance, from + distance);
  all.RankSum += (farther + (ties - 1) / 2.0) / (possible - 1);
  ++all.Ranked;
}

void AddLags(int from, int to, const PositionsLeft& left, Transitions& all) {
  const std::uint64_t around = left.Around(from);
  for (std::size_t i = 0; i < kLagCount; ++i) {
    all.Possible[i] += static_cast<int>(around >> static_cast<unsigned>(LagAt(i) + kMaxLag) & 1U);
  }
  if (std::abs(to - from) <= kMaxLag) ++all.Actual[LagIndex(to - from)];
}

}  // namespace

void ScoreSerial(const RecallSequence& sequence, const StudyRanks& ranks, const StudyList& study,
                 std::vector<std::uint64_t>& left, FurtherTest& scores) {
  PositionsLeft unrecalled(left, study.TrueCount);
  Transitions all;
  int from = 0;  // 0 after what is no item's first entry
  for (const RecallEntry& entry : sequence.Entries) {
    const int to = entry.Kind == RecallKind::First ? ranks[static_cast<std::size_t>(entry.Item)] : 0;
    if (from > 0 && to > 0) {
      AddRank(from, to, unrecalled, all);
      AddLags(from, to, unrecalled, all);
    }
    if (to > 0) unrecalled.Take(to);
    from = to;
  }
  scores.FirstPosition = sequence.Items.empty() ? Measured::Lacking(FurtherGap::NothingRecalled)
                                                : Measured::Of(ranks[static_cast<std::size_t>(sequence.Items.front())]);
  scores.TemporalFactor =
      all.Ranked == 0 ? Measured::Lacking(FurtherGap::NoTransition) : Measured::Of(all.RankSum / all.Ranked);
  for (std::size_t i = 0; i < kLagCount; ++i) {
    scores.LagCrp[i] = all.Possible[i] == 0 ? Measured::Lacking(FurtherGap::NothingAtLag)
                                            : Measured::Of(static_cast<double>(all.Actual[i]) / all.Possible[i]);
  }
}

}  // namespace zova
