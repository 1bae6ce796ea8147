// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <vector>

#include "means/MasterTable.h"
#include "means/Statistics.h"
#include "project/ProjectParameters.h"

namespace zova {

struct MeansRequest {
  std::vector<std::size_t> Measures;   ///< columns of the table, in the order they are shown in
  std::vector<std::size_t> Variables;  ///< crossed with each other; none: only the total
  bool LeavesOutUncomputed = false;    ///< marked values count in no cell of their column
};

/// One cell of the design: a combination of levels that occurs in the master, or all rows.
struct MeansCell {
  std::vector<std::string> Levels;         ///< names, one per variable asked for; empty for the total
  std::vector<SampleStatistics> Measures;  ///< one per measure asked for
  std::vector<std::size_t> Uncomputed;     ///< one per measure: marked values among the cell's rows
};

struct MeansTable {
  std::vector<std::string> Variables;  ///< names of those asked for
  std::vector<std::string> Measures;
  /// Combinations in ascending order of the level numbers, the first variable slowest; the total last. Just the total
  /// without variables; nothing but it, with n = 0, for a master without rows.
  std::vector<MeansCell> Cells;
  std::vector<std::vector<std::string>> LevelNames{};  ///< as Variables: the levels that occur, in ascending order
};

/// One pass over the rows. `project` gives the levels their names when the master is its own, else null: then levels,
/// and those beyond the names, show their numbers.
MeansTable ComputeMeans(const MasterTable& table, const MeansRequest& request, const ProjectParameters* project);

/// The table as text, a line per measure and cell: Measure, a column per variable (with a number where its name is that
/// of another column), n, Mean, SD, 95% CI Low, 95% CI High, Not Computed. Measure by measure, cell by cell; the total
/// has "(all)" for each level. Numbers as AppendPlainNumber has them; empty for what does not exist.
struct MeansLines {
  std::vector<std::string> Header;
  std::vector<std::vector<std::string>> Rows;
};
MeansLines LinesOf(const MeansTable& means);

/// RFC 4180, for files and the command; and fields between tabs, for a spreadsheet's clipboard.
std::string CsvText(const MeansLines& lines);
std::string TabText(const MeansLines& lines);

/// A number as the screen shows it: two decimals, three for values below 1 in size; "" for none.
std::string ShownNumber(const std::optional<double>& value);

}  // namespace zova
