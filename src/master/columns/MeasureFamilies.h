// SPDX-License-Identifier: GPL-3.0-or-later
//
// The only table of measures: the source of a master's header, row and column count, the measure screen, the command's
// words, and the labels of means and plots.
#pragma once

#include <array>
#include <optional>
#include <span>
#include <string_view>
#include <variant>

#include "project/ProjectParameters.h"
#include "scoring/ScoreSubject.h"

namespace zova {

/// The check boxes of the measure screen, in its order.
enum class Measure { Basic, Bi, IP, Cat, Rat, FBasic, FPos, FWhich, FIP, MinNet, MinCat, MinCum, MinGains };
inline constexpr std::size_t kMeasureCount = static_cast<std::size_t>(Measure::MinGains) + 1;

/// Flags of what a project must have for a measure.
struct Needs {
  enum Flag : unsigned { Nothing = 0, SeveralTests = 1, Minutes = 2, Ratings = 4, Categories = 8, Lures = 16 };
};

[[nodiscard]] bool HasDataFor(unsigned needs, const ProjectParameters& project);

/// A frame of the measure screen.
struct MeasureFrame {
  std::string_view Name;  ///< the control's name, "fraGeneral"
  std::string_view Caption;
  std::string_view QuickHelp;
};

/// A check box of the measure screen.
struct MeasureBox {
  Measure Which;
  std::string_view Name;  ///< the control's name, "chkBasic"
  std::string_view Word;  ///< the command's word for it, "recall"
  const MeasureFrame* Frame;
  std::string_view Caption;
  char AccessKey;  ///< its first occurrence in the caption
  unsigned Needs;  ///< the box is disabled without these data
  std::string_view QuickHelp;
};

/// Indexed by Measure; the boxes of a frame are adjacent.
const std::array<MeasureBox, kMeasureCount>& AllMeasureBoxes();

/// The box with this control name or word; nullopt if unknown.
std::optional<Measure> MeasureByName(std::string_view name);

/// What distinguishes the columns of a family, and the axis of their plot.
enum class MeasureAxis {
  Test,           ///< "Net(Test 2)"
  TestPair,       ///< "Gains(Test 1 to 2)", "Bi-ITR(Tests 1 and 2)"
  Minute,         ///< "RecallByMin(Test 1 Min 3)": the minutes of each test
  RunningMinute,  ///< "CumulativeRecall(Min 7)": numbered over all tests
  Pattern,        ///< "ItemsWithPattern(NC)"
  Lure,           ///< "Lure(Test# 1 Lure# 2)": the lures of each test
  Lag,            ///< "LagCrp(Test 1 Lag -2)"
  Position        ///< "Position(Test 1 3)": the studied items of each test
};

struct AxisTraits {
  MeasureAxis Axis;
  std::string_view Label;  ///< on a plot, "Minute over all tests"
  std::string_view Noun;   ///< of one place, "minute"; "" if the place is not a number
  bool LiesWithinTests;    ///< each test has every place
  bool HasDistances;       ///< the places are numbers to scale
};

const AxisTraits& TraitsOf(MeasureAxis axis);

/// A column's place on its family's axis.
struct ColumnPlace {
  int Test = 0;   ///< earlier test of a pair; number of tests of a pattern; 0 for a running minute
  int Index = 0;  ///< test, later test, minute, lure or position, from 1; pattern number + 1; lag
};

/// What follows a family's stem, and which tests have columns.
struct MeasureShape {
  std::string_view Form;  ///< "(Test % Min %)"; % is a number of the place. "" for a pattern, which has letters
  MeasureAxis Axis;
  int FirstTest = 1;            ///< 0: not by test
  bool HasFirstToLast = false;  ///< from 3 tests on, also the pair of first and last test
  bool IsFirstToLast = false;   ///< that pair alone, of at least `FirstTest` tests
};

inline constexpr MeasureShape kTestShape = {"(Test %)", MeasureAxis::Test};
inline constexpr MeasureShape kTestPairShape = {"(Test % to %)", MeasureAxis::TestPair, 2};
inline constexpr MeasureShape kBothTestsShape = {"(Tests % and %)", MeasureAxis::TestPair, 2};

/// The values of a family from `place` on: one value, all minutes or lures of a test, or all running minutes or
/// patterns.
using CountsAt = std::span<const std::int16_t> (*)(const ScoringArrays& scores, ColumnPlace place);
using SharesAt = std::span<const Ratio> (*)(const ScoringArrays& scores, ColumnPlace place);

/// The columns of one measure.
struct MeasureFamily {
  enum Rule : unsigned {
    IndividualOnly = 1,  ///< no columns in a combined master
    BesideLast = 2       ///< alternates with the previous family, test by test, and differs from it only in its names
  };

  std::string_view Stem;  ///< the column name up to the bracket, "Net"
  MeasureShape Shape;
  Measure Box;
  ScoreFamily Scores;  ///< the family of scores that computes it
  std::variant<CountsAt, SharesAt> Values;
  std::string_view Label;               ///< for a plot: "Net recall"
  std::string_view Unit;                ///< "items", "rating points", "share of items"; "" for an index without one
  std::string_view Definition;          ///< "Entries on the list of the test."
  std::string_view Source;              ///< the publication, or ""
  unsigned MoreNeeds = Needs::Nothing;  ///< in addition to the box's. With Ratings only rated tests have columns
  unsigned Rules = 0;
};

/// What the family and its box need.
[[nodiscard]] unsigned NeedsOf(const MeasureFamily& family);

/// In master column order.
std::span<const MeasureFamily> AllMeasureFamilies();

}  // namespace zova
