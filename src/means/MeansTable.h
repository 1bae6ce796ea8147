// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <vector>

#include "means/MasterTable.h"
#include "means/OccurringLevels.h"
#include "means/Statistics.h"
#include "project/ProjectParameters.h"

namespace zova {

/// What a table of means has on demand.
struct MoreStatistics {
  bool Se = false;  ///< standard error of the mean
  bool Median = false;
  bool Min = false;
  bool Max = false;
  bool Marginal = false;  ///< the levels of each of several variables, over all levels of the others
  bool Within = false;    ///< intervals of the tests of one family, without the differences between subjects
};

struct MeansRequest {
  std::vector<std::size_t> Measures;   ///< columns of the table, in display order
  std::vector<std::size_t> Variables;  ///< crossed; none: only the total
  bool LeavesOutUncomputed = false;    ///< excludes marked values
  MoreStatistics More = {};
  std::vector<LevelOrder> Orders = {};
};

struct OrderStatistics {
  std::optional<double> Median;
  std::optional<double> Min;
  std::optional<double> Max;
};

/// The interval of a test's mean after Cousineau and Morey: t(n - 1) * s' / sqrt(n) * sqrt(J / (J - 1)), with s' the
/// standard deviation of the values less their subject's mean over the J tests. Of the subjects with a value on all.
struct WithinInterval {
  std::size_t N = 0;  ///< of these subjects
  std::optional<double> Mean;
  std::optional<double> HalfWidth;
};

/// One cell of the design: an occurring combination of levels, or the total.
struct MeansCell {
  std::vector<std::string> Levels;         ///< names, one per requested variable; empty for the total
  std::vector<SampleStatistics> Measures;  ///< one per requested measure
  std::vector<std::size_t> Uncomputed;     ///< one per measure: the number of marked values in the cell
  std::vector<OrderStatistics> Orders{};   ///< one per measure if asked for
  std::vector<WithinInterval> Within{};    ///< one per measure if asked for
  bool IsMarginal = false;                 ///< the levels of one variable; the others have "(all)"
};

struct MeansTable {
  std::vector<std::string> Variables;  ///< names of the requested ones
  std::vector<std::string> Measures;
  /// Combinations in ascending order of the level numbers, or that of the request, the first variable slowest, then the
  /// marginal ones, then the total. Only the total without variables, and, with n = 0, for a master without rows.
  std::vector<MeansCell> Cells;
  std::vector<std::vector<std::string>> LevelNames{};  ///< per variable: the levels that occur, in that order
  MoreStatistics More{};
};

/// The levels of the requested variables, in the order of the request.
std::vector<OccurringLevels> LevelsOf(const MasterTable& table, const MeansRequest& request,
                                      const ProjectParameters* project);

/// Makes one pass over the rows. `project`, the master's project or null, names the levels; levels without a name show
/// their numbers.
MeansTable ComputeMeans(const MasterTable& table, const MeansRequest& request, const ProjectParameters* project);

/// A column of numbers.
enum class MeansColumn { N, Mean, Sd, Se, Median, Min, Max, Low, High, WithinN, WithinLow, WithinHigh, NotComputed };

/// Those of a table, in order: N, Mean, SD, what is on demand, and last what could not be computed.
std::vector<MeansColumn> ColumnsOf(const MoreStatistics& more);
/// For a number of subjects or values, which has no decimals.
bool IsCount(MeansColumn column);
inline constexpr const char* kWithinText =
    "The 95 % intervals within subjects are of the subjects with a value on every test (n Within), about the mean of "
    "these.";
/// nullopt for what does not exist.
std::optional<double> NumberOf(const MeansCell& cell, std::size_t measure, MeansColumn column);

/// The table as text, a line per measure and cell: Measure, a column per variable (with a number where its name is that
/// of another column), then the columns of numbers. Measure by measure, cell by cell; the total has "(all)" for each
/// level. Numbers as AppendPlainNumber has them; empty for what does not exist.
struct MeansLines {
  std::vector<std::string> Header;
  std::vector<std::vector<std::string>> Rows;
};
MeansLines LinesOf(const MeansTable& means);

/// CsvText is RFC 4180, for files and the command; TabText separates fields by tabs, for a spreadsheet's clipboard.
std::string CsvText(const MeansLines& lines);
std::string TabText(const MeansLines& lines);

/// A number as shown on screen, rounded to its decimals and never "-0.00"; "" for nullopt.
std::string ShownNumber(const std::optional<double>& value, int decimals);
/// The decimals with which all numbers of a measure are shown, so that their points stand below each other: 3 while all
/// of them are below 1, else 2.
int DecimalsOf(const MeansTable& means, std::size_t measure);

}  // namespace zova
