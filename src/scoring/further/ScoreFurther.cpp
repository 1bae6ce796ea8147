// SPDX-License-Identifier: GPL-3.0-or-later

#include "scoring/further/ScoreFurther.h"

#include <algorithm>

namespace zova {

namespace {

struct Change {
  int Gains = 0;
  int Losses = 0;
};

Change ChangeBetween(const RecallSequence& earlier, const RecallSequence& later) {
  const auto lacking = [](const RecallSequence& from, const RecallSequence& in) {
    return static_cast<int>(std::count_if(from.Items.begin(), from.Items.end(),
                                          [&](std::int16_t item) { return !in.Has[static_cast<std::size_t>(item)]; }));
  };
  return {lacking(later, earlier), lacking(earlier, later)};
}

Measured Share(int part, int whole, FurtherGap gap) {
  return whole == 0 ? Measured::Lacking(gap) : Measured::Of(static_cast<double>(part) / whole);
}

void ScoreCounts(const RecallSequence& sequence, FurtherGap noIntrusions, const StudyList& study, FurtherTest& scores) {
  scores.Proportion = Share(sequence.Count(), study.TrueCount, FurtherGap::NotScored);
  scores.Repeats = Measured::Of(sequence.Repeats);
  scores.Intrusions =
      noIntrusions == FurtherGap::None ? Measured::Of(sequence.Intrusions) : Measured::Lacking(noIntrusions);
}

void ScoreChanges(const RecallSequence& earlier, const RecallSequence& later, const StudyList& study,
                  FurtherPair& scores) {
  const Change change = ChangeBetween(earlier, later);
  scores.GainRate = Share(change.Gains, study.TrueCount - earlier.Count(), FurtherGap::EverythingBefore);
  scores.LossRate = Share(change.Losses, earlier.Count(), FurtherGap::NothingBefore);
}

void ScoreFirstToLast(const RecallSequence& first, const RecallSequence& last, FurtherScores& scores) {
  const Change change = ChangeBetween(first, last);
  scores.NetChange = Measured::Of(last.Count() - first.Count());
  scores.Gains = Measured::Of(change.Gains);
  scores.Losses = Measured::Of(change.Losses);
}

// They lack what the position of the first recall lacks.
void ScoreFirstRecalls(int test, FurtherScores& scores) {
  const Measured& first = scores.Tests[test].FirstPosition;
  for (int position = 1; position <= scores.FirstRecalls.RowCount(); ++position) {
    scores.FirstRecalls.At(position, test) =
        first.Gap == FurtherGap::None ? Measured::Of(first.Value == position ? 1 : 0) : first;
  }
}

void ScoreSerialOf(int test, const FurtherInput& input, const StudyList& study, FurtherWork& work,
                   FurtherScores& scores) {
  const StudyRanks* ranks = input.Orders[static_cast<std::size_t>(test) - 1];
  const RecallSequence& sequence = work.Tests[static_cast<std::size_t>(test) - 1];
  FurtherTest& values = scores.Tests[test];
  if (ranks == nullptr) {
    const Measured unknown = Measured::Lacking(input.NoOrder);
    values.FirstPosition = values.TemporalFactor = unknown;
    values.LagCrp.fill(unknown);
  } else {
    ScoreSerial(sequence, *ranks, study, work.Left, values);
  }
  ScoreFirstRecalls(test, scores);
  if (scores.Positions.RowCount() == 0) return;
  for (std::size_t item = 1; item < study.LureAt.size(); ++item) {
    if (ranks != nullptr && (*ranks)[item] > 0) {
      scores.Positions.At((*ranks)[item], test) = Measured::Of(sequence.Has[item] ? 1 : 0);
    }
  }
  for (int position = 1; ranks == nullptr && position <= study.TrueCount; ++position) {
    scores.Positions.At(position, test) = Measured::Lacking(input.NoOrder);
  }
}

}  // namespace

void ReadSequences(const RecallLists& lists, std::span<const IntrusionPlace> intrusions, const StudyList& study,
                   std::vector<RecallSequence>& tests) {
  tests.resize(static_cast<std::size_t>(study.TestCount));
  for (int test = 1; test <= study.TestCount; ++test) {
    const auto end = std::find_if(intrusions.begin(), intrusions.end(),
                                  [&](const IntrusionPlace& intrusion) { return intrusion.Test > test; });
    const auto count = static_cast<std::size_t>(end - intrusions.begin());
    ReadSequence(lists, test, intrusions.first(count), study, tests[static_cast<std::size_t>(test) - 1]);
    intrusions = intrusions.subspan(count);
  }
}

void ResetFurther(const StudyList& study, FurtherColumns columns, FurtherScores& scores) {
  scores.Tests.Reset(study.TestCount);
  scores.Pairs.Reset(study.TestCount);
  scores.NetChange = scores.Gains = scores.Losses = scores.SubjectiveOrganization = {};
  const bool withPositions = columns == FurtherColumns::AllAndPositions || columns == FurtherColumns::AllAndCurves;
  scores.Positions.Reset(withPositions ? study.TrueCount : 0, study.TestCount);
  scores.FirstRecalls.Reset(columns == FurtherColumns::AllAndCurves ? study.TrueCount : 0, study.TestCount);
}

void ScoreFurther(const FurtherInput& input, const StudyList& study, FurtherColumns columns, FurtherScores& scores,
                  FurtherWork& work) {
  ResetFurther(study, columns, scores);
  ReadSequences(input.Lists, input.Intrusions, study, work.Tests);
  work.Seen.assign(study.LureAt.size(), false);
  int seen = 0;
  for (int test = 1; test <= study.TestCount; ++test) {
    const RecallSequence& sequence = work.Tests[static_cast<std::size_t>(test) - 1];
    FurtherTest& values = scores.Tests[test];
    ScoreCounts(sequence, input.NoIntrusions, study, values);
    for (const std::int16_t item : sequence.Items) {
      if (!work.Seen[static_cast<std::size_t>(item)]) ++seen;
      work.Seen[static_cast<std::size_t>(item)] = true;
    }
    values.Cumulative = Measured::Of(seen);
    if (study.HasCategories) {
      ScoreClustering(sequence, study, work.Counts, values);
      values.CategoryCrp = CategoryCrp(sequence, study, work.Counts);
    }
    ScoreSerialOf(test, input, study, work, scores);
    if (study.LureCount > 0) ScoreLureOutput(sequence, study, values);
    if (test == 1) continue;
    const RecallSequence& earlier = work.Tests[static_cast<std::size_t>(test) - 2];
    ScoreChanges(earlier, sequence, study, scores.Pairs[test]);
    ScoreRepeatedPairs(earlier, sequence, work.Next, scores.Pairs[test]);
  }
  if (study.TestCount < 2) return;
  ScoreFirstToLast(work.Tests.front(), work.Tests.back(), scores);
  scores.SubjectiveOrganization = SubjectiveOrganization(work.Tests, work.PairKeys);
}

void ScoreLureOutput(const RecallSequence& sequence, const StudyList& study, FurtherTest& scores) {
  scores.LureProportion = Share(sequence.Lures, study.LureCount, FurtherGap::NotScored);
  const int length = sequence.Count() + sequence.Lures;
  if (sequence.Lures == 0 || length == 1) {
    scores.LureOutput = Measured::Lacking(sequence.Lures == 0 ? FurtherGap::NoLure : FurtherGap::LureAlone);
    return;
  }
  int place = 0;  // in the list of first entries without intrusions, from 0
  std::int64_t sum = 0;
  for (const RecallEntry& entry : sequence.Entries) {
    if (entry.Kind == RecallKind::Lure) sum += place;
    if (entry.Kind == RecallKind::Lure || entry.Kind == RecallKind::First) ++place;
  }
  scores.LureOutput = Measured::Of(static_cast<double>(sum) / (static_cast<double>(length - 1) * sequence.Lures));
}

}  // namespace zova
