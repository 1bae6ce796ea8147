// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <vector>

#include "means/MasterTable.h"
#include "means/Statistics.h"
#include "project/ProjectParameters.h"

namespace zova {

struct MeansRequest {
  std::vector<std::size_t> Measures;   ///< columns of the table, in display order
  std::vector<std::size_t> Variables;  ///< crossed; none: only the total
  bool LeavesOutUncomputed = false;    ///< excludes marked values
};

/// One cell of the design: an occurring combination of levels, or the total.
struct MeansCell {
  std::vector<std::string> Levels;         ///< names, one per requested variable; empty for the total
  std::vector<SampleStatistics> Measures;  ///< one per requested measure
  std::vector<std::size_t> Uncomputed;     ///< one per measure: the number of marked values in the cell
};

struct MeansTable {
  std::vector<std::string> Variables;  ///< names of the requested ones
  std::vector<std::string> Measures;
  /// Combinations in ascending order of the level numbers, the first variable slowest, then the total. Only the total
  /// without variables, and, with n = 0, for a master without rows.
  std::vector<MeansCell> Cells;
  std::vector<std::vector<std::string>> LevelNames{};  ///< per variable: the levels that occur, ascending
};

/// Makes one pass over the rows. `project`, the master's project or null, names the levels; levels without a name show
/// their numbers.
MeansTable ComputeMeans(const MasterTable& table, const MeansRequest& request, const ProjectParameters* project);

/// The table as text, a line per measure and cell: Measure, a column per variable (with a number where its name is that
/// of another column), n, Mean, SD, 95% CI Low, 95% CI High, Not Computed. Measure by measure, cell by cell; the total
/// has "(all)" for each level. Numbers as AppendPlainNumber has them; empty for what does not exist.
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
