// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "project/ProjectParameters.h"

namespace zova {

/// A master read back: a row per subject, or per nominal group. Rows, variables and measures count from 0.
struct MasterTable {
  std::vector<std::string> Variables;  ///< names of the columns between identifier and first measure
  std::vector<std::string> Measures;   ///< names of the measure columns, as they stand
  std::vector<std::string> Subjects;   ///< identifier or group label of each row; "" in a later piece of a wide master
  std::vector<std::string> Levels;     ///< row by row, one per variable: the level's number, or XXXXXXX
  std::vector<double> Values;          ///< row by row, one per measure
  std::vector<bool> Uncomputed;        ///< as Values: a value that stands for one that could not be computed
  bool HasSubjects = true;             ///< false: a later piece of a wide master, which begins with a measure
  int SkippedLines = 0;                ///< lines below the header that do not fit it
  int RepeatedSubjects = 0;            ///< rows of a subject that an earlier row has already; ParseMaster counts them

  [[nodiscard]] std::size_t RowCount() const noexcept { return Subjects.size(); }
  [[nodiscard]] const std::string& Level(std::size_t row, std::size_t variable) const {
    return Levels[row * Variables.size() + variable];
  }
  [[nodiscard]] double Value(std::size_t row, std::size_t measure) const {
    return Values[row * Measures.size() + measure];
  }
  [[nodiscard]] bool IsUncomputed(std::size_t row, std::size_t measure) const {
    return Uncomputed[row * Measures.size() + measure];
  }
};

/// True for a line of column names: one of its fields is the name of a measure.
bool IsMasterHeader(std::string_view line);

/// Empties `table` and gives it the columns of a header line: identifier, variables, measures. Where the variables are
/// those of `project` (null where none is known), they are taken as they are, whatever commas their names hold; else
/// they end where the first name of a measure stands. False for a line that is none.
bool ParseMasterHeader(std::string_view line, const ProjectParameters* project, MasterTable& table);

/// Adds one row (a line without its end). A line with another number of fields, or whose measures are no numbers, is
/// counted as skipped; an empty one is passed over.
void AddMasterRow(std::string_view line, MasterTable& table);

/// The same where the identifier is known, which may hold commas then: `fields` is what follows it, behind the comma.
void AddMasterRowOf(std::string_view subject, std::string_view fields, MasterTable& table);

/// Takes `text`, a whole master (or a piece of a wide one), apart; fields without the blanks around them. Its first
/// line is the header unless it is none: then `header` is, where rows stand without their own (the header went to
/// another destination). Nothing when there is no header at all. `project` as above: the open one, whose master this
/// may be.
std::optional<MasterTable> ParseMaster(std::string_view text, std::string_view header,
                                       const ProjectParameters* project = nullptr);

}  // namespace zova
