// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>

#include "project/ProjectParameters.h"
#include "scoring/ScoringArrays.h"
#include "scoring/ScoringError.h"
#include "subjects/RecallLists.h"

namespace zova {

enum class ScoreFamily { Basic, Minutes, Ratings, Categories, Itr, Patterns, Lures };
inline constexpr std::size_t kScoreFamilyCount = 7;

/// The families with at least one column in the master.
class FamilySet {
 public:
  void Add(ScoreFamily family) noexcept { m_has[static_cast<std::size_t>(family)] = true; }
  [[nodiscard]] bool Has(ScoreFamily family) const noexcept { return m_has[static_cast<std::size_t>(family)]; }

 private:
  std::array<bool, kScoreFamilyCount> m_has{};
};

/// Resets `scores` and computes all families of measures for one subject or nominal group, in a fixed order. Throws
/// ScoringError: SubscriptOutOfRange for an item or minute outside the project's range, Overflow for a value beyond 16
/// bits. An overflow in a family that is not `shown` only leaves the values of that family 0.
void ScoreSubject(const RecallLists& lists, const ProjectParameters& project, const FamilySet& shown,
                  ScoringArrays& scores);

/// The lists without lures: `lists`, or in a false-memory project `scores.TrueLists`.
const RecallLists& ListsOfTrueItems(const RecallLists& lists, const ProjectParameters& project,
                                    const ScoringArrays& scores);

// The single families, called by ScoreSubject. Unless stated otherwise, `lists` hold only true items or only lures,
// `items` comes from IndexByItem, and the results are zero on entry.

/// Separates true items from lures. Blanks stay with the true items.
void StripLures(const RecallLists& lists, const ProjectParameters& project, RecallLists& trueLists,
                RecallLists& lureLists);
/// Indexes the lists by item. Throws ScoringError (SubscriptOutOfRange) for an item beyond the study list.
void IndexByItem(const RecallLists& lists, const ProjectParameters& project, ItemTable& items);

/// Gains and losses between consecutive tests (items), gains by minute and by rating, and rating changes (shares of the
/// items recalled on both tests). Throws ScoringError (SubscriptOutOfRange) for a minute outside the test.
void ScoreConsecutiveTests(const ItemTable& items, const ProjectParameters& project, ItemScores& scores);
/// Recall by minute and cumulative recall (items). Requires `scores.GainsByMin`. Throws ScoringError:
/// SubscriptOutOfRange for a minute outside the test, Overflow for a cumulative count beyond 16 bits.
void ScoreMinutes(const RecallLists& lists, const ItemTable& items, const ProjectParameters& project,
                  ItemScores& scores);
/// Mean rating (rating points), and counts of entries above, below and at the midpoint (highest rating + 1) / 2. Throws
/// ScoringError (Overflow) for a sum of ratings beyond 16 bits.
void ScoreRatings(const RecallLists& lists, const ProjectParameters& project, ItemScores& scores);
/// Categories recalled, items per category, and the adjusted ratio of clustering (ARC), without unit and at most 1:
///
///     ARC = (R - E) / (Max - E)      E = (sum of n_c squared) / N - 1      Max = N - k
///
/// for N entries of k categories, n_c of them in category c, and R pairs of adjacent entries of one category. E is the
/// chance value of R. Throws ScoringError: Overflow for a sum of squares beyond 16 bits, SubscriptOutOfRange for a
/// minute outside the test.
///
/// Roenker, D. L., Thompson, C. P., & Brown, S. C. (1971). Comparison of measures for the estimation of clustering in
/// free recall. Psychological Bulletin, 76, 45-48.
void ScoreCategories(const RecallLists& lists, const ProjectParameters& project, CategoryScores& scores,
                     std::vector<std::int16_t>& categoryCounts);
/// Bi-directional inter-test repetition, in pairs of adjacent items, for each two consecutive tests:
///
///     Bi-ITR = O - E      E = 2c(c - 1) / (N1 * N2)
///
/// O pairs adjacent on the earlier test (N1 entries) are adjacent again on the later one (N2 entries), in either order;
/// c = N2 - gains items are common to both. E is the chance value of O. `changes` come from ScoreConsecutiveTests.
/// Throws ScoringError (Overflow) for O, 2c(c - 1) or N1 * N2 beyond 16 bits.
///
/// After Bousfield, A. K., & Bousfield, W. A. (1966). Measurement of clustering and of sequential constancies in
/// repeated free recall. Psychological Reports, 19, 935-942.
void ScoreItr(const RecallLists& lists, const PerTest<TestChange>& changes, const ProjectParameters& project,
              ItrScores& scores, ItrWork& work);
/// Items (and lures) by their pattern of recall over the tests. `lures` is null in a project without false memory.
void CountPatterns(const ItemTable& items, const ItemTable* lures, const ProjectParameters& project,
                   PatternCounts& patterns);
/// Which lures were recalled, and the entries of their categories before and after them (items). `lists` include the
/// lures.
void ScoreWhichLures(const RecallLists& lists, const ProjectParameters& project, LureScores& scores);

}  // namespace zova
