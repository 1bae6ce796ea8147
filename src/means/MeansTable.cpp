// SPDX-License-Identifier: GPL-3.0-or-later

#include "means/MeansTable.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <numeric>
#include <unordered_map>
#include <utility>

#include "master/groups/NominalGroups.h"
#include "text/Csv.h"
#include "text/NumberText.h"
#include "text/TypedText.h"

namespace zova {

namespace {

constexpr std::string_view kNoLevel = "XXXXXXX";  // for a nominal group: its members may differ
constexpr const char* kAll = "(all)";

std::optional<int> LevelNumber(std::string_view level) {
  int number = 0;
  const auto result = std::from_chars(level.data(), level.data() + level.size(), number);
  if (level.empty() || result.ec != std::errc{} || result.ptr != level.data() + level.size()) return std::nullopt;
  return number;
}

// The levels of one variable that occur, in display order.
struct OccurringLevels {
  std::vector<std::string_view> Texts;
  std::vector<std::string> Names;  // as Texts
  std::vector<std::size_t> OfRow;  // index into both lists
};

// By number if all levels are numbers, else by text; kNoLevel comes last.
void SortLevels(std::vector<std::string_view>& texts) {
  const auto isNumber = [](std::string_view text) { return text == kNoLevel || LevelNumber(text); };
  const bool byNumber = std::all_of(texts.begin(), texts.end(), isNumber);
  std::sort(texts.begin(), texts.end(), [&](std::string_view a, std::string_view b) {
    if ((a == kNoLevel) != (b == kNoLevel)) return b == kNoLevel;
    const int left = byNumber ? LevelNumber(a).value_or(0) : 0;
    const int right = byNumber ? LevelNumber(b).value_or(0) : 0;
    return left != right ? left < right : a < b;
  });
}

OccurringLevels LevelsOf(const MasterTable& table, std::size_t variable) {
  OccurringLevels levels;
  std::unordered_map<std::string_view, std::size_t> places;
  for (std::size_t row = 0; row < table.RowCount(); ++row) {
    if (places.emplace(table.Level(row, variable), 0).second) levels.Texts.push_back(table.Level(row, variable));
  }
  SortLevels(levels.Texts);
  for (std::size_t place = 0; place < levels.Texts.size(); ++place) places[levels.Texts[place]] = place;
  levels.OfRow.reserve(table.RowCount());
  for (std::size_t row = 0; row < table.RowCount(); ++row) {
    levels.OfRow.push_back(places.find(table.Level(row, variable))->second);
  }
  return levels;
}

// Prefers the variable at the column's own position, since two variables may have one name.
std::optional<std::size_t> VariableOf(const ProjectParameters& project, const MasterTable& table, std::size_t column) {
  const std::string& name = table.Variables[column];
  if (column < static_cast<std::size_t>(project.VariableCount) &&
      WithoutOuterBlanks(project.VariableNames[column]) == name) {
    return column;
  }
  return FindVariable(project, name);
}

// Distinguishes a level whose name is the number of an unnamed level from that level.
void NameLevels(OccurringLevels& levels, const ProjectParameters* project, std::optional<std::size_t> variable) {
  std::unordered_map<std::string, int> uses;
  for (const std::string_view text : levels.Texts) {
    const auto number = project != nullptr && variable ? LevelNumber(text) : std::nullopt;
    ++uses[levels.Names.emplace_back(number ? LevelLabel(*project, *variable, *number) : std::string(text))];
  }
  for (std::size_t place = 0; place < levels.Names.size(); ++place) {
    std::string& name = levels.Names[place];
    if (uses[name] > 1) name.append(" (").append(levels.Texts[place]).append(")");
  }
}

// Accumulates the measures of one cell.
class OpenCell {
 public:
  OpenCell(const MasterTable& table, const MeansRequest& request)
      : m_table(table),
        m_request(request),
        m_samples(request.Measures.size()),
        m_uncomputed(request.Measures.size(), 0) {}

  void Add(std::size_t row) {
    for (std::size_t i = 0; i < m_samples.size(); ++i) {
      const std::size_t measure = m_request.Measures[i];
      const bool isUncomputed = m_table.IsUncomputed(row, measure);
      if (isUncomputed) ++m_uncomputed[i];
      // A further measure has no 0 that could stand for it.
      const bool counts = !isUncomputed || (!m_request.LeavesOutUncomputed && !m_table.IsFurther(measure));
      if (counts) m_samples[i].Add(m_table.Value(row, measure));
    }
  }

  // Resets for the next cell.
  MeansCell Close(std::vector<std::string> levels) {
    MeansCell cell{std::move(levels), {}, m_uncomputed};
    for (Sample& sample : m_samples) cell.Measures.push_back(std::exchange(sample, {}).Statistics(m_critical));
    std::fill(m_uncomputed.begin(), m_uncomputed.end(), 0);
    return cell;
  }

