// SPDX-License-Identifier: GPL-3.0-or-later
//
// MasterLines.cpp has the grammar of the lines. Fields are not quoted, so a comma in a variable's name (in older files)
// splits it, and no row fits the header unless the project's names are known.

#include "means/MasterTable.h"

#include <algorithm>
#include <unordered_set>

#include "master/columns/ColumnName.h"
#include "text/Cells.h"
#include "text/DecimalNumber.h"
#include "text/Encoding.h"
#include "text/TypedText.h"

namespace zova {

namespace {

bool AppendFields(LineCells& fields, MasterTable& table) {
  for (std::size_t variable = 0; variable < table.Variables.size(); ++variable) {
    const auto level = fields.Next();
    if (!level) return false;
    table.Levels.emplace_back(*level);
  }
  for (std::size_t measure = 0; measure < table.Measures.size(); ++measure) {
    const auto field = fields.Next();
    const auto value = field ? DecimalNumber(*field, Exponent::None) : std::nullopt;
    if (!value) return false;
    table.Values.push_back(*value);
  }
  return !fields.Next();
}

// Adds the whole row or nothing.
void AddFields(std::string_view subject, LineCells& fields, MasterTable& table) {
  const std::size_t rows = table.RowCount();
  if (AppendFields(fields, table)) {
    table.Subjects.emplace_back(subject);
    table.Gaps.resize(table.Values.size(), ScoreGap::None);
  } else {
    table.Levels.resize(rows * table.Variables.size());
    table.Values.resize(rows * table.Measures.size());
    ++table.SkippedLines;
  }
}

// Reserves no more than `text` can hold, even with short lines and a long header.
void Reserve(std::string_view text, MasterTable& table) {
  const auto lines = static_cast<std::size_t>(std::count(text.begin(), text.end(), '\n')) + 1;
  const std::size_t fields = text.size() / 2 + 1;
  const std::size_t columns = std::max<std::size_t>(table.Measures.size(), 1);
  const std::size_t rows = std::min(lines, fields / columns + 1);
  table.Subjects.reserve(rows);
  table.Levels.reserve(rows * table.Variables.size());
  table.Values.reserve(rows * columns);
  table.Gaps.reserve(rows * columns);
}

bool BeginsWithMeasure(std::string_view line) { return ColumnByName(*LineCells(line).Next()).has_value(); }

// The part of the line after identifier and variables, if these are the project's and a measure follows.
std::optional<std::string_view> BehindVariables(std::string_view line, const ProjectParameters& project) {
  if (BeginsWithMeasure(line)) return std::nullopt;  // a later piece
  line.remove_prefix(std::min(line.find(','), line.size()));
  for (std::size_t v = 0; v < static_cast<std::size_t>(project.VariableCount); ++v) {
    const std::string_view name = WithoutOuterBlanks(project.VariableNames[v]);
    if (!line.starts_with(',')) return std::nullopt;
    line = WithoutOuterBlanks(line.substr(1));
    if (!line.starts_with(name)) return std::nullopt;
    line = WithoutOuterBlanks(line.substr(name.size()));
  }
  if (!line.starts_with(',')) return std::nullopt;
  line.remove_prefix(1);
  return BeginsWithMeasure(line) ? std::optional(line) : std::nullopt;
}

int CountRepeated(const MasterTable& table) {
  if (!table.HasSubjects) return 0;
  std::unordered_set<std::string_view> seen(table.RowCount());
  return static_cast<int>(std::count_if(table.Subjects.begin(), table.Subjects.end(),
                                        [&](const std::string& id) { return !seen.insert(id).second; }));
}

}  // namespace

bool IsMasterHeader(std::string_view line) {
  LineCells fields(line);
  while (const auto field = fields.Next()) {
    if (ColumnByName(*field)) return true;
  }
  return false;
}

bool ParseMasterHeader(std::string_view line, const ProjectParameters* project, MasterTable& table) {
  table = {};
  if (!IsMasterHeader(line)) return false;
  if (const auto measures = project != nullptr ? BehindVariables(line, *project) : std::nullopt) {
    for (std::size_t v = 0; v < static_cast<std::size_t>(project->VariableCount); ++v) {
      table.Variables.emplace_back(WithoutOuterBlanks(project->VariableNames[v]));
    }
    for (const std::string_view name : CellsOf(*measures)) table.Measures.emplace_back(name);
    return true;
  }
  LineCells fields(line);
  bool isFirst = true;
  while (const auto field = fields.Next()) {
    const bool isMeasure = !table.Measures.empty() || ColumnByName(*field);
    if (isFirst) table.HasSubjects = !isMeasure;
    if (isMeasure) {
      table.Measures.emplace_back(*field);
    } else if (!isFirst) {
      table.Variables.emplace_back(*field);
    }
    isFirst = false;
  }
  return true;
}

void AddMasterRow(std::string_view line, MasterTable& table) {
  if (WithoutOuterBlanks(line).empty()) return;
  LineCells fields(line);
  const std::string_view subject = table.HasSubjects ? *fields.Next() : std::string_view{};
  AddFields(subject, fields, table);
}

void AddMasterRowOf(std::string_view subject, std::string_view fields, MasterTable& table) {
  LineCells rest(fields);
  AddFields(subject, rest, table);
}

std::optional<MasterTable> ParseMaster(std::string_view text, std::string_view header,
                                       const ProjectParameters* project) {
  text = WithoutMarks(text);
  MasterTable table;
  std::string_view rows = text;
  if (!ParseMasterHeader(NextLine(rows), project, table)) {
    if (!ParseMasterHeader(header, project, table)) return std::nullopt;
    rows = text;
  }
  Reserve(rows, table);
  while (!rows.empty()) AddMasterRow(NextLine(rows), table);
  table.RepeatedSubjects = CountRepeated(table);
  return table;
}

}  // namespace zova
