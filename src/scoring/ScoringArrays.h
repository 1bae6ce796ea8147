// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <vector>

#include "project/ProjectParameters.h"
#include "scoring/Score.h"
#include "subjects/RecallLists.h"

namespace zova {

/// One value per test. Tests count from 1; access is unchecked.
template <typename Value>
class PerTest {
 public:
  void Reset(int testCount) { m_values.assign(static_cast<std::size_t>(testCount), Value{}); }
  Value& operator[](int test) noexcept { return m_values[static_cast<std::size_t>(test) - 1]; }
  const Value& operator[](int test) const noexcept { return m_values[static_cast<std::size_t>(test) - 1]; }

 private:
  std::vector<Value> m_values;
};

/// One value per row and test, both from 1. The rows of a test are contiguous.
template <typename Value>
class TestTable {
 public:
  void Reset(int rowCount, int testCount) {
    m_rowCount = rowCount;
    m_values.assign(static_cast<std::size_t>(rowCount) * static_cast<std::size_t>(testCount), Value{});
  }
  [[nodiscard]] int RowCount() const noexcept { return m_rowCount; }
  /// The rows of the test.
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

/// Per item and test: the item (0: not recalled), its minute and its rating. For a repeated item the later entry
/// counts.
using ItemTable = TestTable<Recall>;

/// Rating changes of the items recalled on both of two rated tests: shares of these items, cut to two decimals.
struct RatingChange {
  std::int16_t BothRecalled = 0;
  Ratio Up;
  Ratio Down;
  Ratio Same;
};

/// Gains and losses from test t-1 to t; by rating if test t is rated.
struct TestChange {
  std::int16_t Gains = 0;
  std::int16_t Losses = 0;
  std::int16_t GainsAboveMid = 0;
  std::int16_t GainsBelowMid = 0;
  std::int16_t GainsAtMid = 0;
  RatingChange Ratings;
};

/// The ratings of one test.
struct TestRatings {
  std::int16_t RateAboveMid = 0;
  std::int16_t RateBelowMid = 0;
  std::int16_t RateAtMid = 0;
  std::int16_t RatingSum = 0;  ///< up to 32,767, else an overflow
  Ratio RatingAvg;             ///< rating points, cut to two decimals; only for tests flagged "Y"
};

/// The measures of true items, and by the same rules of lures.
struct ItemScores {
  PerTest<std::int16_t> Net;    ///< entries of the list, repeats included
  PerTest<TestChange> Changes;  ///< from test 2
  RatingChange FirstToLast;     ///< test 1 to T, with at least 3 tests
  PerTest<TestRatings> Ratings;

  TestTable<std::int16_t> GainsByMin;          ///< row: minute; from test 2
  TestTable<std::int16_t> RecallByMin;         ///< row: minute
  std::vector<std::int16_t> CumulativeRecall;  ///< by running minute over all tests, from index 0
};

/// Category clustering on one test.
struct TestClustering {
  std::int16_t CatsUsed = 0;
  std::int16_t CatRepeats = 0;   ///< R: consecutive entries of one category
  std::int16_t SumSquares = 0;   ///< sum of n_c squared; up to 32,767, else an overflow
  std::int16_t MaxRepeats = 0;   ///< N - k: list length minus categories used
  float ExpectedRepeats = 0.0F;  ///< E: SumSquares / list length - 1
  Ratio ArcScore;                ///< at most 1, cut to three decimals
  Ratio ItemsPerCat;             ///< entries per category used, cut to two decimals
};

struct CategoryScores {
  PerTest<TestClustering> Tests;
  TestTable<std::int16_t> CatsByMin;  ///< categories first recalled in the minute (row)
  bool AnyArcFailed = false;
};

/// Bi-directional inter-test repetition of test t-1 on test t.
struct PairRepetition {
  std::int16_t ItrObserved = 0;  ///< O: adjacent pairs repeated, in either order
  std::int16_t ItrCommon = 0;    ///< c: list length minus gains
  float ItrExpected = 0.0F;      ///< E: 2c(c-1) / product of the two list lengths
  Ratio BiItr;                   ///< O - E, in pairs, cut to three decimals
};

struct ItrScores {
  PerTest<PairRepetition> Pairs;  ///< from test 2
  bool AnyItrFailed = false;
};

/// Working space of inter-test repetition.
struct ItrWork {
  std::vector<std::int32_t> ItemPlaces;
  std::vector<std::uint64_t> PairSlots;
};

/// Indexed by the pattern of recall, from 0 (never recalled) to 2^T - 1 (recalled on every test).
struct PatternCounts {
  std::vector<std::int16_t> ItemsWithPattern;
  std::vector<std::int16_t> LuresWithPattern;
};

/// Entries of a lure's own category before and after the lure, summed over the lures recalled.
struct TestLures {
  std::int16_t ItemsPreLure = 0;
  std::int16_t ItemsPostLure = 0;
};

/// Which lures were recalled, and their positions.
struct LureScores {
  TestTable<std::int16_t> LureRecalled;  ///< row: lure, numbered like its category; 1 or 0
  PerTest<TestLures> Tests;
};

/// All scores of one subject, and working space. A run reuses one instance.
struct ScoringArrays {
  RecallLists TrueLists;  ///< only in a false-memory project
  RecallLists LureLists;  ///< only in a false-memory project
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

/// Sizes everything for the project and sets it to 0.
void ResetScores(ScoringArrays& scores, const ProjectParameters& project);
void ResetMinuteScores(ItemScores& scores, const ProjectParameters& project);
void ResetRatingScores(ItemScores& scores, const ProjectParameters& project);
void ResetCategoryScores(CategoryScores& scores, const ProjectParameters& project);
void ResetItrScores(ItrScores& scores, const ProjectParameters& project);
void ResetLureScores(ScoringArrays& scores, const ProjectParameters& project);

}  // namespace zova
