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

/// The families of which the master has a column.
class FamilySet {
 public:
  void Add(ScoreFamily family) noexcept { m_has[static_cast<std::size_t>(family)] = true; }
  [[nodiscard]] bool Has(ScoreFamily family) const noexcept { return m_has[static_cast<std::size_t>(family)]; }

 private:
  std::array<bool, kScoreFamilyCount> m_has{};
};

/// Computes every family of measures, in their fixed order, of the lists of one subject (or group), into `scores`,
/// which is reset first. Every family runs whatever is `shown`; but where nothing of a family is, an overflow in it
/// only leaves its values 0. Throws ScoringError for an item or minute outside the project's range and for overflows.
void ScoreSubject(const RecallLists& lists, const ProjectParameters& project, const FamilySet& shown,
                  ScoringArrays& scores);

/// The lists that the measures of true items are taken from: `lists`, in a false-memory project without the lures.
const RecallLists& ListsOfTrueItems(const RecallLists& lists, const ProjectParameters& project,
                                    const ScoringArrays& scores);

// The single families, for tests and for the dispatch above. `lists` are lure-free (or nothing but lures), `items` is
// what IndexByItem made of them, and the results are zero on entry.

/// An item is a lure when its number is a whole multiple of the category size.
inline bool IsLure(int item, const ProjectParameters& project) noexcept {
  return item > 0 && item % project.ItemsPerCategory == 0;
}

/// The category of an item, from 1; 0 for a blank or an item behind the last category.
inline int CategoryOf(int item, const ProjectParameters& project) noexcept {
  if (item < 1 || project.ItemsPerCategory < 1) return 0;
  const int category = (item - 1) / project.ItemsPerCategory + 1;
  return category <= project.CategoryCount ? category : 0;
}

/// Parts the lists in true items and lures. Blanks stay with the true items.
void StripLures(const RecallLists& lists, const ProjectParameters& project, RecallLists& trueLists,
                RecallLists& lureLists);
/// Turns the lists into a table by item. Throws ScoringError for an item beyond the study list.
void IndexByItem(const RecallLists& lists, const ProjectParameters& project, ItemTable& items);

/// Gains and losses between neighbouring tests, their minutes and ratings, rating changes.
void ScoreConsecutiveTests(const ItemTable& items, const ProjectParameters& project, ItemScores& scores);
/// Recall by minute and cumulative recall; needs `scores.GainsByMin`.
void ScoreMinutes(const RecallLists& lists, const ItemTable& items, const ProjectParameters& project,
                  ItemScores& scores);
/// Averages, and counts around the midpoint (highest rating + 1) / 2 of the scale.
void ScoreRatings(const RecallLists& lists, const ProjectParameters& project, ItemScores& scores);
/// Categories, and clustering as the adjusted ratio of clustering (Roenker, Thompson & Brown 1971).
void ScoreCategories(const RecallLists& lists, const ProjectParameters& project, CategoryScores& scores,
                     std::vector<std::int16_t>& categoryCounts);
/// Bi-directional inter-test repetition (after Bousfield & Bousfield 1966). The gains are those of the same lists.
void ScoreItr(const RecallLists& lists, const PerTest<TestChange>& changes, const ProjectParameters& project,
              ItrScores& scores, ItrWork& work);
/// `lures` is null where no lures are told apart.
void CountPatterns(const ItemTable& items, const ItemTable* lures, const ProjectParameters& project,
                   PatternCounts& patterns);
/// `lists` with the lures in their places.
void ScoreWhichLures(const RecallLists& lists, const ProjectParameters& project, LureScores& scores);

}  // namespace zova
