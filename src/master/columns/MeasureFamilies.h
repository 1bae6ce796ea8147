// SPDX-License-Identifier: GPL-3.0-or-later
//
// The one table of measures. Header, row and count of a master, the measure screen, the command's words, and the labels
// of means and plots all come from it.
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

/// What a project must have for a measure; several are joined with |.
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

/// A check box and what it stands for.
struct MeasureBox {
  Measure Which;
  std::string_view Name;  ///< the control's name, "chkBasic"
  std::string_view Word;  ///< the command's word for it, "recall"
  const MeasureFrame* Frame;
  std::string_view Caption;
  char AccessKey;  ///< the caption's first such letter
  unsigned Needs;  ///< without these data it is disabled
  std::string_view QuickHelp;
};

/// Indexed by Measure; boxes of one frame stand together.
const std::array<MeasureBox, kMeasureCount>& AllMeasureBoxes();

/// The box with this control name or word; nullopt for an unknown one.
std::optional<Measure> MeasureByName(std::string_view name);

/// What the columns of a family differ in, and so the axis of their plot.
enum class MeasureAxis {
  Test,           ///< "Net(Test 2)"
  TestPair,       ///< "Gains(Test 1 to 2)", "Bi-ITR(Tests 1 and 2)"
  Minute,         ///< "RecallByMin(Test 1 Min 3)": the minutes of each test
  RunningMinute,  ///< "CumulativeRecall(Min 7)": counted on over all tests
  Pattern,        ///< "ItemsWithPattern(NC)"
  Lure            ///< "Lure(Test# 1 Lure# 2)": the lures of each test
};

struct AxisTraits {
  MeasureAxis Axis;
  std::string_view Label;  ///< on a plot, "Minute over all tests"
  std::string_view Noun;   ///< of one place in a text, "minute"; "" where the place is no number
  bool LiesWithinTests;    ///< each test has all places
  bool HasDistances;       ///< the places are numbers that keep their distances
};

const AxisTraits& TraitsOf(MeasureAxis axis);

/// Where a column stands on its family's axis.
struct ColumnPlace {
  int Test = 0;   ///< of a pair the earlier one; of a pattern how many there are; 0 on the axis over all tests
  int Index = 0;  ///< from 1: test, later test, minute, lure; pattern number + 1
};

/// What stands behind a family's stem, and at which tests there are columns.
struct MeasureShape {
  std::string_view Form;  ///< "(Test % Min %)"; % is a number of the place. "" for a pattern, which is letters
  MeasureAxis Axis;
  int FirstTest = 1;            ///< 0: not test by test
  bool HasFirstToLast = false;  ///< with at least 3 tests there also is the pair of the first and the last
};

/// The values of a family from `place` on: one; all minutes or lures of a test; all running minutes or patterns.
using CountsAt = std::span<const std::int16_t> (*)(const ScoringArrays& scores, ColumnPlace place);
using SharesAt = std::span<const Ratio> (*)(const ScoringArrays& scores, ColumnPlace place);

/// The columns of one measure.
struct MeasureFamily {
  enum Rule : unsigned {
    IndividualOnly = 1,  ///< no columns in a combined master
    BesideLast = 2       ///< alternates with the family before, test by test; all else but the names is the same
  };

  std::string_view Stem;  ///< the name up to the bracket, "Net"
  MeasureShape Shape;
  Measure Box;
  ScoreFamily Scores;  ///< computes it
  std::variant<CountsAt, SharesAt> Values;
  std::string_view Label;               ///< in plain words, for a plot: "Net recall"
  std::string_view Unit;                ///< "items", "rating points", "share of items"; "" for an index without one
  unsigned MoreNeeds = Needs::Nothing;  ///< beside those of its box. With Ratings there are columns of rated tests only
  unsigned Rules = 0;
};

/// What its box and the family itself need.
[[nodiscard]] unsigned NeedsOf(const MeasureFamily& family);

/// In the order of a master's columns.
std::span<const MeasureFamily> AllMeasureFamilies();

}  // namespace zova