 private:
  const MasterTable& m_table;
  const MeansRequest& m_request;
  std::vector<Sample> m_samples;
  std::vector<std::size_t> m_uncomputed;
  CriticalValues m_critical;
};

// Stable sort by levels, so that the rows of a cell are adjacent.
std::vector<std::size_t> RowsByLevels(std::size_t rowCount, const std::vector<OccurringLevels>& variables) {
  std::vector<std::size_t> rows(rowCount);
  std::iota(rows.begin(), rows.end(), std::size_t{0});
  for (std::size_t variable = variables.size(); variable-- > 0;) {
    const std::vector<std::size_t>& levels = variables[variable].OfRow;
    std::stable_sort(rows.begin(), rows.end(), [&](std::size_t a, std::size_t b) { return levels[a] < levels[b]; });
  }
  return rows;
}

void AppendCells(const MasterTable& table, const MeansRequest& request, const std::vector<OccurringLevels>& variables,
                 std::vector<MeansCell>& cells) {
  const auto haveSameLevels = [&](std::size_t a, std::size_t b) {
    return std::all_of(variables.begin(), variables.end(),
                       [&](const OccurringLevels& levels) { return levels.OfRow[a] == levels.OfRow[b]; });
  };
  OpenCell open(table, request);
  std::optional<std::size_t> last;
  const auto close = [&] {
    std::vector<std::string> names;
    names.reserve(variables.size());
    for (const OccurringLevels& levels : variables) names.push_back(levels.Names[levels.OfRow[*last]]);
    cells.push_back(open.Close(std::move(names)));
  };
  for (const std::size_t row : RowsByLevels(table.RowCount(), variables)) {
    if (last && !haveSameLevels(*last, row)) close();
    open.Add(row);
    last = row;
  }
  if (last) close();
}

std::string NumberText(const std::optional<double>& value) {
  std::string text;
  if (value) AppendPlainNumber(text, *value);
  return text;
}

std::vector<std::string> LineOf(const MeansTable& means, const MeansCell& cell, std::size_t measure) {
  const SampleStatistics& statistics = cell.Measures[measure];
  std::vector<std::string> line = {means.Measures[measure]};
  if (cell.Levels.empty()) {
    line.insert(line.end(), means.Variables.size(), kAll);
  } else {
    line.insert(line.end(), cell.Levels.begin(), cell.Levels.end());
  }
  line.insert(line.end(),
              {std::to_string(statistics.N), NumberText(statistics.Mean), NumberText(statistics.Sd),
               NumberText(statistics.Low()), NumberText(statistics.High()), std::to_string(cell.Uncomputed[measure])});
  return line;
}

template <typename AppendField>
std::string TextOf(const MeansLines& lines, char separator, std::string_view lineEnd, AppendField appendField) {
  std::string text;
  const auto append = [&](const std::vector<std::string>& fields) {
    for (std::size_t i = 0; i < fields.size(); ++i) {
      if (i > 0) text += separator;
      appendField(text, fields[i]);
    }
    text += lineEnd;
  };
  append(lines.Header);
  for (const std::vector<std::string>& row : lines.Rows) append(row);
  return text;
}

}  // namespace

MeansTable ComputeMeans(const MasterTable& table, const MeansRequest& request, const ProjectParameters* project) {
  MeansTable means;
  for (const std::size_t measure : request.Measures) means.Measures.push_back(table.MeasureName(measure));
  std::vector<OccurringLevels> variables;
  for (const std::size_t variable : request.Variables) {
    means.Variables.push_back(table.Variables[variable]);
    variables.push_back(LevelsOf(table, variable));
    NameLevels(variables.back(), project, project != nullptr ? VariableOf(*project, table, variable) : std::nullopt);
    means.LevelNames.push_back(variables.back().Names);
  }
  if (!variables.empty()) AppendCells(table, request, variables, means.Cells);
  OpenCell all(table, request);
  for (std::size_t row = 0; row < table.RowCount(); ++row) all.Add(row);
  means.Cells.push_back(all.Close({}));
  return means;
}

MeansLines LinesOf(const MeansTable& means) {
  MeansLines lines;
  CsvHeader header;
  header.Add("Measure");
  for (const std::string& variable : means.Variables) header.AddVariable(variable);
  for (const char* name : {"n", "Mean", "SD", "95% CI Low", "95% CI High", "Not Computed"}) header.Add(name);
  lines.Header = header.Names();
  for (std::size_t measure = 0; measure < means.Measures.size(); ++measure) {
    for (const MeansCell& cell : means.Cells) lines.Rows.push_back(LineOf(means, cell, measure));
  }
  return lines;
}

std::string CsvText(const MeansLines& lines) {
  return TextOf(lines, ',', kCsvLineEnd,
                [](std::string& text, const std::string& field) { AppendCsvField(text, field); });
}

// Replaces tabs and line breaks in fields by blanks: not every spreadsheet understands quotes on the clipboard.
std::string TabText(const MeansLines& lines) {
  return TextOf(lines, '\t', "\n", [](std::string& text, const std::string& field) {
    for (const char c : field) text += static_cast<unsigned char>(c) < 0x20 ? ' ' : c;
  });
}

int DecimalsOf(const MeansTable& means, std::size_t measure) {
  const auto isBig = [](const std::optional<double>& value) { return value && std::abs(*value) >= 1; };
  const bool hasBig = std::any_of(means.Cells.begin(), means.Cells.end(), [&](const MeansCell& cell) {
    const SampleStatistics& sample = cell.Measures[measure];
    return isBig(sample.Mean) || isBig(sample.Sd) || isBig(sample.Low()) || isBig(sample.High());
  });
  return hasBig ? 2 : 3;
}

std::string ShownNumber(const std::optional<double>& value, int decimals) {
  if (!value) return {};
  char buffer[330];  // the largest double has 309 digits before the point
  const auto result = std::to_chars(buffer, buffer + sizeof buffer, *value, std::chars_format::fixed, decimals);
  std::string text(buffer, result.ptr);
  if (text.starts_with('-') && text.find_first_not_of("-0.") == std::string::npos) text.erase(0, 1);
  return text;
}

}  // namespace zova
