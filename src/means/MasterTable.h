// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cmath>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "project/ProjectParameters.h"
#include "scoring/Score.h"
#include "scoring/further/FurtherScores.h"
#include "scoring/further/RecallMarks.h"

namespace zova {

/// The further measures of a master's rows. They stand in no master.
struct FurtherValues {
  std::vector<std::string> Names;
  std::vector<double> Values;           ///< row by row, one per name; not a number where there is no value
  std::vector<FurtherGap> Gaps;         ///< parallel to Values: why there is none
  RecallMarks Lists;                    ///< what each row's subject recalled
  std::vector<std::string> Categories;  ///< their names, for a raster
};

/// A parsed master: one row per subject or nominal group. Rows, variables and measures count from 0.
struct MasterTable {
  std::vector<std::string> Variables;  ///< columns between identifier and first measure
  std::vector<std::string> Measures;   ///< names of the measure columns, verbatim
  std::vector<std::string> Subjects;   ///< identifier or group label of each row; "" in a later piece of a wide master
  std::vector<std::string> Levels;     ///< row by row, one per variable: the level's number or XXXXXXX
  std::vector<double> Values;          ///< row by row, one per measure
  std::vector<ScoreGap> Gaps;          ///< parallel to Values: why a 0 could not be computed
  FurtherValues Further;               ///< counted on behind the measures of the master
  bool HasSubjects = true;             ///< false: a later piece of a wide master, which begins with a measure
  int SkippedLines = 0;                ///< lines that do not fit the header
  int RepeatedSubjects = 0;            ///< rows whose subject has an earlier row; counted by ParseMaster

  [[nodiscard]] std::size_t RowCount() const noexcept { return Subjects.size(); }
  [[nodiscard]] const std::string& Level(std::size_t row, std::size_t variable) const {
    return Levels[row * Variables.size() + variable];
  }
  [[nodiscard]] std::size_t MeasureCount() const noexcept { return Measures.size() + Further.Names.size(); }
  [[nodiscard]] bool IsFurther(std::size_t measure) const noexcept { return measure >= Measures.size(); }
  [[nodiscard]] const std::string& MeasureName(std::size_t measure) const {
    return IsFurther(measure) ? Further.Names[measure - Measures.size()] : Measures[measure];
  }
  [[nodiscard]] double Value(std::size_t row, std::size_t measure) const {
    if (IsFurther(measure)) return Further.Values[row * Further.Names.size() + measure - Measures.size()];
    return Values[row * Measures.size() + measure];
  }
  [[nodiscard]] bool IsUncomputed(std::size_t row, std::size_t measure) const {
    return IsFurther(measure) ? std::isnan(Value(row, measure))
                              : Gaps[row * Measures.size() + measure] != ScoreGap::None;
  }
};

/// True when a field of the line is the name of a measure.
bool IsMasterHeader(std::string_view line);

/// Resets `table` to the columns of a header line: identifier, variables, measures. If the variables are those of
/// `project` (null: unknown), their names may contain commas; else they end before the first name of a measure. False
/// for a line that is not a header.
bool ParseMasterHeader(std::string_view line, const ProjectParameters* project, MasterTable& table);

/// Adds a row from a line without its end. Counts a line with another number of fields, or with measures that are not
/// numbers, as skipped; ignores an empty line.
void AddMasterRow(std::string_view line, MasterTable& table);

/// Like AddMasterRow, for a known identifier, which may contain commas. `fields` is the rest of the line after its
/// comma.
void AddMasterRowOf(std::string_view subject, std::string_view fields, MasterTable& table);

/// Parses a master, or a piece of a wide one, and trims its fields. If the first line is not a header (the header was
/// written to another destination), `header` is. nullopt without any header. `project` is the open project or null, as
/// in ParseMasterHeader.
std::optional<MasterTable> ParseMaster(std::string_view text, std::string_view header,
                                       const ProjectParameters* project = nullptr);

}  // namespace zova
