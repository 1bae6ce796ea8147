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

/// What came and went from test t-1 to t. By rating where test t is rated.
struct TestChange {
  std::int16_t Gains = 0;
  std::int16_t Losses = 0;
  std::int16_t GainsAboveMid = 0;
  std::int16_t GainsBelowMid = 0;
  std::int16_t GainsAtMid = 0;
  RatingChange Ratings;
};

/// The ratings of a test's list.
struct TestRatings {
  std::int16_t RateAboveMid = 0;
  std::int16_t RateBelowMid = 0;
  std::int16_t RateAtMid = 0;
  std::int16_t RatingSum = 0;  ///< up to 32,767, else an overflow
  Ratio RatingAvg;             ///< ratings of the scale, cut to two decimals; tests flagged "Y" only
};

/// The measures that are taken of any set of items: the true items, and by the same rules the lures.
struct ItemScores {
  PerTest<std::int16_t> Net;    ///< entries of the list, repeats included
  PerTest<TestChange> Changes;  ///< from test 2
  RatingChange FirstToLast;     ///< test 1 to T, with at least 3 tests
  PerTest<TestRatings> Ratings;

  TestTable<std::int16_t> GainsByMin;          ///< row: minute; from test 2
  TestTable<std::int16_t> RecallByMin;         ///< row: minute
  std::vector<std::int16_t> CumulativeRecall;  ///< by running minute over all tests, from index 0
};

/// How the recall of a test is organised by the categories of the list.
struct TestClustering {
  std::int16_t CatsUsed = 0;
  std::int16_t CatRepeats = 0;   ///< neighbours of one category (R)
  std::int16_t SumSquares = 0;   ///< of the entries per category; up to 32,767, else an overflow
  std::int16_t MaxRepeats = 0;   ///< list length less categories used
  float ExpectedRepeats = 0.0F;  ///< by chance: SumSquares / list length - 1
  Ratio ArcScore;                ///< adjusted ratio of clustering, 1 at most, cut to three decimals
  Ratio ItemsPerCat;             ///< entries per category used, cut to two decimals
};

struct CategoryScores {
  PerTest<TestClustering> Tests;
  TestTable<std::int16_t> CatsByMin;  ///< row: minute in which a category's first item came
  bool AnyArcFailed = false;
};

/// Bi-directional inter-test repetition of test t-1 on test t.
struct PairRepetition {
  std::int16_t ItrObserved = 0;  ///< pairs of neighbours found again, in either order
  std::int16_t ItrCommon = 0;    ///< c: list length less gains
  float ItrExpected = 0.0F;      ///< by chance: 2c(c-1) / product of the two list lengths
  Ratio BiItr;                   ///< pairs: observed less expected, cut to three decimals
};

struct ItrScores {
  PerTest<PairRepetition> Pairs;  ///< at t, from test 2
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

/// What of their categories was recalled before and after the lures of a test.
struct TestLures {
  std::int16_t ItemsPreLure = 0;
  std::int16_t ItemsPostLure = 0;
};

/// Which lures were recalled, and where.
struct LureScores {
  TestTable<std::int16_t> LureRecalled;  ///< row: lure, numbered like its category; 1 or 0
  PerTest<TestLures> Tests;
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
