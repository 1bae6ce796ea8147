// SPDX-License-Identifier: GPL-3.0-or-later
//
// The further measures: what the field reports of free recall besides the columns of a master. Repeats after the first
// entry, blanks and lures are left out. Intrusions and lures break a list where neighbours count. A transition from or
// to a repeat, a lure or an intrusion counts in no measure of transitions; elsewhere a list closes up over its repeats.
//
// R: neighbours of one category. n_c: recalled of category c, r their sum, k categories with n_c > 0. N: items studied,
// m of each category.
#pragma once

#include <span>
#include <vector>

#include "scoring/further/FurtherScores.h"
#include "scoring/further/RecallSequence.h"
#include "scoring/further/StudyList.h"

namespace zova {

/// What the further measures of a subject are computed from.
struct FurtherInput {
  const RecallLists& Lists;
  /// Why intrusions are not known; None where they were kept, though this subject may have none.
  FurtherGap NoIntrusions = FurtherGap::NoIntrusionsFile;
  std::span<const IntrusionPlace> Intrusions;     ///< by test, then place
  std::span<const StudyRanks* const> Orders;      ///< per test; null where the order of study is not known
  FurtherGap NoOrder = FurtherGap::NoStudyOrder;  ///< why it is not
};

/// The sequences of a subject, and working space. A run reuses one instance.
struct FurtherWork {
  std::vector<RecallSequence> Tests;  ///< from index 0
  std::vector<bool> Seen;             ///< by item
  std::vector<std::int16_t> Counts;   ///< by category
  std::vector<std::int16_t> Next;     ///< by item
  std::vector<std::uint32_t> PairKeys;
  std::vector<std::uint64_t> Left;
};

/// The sequences of all tests, as in FurtherWork. Throws ScoringError (SubscriptOutOfRange).
void ReadSequences(const RecallLists& lists, std::span<const IntrusionPlace> intrusions, const StudyList& study,
                   std::vector<RecallSequence>& tests);

/// Resets `scores` and computes all further measures. Throws ScoringError (SubscriptOutOfRange) for an item beyond the
/// study list.
void ScoreFurther(const FurtherInput& input, const StudyList& study, FurtherColumns columns, FurtherScores& scores,
                  FurtherWork& work);

/// Sizes everything for the project, without values.
void ResetFurther(const StudyList& study, FurtherColumns columns, FurtherScores& scores);

// The single families, called by ScoreFurther. Each sets its own fields.

/// RR, MRR, Deviation, Z and LBC of one test.
void ScoreClustering(const RecallSequence& sequence, const StudyList& study, std::vector<std::int16_t>& counts,
                     FurtherTest& scores);
/// Transitions within a category, relative to those at which an unrecalled item of that category was left.
Measured CategoryCrp(const RecallSequence& sequence, const StudyList& study, std::vector<std::int16_t>& counts);

/// Pairs of neighbours that two lists have in common.
struct RepeatedPairs {
  int SameOrder = 0;    ///< ordered pairs of the first list that are neighbours in this order on the second
  int AnyOrder = 0;     ///< in either order
  int CommonItems = 0;  ///< c
};
RepeatedPairs CountRepeatedPairs(const RecallSequence& first, const RecallSequence& second,
                                 std::vector<std::int16_t>& next);
/// O - 2c(c-1)/(hq) for lists of h and q items: the pair frequency. Without a value if a list is empty.
Measured PairFrequency(const RecallSequence& first, const RecallSequence& second, std::vector<std::int16_t>& next);
/// The mean pair frequency over all pairs of a group's members, whose lists of one test these are. Without a value if a
/// list is empty.
Measured SharedOrganization(std::span<const RecallSequence> members, std::vector<std::int16_t>& next);
/// ForwardItr, PairsRepeated and PairsExpected.
void ScoreRepeatedPairs(const RecallSequence& earlier, const RecallSequence& later, std::vector<std::int16_t>& next,
                        FurtherPair& scores);
/// Sum of n_ij log n_ij / sum of n_i log n_i over the successive pairs (i, j) of all tests; n_i is the sum of n_ij.
Measured SubjectiveOrganization(std::span<const RecallSequence> tests, std::vector<std::uint32_t>& pairKeys);

/// FirstPosition, TemporalFactor and LagCrp of one test.
void ScoreSerial(const RecallSequence& sequence, const StudyRanks& ranks, const StudyList& study,
                 std::vector<std::uint64_t>& left, FurtherTest& scores);
/// LureProportion and LureOutput.
void ScoreLureOutput(const RecallSequence& sequence, const StudyList& study, FurtherTest& scores);

}  // namespace zova
