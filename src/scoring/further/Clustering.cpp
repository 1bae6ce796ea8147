// SPDX-License-Identifier: GPL-3.0-or-later
//
//   RR = R / (r - 1)       MRR = R / (r - k)       Deviation = R - E       E = S2 / r - 1
//   Z = (R - E) / sqrt(V)  V = [S2 (S2 + r(r+1)) - 2 r S3 - r^3] / [r^2 (r-1)]
//   LBC = R - (r - 1)(m - 1) / (N - 1)
//
// with S2 and S3 the sums of n_c squared and cubed. E and V are the mean and the variance of R over all orders of the
// items recalled.

#include <cmath>

#include "scoring/further/ScoreFurther.h"

namespace zova {

namespace {

struct Clustering {
  std::int64_t Repetitions = 0;  // R
  std::int64_t Count = 0;        // r
  std::int64_t Categories = 0;   // k
  std::int64_t Squares = 0;      // S2
  std::int64_t Cubes = 0;        // S3
};

Clustering Count(const RecallSequence& sequence, const StudyList& study, std::vector<std::int16_t>& counts) {
  counts.assign(study.CategorySizes.size(), 0);
  Clustering result;
  std::int16_t previous = 0;
  for (const std::int16_t item : sequence.Chain) {
    const std::int16_t category = item == 0 ? std::int16_t{0} : study.CategoryAt[static_cast<std::size_t>(item)];
    if (category != 0 && category == previous) ++result.Repetitions;
    if (category != 0) ++counts[static_cast<std::size_t>(category)];
    previous = category;
  }
  for (const std::int64_t count : counts) {
    result.Count += count;
    result.Categories += count > 0 ? 1 : 0;
    result.Squares += count * count;
    result.Cubes += count * count * count;
  }
  return result;
}

double Quotient(std::int64_t part, std::int64_t whole) {
  return static_cast<double>(part) / static_cast<double>(whole);
}

// The products stay below 10^13 for lists of 999 items.
Measured ZOf(const Clustering& c, double deviation) {
  if (c.Count < 2) return Measured::Lacking(FurtherGap::FewerThanTwo);
  const std::int64_t r = c.Count;
  const std::int64_t variance = c.Squares * (c.Squares + r * (r + 1)) - 2 * r * c.Cubes - r * r * r;
  if (variance == 0) return Measured::Lacking(FurtherGap::NoVariance);
  return Measured::Of(deviation / std::sqrt(Quotient(variance, r * r * (r - 1))));
}

}  // namespace

void ScoreClustering(const RecallSequence& sequence, const StudyList& study, std::vector<std::int16_t>& counts,
                     FurtherTest& scores) {
  const Clustering c = Count(sequence, study, counts);
  const std::int64_t r = c.Count;
  if (r == 0) {
    const Measured empty = Measured::Lacking(FurtherGap::NothingRecalled);
    scores.RepetitionRatio = scores.ModifiedRatio = scores.Deviation = scores.ZScore = scores.ListBased = empty;
    return;
  }
  scores.RepetitionRatio =
      r < 2 ? Measured::Lacking(FurtherGap::FewerThanTwo) : Measured::Of(Quotient(c.Repetitions, r - 1));
  scores.ModifiedRatio = r == c.Categories ? Measured::Lacking(FurtherGap::NoRoom)
                                           : Measured::Of(Quotient(c.Repetitions, r - c.Categories));
  const double deviation = Quotient((c.Repetitions + 1) * r - c.Squares, r);
  scores.Deviation = Measured::Of(deviation);
  scores.ZScore = ZOf(c, deviation);
  if (study.TrueCount < 2) {
    scores.ListBased = Measured::Lacking(FurtherGap::OneStudied);
  } else {
    const std::int64_t room = study.TrueCount - 1;
    scores.ListBased = Measured::Of(Quotient(c.Repetitions * room - (r - 1) * (study.CategorySize - 1), room));
  }
}

Measured CategoryCrp(const RecallSequence& sequence, const StudyList& study, std::vector<std::int16_t>& counts) {
  counts.assign(study.CategorySizes.begin(), study.CategorySizes.end());  // those left
  std::int64_t within = 0, possible = 0;
  std::int16_t previous = 0;  // the category of the entry before; 0 if it is none of a studied item's first entries
  for (const RecallEntry& entry : sequence.Entries) {
    const bool isItem = entry.Kind == RecallKind::First;
    const std::int16_t category = isItem ? study.CategoryAt[static_cast<std::size_t>(entry.Item)] : std::int16_t{0};
    if (isItem && previous != 0 && counts[static_cast<std::size_t>(previous)] > 0) {
      ++possible;
      within += category == previous ? 1 : 0;
    }
    if (isItem) --counts[static_cast<std::size_t>(category)];
    previous = category;
  }
  return possible == 0 ? Measured::Lacking(FurtherGap::NothingLeft) : Measured::Of(Quotient(within, possible));
}

}  // namespace zova
