// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <vector>

#include "project/ProjectParameters.h"
#include "scoring/Score.h"
#include "subjects/RecallLists.h"

namespace zova {

/// One value per test; tests count from 1, and others may not be asked for.
template <typename Value>
class PerTest {
 public:
  void Reset(int testCount) { m_values.assign(static_cast<std::size_t>(testCount), Value{}); }
  Value& operator[](int test) noexcept { return m_values[static_cast<std::size_t>(test) - 1]; }
  const Value& operator[](int test) const noexcept { return m_values[static_cast<std::size_t>(test) - 1]; }

 private:
  std::vector<Value> m_values;
};

/// One value per row and test; both count from 1. The rows of a test lie together.
template <typename Value>
class TestTable {
 public:
  void Reset(int rowCount, int testCount) {
    m_rowCount = rowCount;
    m_values.assign(static_cast<std::size_t>(rowCount) * static_cast<std::size_t>(testCount), Value{});
  }
  [[nodiscard]] int RowCount() const noexcept { return m_rowCount; }
  /// The test's first row; the others follow it.
  [[nodiscard]] const Value* Test(int test) const noexcept { return m_values.data() + Index(1, test); }
  Value& At(int row, int test) noexcept { return m_values[Index(row, test)]; }
  const Value& At(int row, int test) const noexcept { return m_values[Index(row, test)]; }

 private:
  [[nodiscard]] std::size_t Index(int row, int test) const noexcept {
    return (static_cast<std::size_t>(test) - 1) * static_cast<std::size_t>(m_rowCount) + static_cast<std::size_t>(row) -
           1;
  }

  int m_rowCount = 0;
  std::vector<Value> m_values;
};

/// Per item and test: the item itself (0: not recalled), its minute and its rating. Where an item stands twice in a
/// list, the later entry's minute and rating count.
using ItemTable = TestTable<Recall>;

/// How the ratings of the items on both of two rated tests changed, as shares of those items cut to two decimals.
struct RatingChange {
  std::int16_t BothRecalled = 0;
  Ratio Up;
  Ratio Down;
  Ratio Same;
};

/// The measures that are taken of any set of items: the true items, and by the same rules the lures. Values of test t
/// against t-1 stand at t, from test 2.
struct ItemScores {
  PerTest<std::int16_t> Net;  ///< entries of the list, repeats included
  PerTest<std::int16_t> Gains;
  PerTest<std::int16_t> Losses;
  TestTable<std::int16_t> GainsByMin;  ///< row: minute
  PerTest<std::int16_t> GainsAboveMid;
  PerTest<std::int16_t> GainsBelowMid;
  PerTest<std::int16_t> GainsAtMid;
  PerTest<RatingChange> Changes;  ///< test t-1 to t
  RatingChange FirstToLast;       ///< test 1 to T, with at least 3 tests

  TestTable<std::int16_t> RecallByMin;         ///< row: minute
  std::vector<std::int16_t> CumulativeRecall;  ///< by running minute over all tests, from index 0

  PerTest<std::int16_t> RateAboveMid;
  PerTest<std::int16_t> RateBelowMid;
  PerTest<std::int16_t> RateAtMid;
  PerTest<std::int16_t> RatingSum;  ///< up to 32,767, else an overflow
  PerTest<Ratio> RatingAvg;         ///< ratings of the scale, cut to two decimals; tests flagged "Y" only
};

/// How recall is organised by the categories of the list, per test.
struct CategoryScores {
  PerTest<std::int16_t> CatsUsed;
  TestTable<std::int16_t> CatsByMin;  ///< row: minute in which a category's first item came
  PerTest<std::int16_t> CatRepeats;   ///< neighbours of one category (R)
  PerTest<std::int16_t> SumSquares;   ///< of the entries per category; up to 32,767, else an overflow
  PerTest<std::int16_t> MaxRepeats;   ///< list length less categories used
  PerTest<float> ExpectedRepeats;     ///< by chance: SumSquares / list length - 1
  PerTest<Ratio> ArcScore;            ///< adjusted ratio of clustering, 1 at most, cut to three decimals
  PerTest<Ratio> ItemsPerCat;         ///< entries per category used, cut to two decimals
  bool AnyArcFailed = false;
};

/// Bi-directional inter-test repetition of test t-1 on test t, at t.
struct ItrScores {
  PerTest<std::int16_t> ItrObserved;  ///< pairs of neighbours found again, in either order
  PerTest<std::int16_t> ItrCommon;    ///< c: list length less gains
  PerTest<float> ItrExpected;         ///< by chance: 2c(c-1) / product of the two list lengths
  PerTest<Ratio> BiItr;               ///< pairs: observed less expected, cut to three decimals
  bool AnyItrFailed = false;
};

/// Working space of inter-test repetition.
struct ItrWork {
  std::vector<std::int32_t> ItemPlaces;
  std::vector<std::uint64_t> PairSlots;
};

/// Items by their pattern of recall over the tests, from index 0 (never recalled) to 2^T - 1 (on every test).
struct PatternCounts {
  std::vector<std::int16_t> ItemsWithPattern;
  std::vector<std::int16_t> LuresWithPattern;
};

/// Which lures were recalled, and what of their categories before and after them.
struct LureScores {
  TestTable<std::int16_t> LureRecalled;  ///< row: lure, numbered like its category; 1 or 0
  PerTest<std::int16_t> ItemsPreLure;
  PerTest<std::int16_t> ItemsPostLure;
};

/// Everything that is computed of one subject, and what that takes. One set serves a whole run.
struct ScoringArrays {
  RecallLists TrueLists;  ///< without lures; only in a false-memory project
  RecallLists LureLists;  ///< nothing but lures; only in a false-memory project
  ItemTable TrueItems;
  ItemTable LureItems;

  ItemScores True;
  ItemScores Lures;
  CategoryScores Categories;
  ItrScores Itr;
  PatternCounts Patterns;
  LureScores Which;

  /// Working space of single families.
  std::vector<std::int16_t> CategoryCounts;
  ItrWork Places;
};

/// Everything 0 and in the shape of the project.
void ResetScores(ScoringArrays& scores, const ProjectParameters& project);
void ResetMinuteScores(ItemScores& scores, const ProjectParameters& project);
void ResetRatingScores(ItemScores& scores, const ProjectParameters& project);
void ResetCategoryScores(CategoryScores& scores, const ProjectParameters& project);
void ResetItrScores(ItrScores& scores, const ProjectParameters& project);
void ResetLureScores(ScoringArrays& scores, const ProjectParameters& project);

}  // namespace zova
