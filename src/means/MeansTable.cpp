// SPDX-License-Identifier: GPL-3.0-or-later

#include "means/MeansTable.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <numeric>
#include <utility>

#include "means/OccurringLevels.h"
#include "means/TestSeries.h"
#include "text/Csv.h"
#include "text/Encoding.h"
#include "text/NumberText.h"
#include "text/TypedText.h"

namespace zova {

namespace {

constexpr const char* kAll = "(all)";

OrderStatistics OrderOf(std::vector<double>& values) {
  if (values.empty()) return {};
  std::sort(values.begin(), values.end());
  const std::size_t half = values.size() / 2;
  const double median = values.size() % 2 == 1 ? values[half] : (values[half - 1] + values[half]) / 2;
  return {median, values.front(), values.back()};
}

// Cousineau, D. (2005). Confidence intervals in within-subject designs: A simpler solution to Loftus and Masson's
// method. Tutorials in Quantitative Methods for Psychology, 1, 42-45. Morey, R. D. (2008). Confidence intervals from
// normalized data: A correction to Cousineau (2005). Tutorials in Quantitative Methods for Psychology, 4, 61-64.
void AddWithin(const std::vector<std::vector<double>>& rows, const TestSeries& series, CriticalValues& critical,
               std::vector<WithinInterval>& within) {
  const auto tests = static_cast<double>(series.Measures.size());
  double grand = 0;
  std::vector<double> means;
  means.reserve(rows.size());
  for (const std::vector<double>& row : rows) {
    means.push_back(std::accumulate(row.begin(), row.end(), 0.0) / tests);
    grand += means.back() / static_cast<double>(rows.size());
  }
  for (std::size_t test = 0; test < series.Measures.size(); ++test) {
    Sample normalized;
    for (std::size_t row = 0; row < rows.size(); ++row) normalized.Add(rows[row][test] - means[row] + grand);
    const SampleStatistics statistics = normalized.Statistics(critical);
    WithinInterval& interval = within[series.Places[test]];
    interval.N = statistics.N;
    interval.Mean = statistics.Mean;
    if (statistics.HalfWidth) interval.HalfWidth = *statistics.HalfWidth * std::sqrt(tests / (tests - 1));
  }
}

// Accumulates the measures of one cell.
class OpenCell {
 public:
  OpenCell(const MasterTable& table, const MeansRequest& request)
      : m_table(table),
        m_request(request),
        m_samples(request.Measures.size()),
        m_uncomputed(request.Measures.size(), 0) {
    if (request.More.Within) m_series = SeriesOfTests(table, request.Measures);
  }

  void Add(std::size_t row) {
    for (std::size_t i = 0; i < m_samples.size(); ++i) {
      const std::size_t measure = m_request.Measures[i];
      if (m_table.IsUncomputed(row, measure)) ++m_uncomputed[i];
      if (const auto value = ValueOf(row, measure)) m_samples[i].Add(*value);
    }
    if (KeepsRows()) m_rows.push_back(row);
  }

  // Resets for the next cell.
  MeansCell Close(std::vector<std::string> levels) {
    MeansCell cell{.Levels = std::move(levels), .Measures = {}, .Uncomputed = m_uncomputed};
    cell.Measures.reserve(m_samples.size());
    for (Sample& sample : m_samples) cell.Measures.push_back(std::exchange(sample, {}).Statistics(m_critical));
    if (HasOrders()) AddOrders(cell.Orders);
    if (m_request.More.Within) {
      cell.Within.resize(m_samples.size());
      for (const TestSeries& series : m_series) {
        AddWithin(CompleteRows(m_table, m_rows, series, m_request.LeavesOutUncomputed), series, m_critical,
                  cell.Within);
      }
    }
    std::fill(m_uncomputed.begin(), m_uncomputed.end(), 0);
    m_rows.clear();
    return cell;
  }

 private:
  [[nodiscard]] bool HasOrders() const { return m_request.More.Median || m_request.More.Min || m_request.More.Max; }
  [[nodiscard]] bool KeepsRows() const { return HasOrders() || m_request.More.Within; }
  [[nodiscard]] std::optional<double> ValueOf(std::size_t row, std::size_t measure) const {
    return CountedValue(m_table, row, measure, m_request.LeavesOutUncomputed);
  }

  void AddOrders(std::vector<OrderStatistics>& orders) {
    orders.reserve(m_request.Measures.size());
    for (const std::size_t measure : m_request.Measures) {
      m_values.clear();
      for (const std::size_t row : m_rows) {
        if (const auto value = ValueOf(row, measure)) m_values.push_back(*value);
      }
      orders.push_back(OrderOf(m_values));
    }
  }

  const MasterTable& m_table;
  const MeansRequest& m_request;
  std::vector<TestSeries> m_series;
  std::vector<Sample> m_samples;
  std::vector<std::size_t> m_uncomputed;
  std::vector<std::size_t> m_rows;
  std::vector<double> m_values;
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

// Each level of each variable, over all levels of the others.
void AppendMarginals(const MasterTable& table, const MeansRequest& request,
                     const std::vector<OccurringLevels>& variables, std::vector<MeansCell>& cells) {
  for (std::size_t variable = 0; variable < variables.size(); ++variable) {
    const std::size_t first = cells.size();
    AppendCells(table, request, {variables[variable]}, cells);
    for (std::size_t cell = first; cell < cells.size(); ++cell) {
      std::vector<std::string> levels(variables.size(), kAll);
      levels[variable] = std::move(cells[cell].Levels.front());
      cells[cell].Levels = std::move(levels);
      cells[cell].IsMarginal = true;
    }
  }
}

std::vector<std::string> LineOf(const MeansTable& means, const MeansCell& cell, std::size_t measure) {
  std::vector<std::string> line = {means.Measures[measure]};
  if (cell.Levels.empty()) {
    line.insert(line.end(), means.Variables.size(), kAll);
  } else {
    line.insert(line.end(), cell.Levels.begin(), cell.Levels.end());
  }
  for (const MeansColumn column : ColumnsOf(means.More))
    line.push_back(PlainNumberText(NumberOf(cell, measure, column)));
  return line;
}

std::string_view HeadingOf(MeansColumn column) {
  switch (column) {
    case MeansColumn::N: return "n";
    case MeansColumn::Mean: return "Mean";
    case MeansColumn::Sd: return "SD";
    case MeansColumn::Se: return "SE";
    case MeansColumn::Median: return "Median";
    case MeansColumn::Min: return "Min";
    case MeansColumn::Max: return "Max";
    case MeansColumn::Low: return "95% CI Low";
    case MeansColumn::High: return "95% CI High";
    case MeansColumn::WithinN: return "n Within";
    case MeansColumn::WithinLow: return "95% Within CI Low";
    case MeansColumn::WithinHigh: return "95% Within CI High";
    case MeansColumn::NotComputed: return "Not Computed";
  }
  return "";
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

std::vector<OccurringLevels> LevelsOf(const MasterTable& table, const MeansRequest& request,
                                      const ProjectParameters* project) {
  std::vector<OccurringLevels> variables;
  variables.reserve(request.Variables.size());
  for (const std::size_t variable : request.Variables) {
    variables.push_back(LevelsOf(table, variable, project));
    for (const LevelOrder& order : request.Orders) {
      if (EqualsIgnoringCase(WithoutOuterBlanks(order.Variable), WithoutOuterBlanks(table.Variables[variable])))
        Arrange(order, variables.back());
    }
  }
  return variables;
}

MeansTable ComputeMeans(const MasterTable& table, const MeansRequest& request, const ProjectParameters* project) {
  MeansTable means;
  for (const std::size_t measure : request.Measures) means.Measures.push_back(table.MeasureName(measure));
  const std::vector<OccurringLevels> variables = LevelsOf(table, request, project);
  for (const std::size_t variable : request.Variables) means.Variables.push_back(table.Variables[variable]);
  for (const OccurringLevels& levels : variables) means.LevelNames.push_back(levels.Names);
  means.More = request.More;
  if (!variables.empty()) AppendCells(table, request, variables, means.Cells);
  if (request.More.Marginal && variables.size() > 1) AppendMarginals(table, request, variables, means.Cells);
  OpenCell all(table, request);
  for (std::size_t row = 0; row < table.RowCount(); ++row) all.Add(row);
  means.Cells.push_back(all.Close({}));
  return means;
}

std::vector<MeansColumn> ColumnsOf(const MoreStatistics& more) {
  const std::pair<MeansColumn, bool> all[] = {
      {MeansColumn::N, true},
      {MeansColumn::Mean, true},
      {MeansColumn::Sd, true},
      {MeansColumn::Se, more.Se},
      {MeansColumn::Median, more.Median},
      {MeansColumn::Min, more.Min},
      {MeansColumn::Max, more.Max},
      {MeansColumn::Low, true},
      {MeansColumn::High, true},
      {MeansColumn::WithinN, more.Within},
      {MeansColumn::WithinLow, more.Within},
      {MeansColumn::WithinHigh, more.Within},
      {MeansColumn::NotComputed, true},
  };
  std::vector<MeansColumn> columns;
  columns.reserve(std::size(all));
  for (const auto& [column, isShown] : all) {
    if (isShown) columns.push_back(column);
  }
  return columns;
}

bool IsCount(MeansColumn column) {
  return column == MeansColumn::N || column == MeansColumn::WithinN || column == MeansColumn::NotComputed;
}

std::optional<double> NumberOf(const MeansCell& cell, std::size_t measure, MeansColumn column) {
  const SampleStatistics& sample = cell.Measures[measure];
  const OrderStatistics order = cell.Orders.empty() ? OrderStatistics{} : cell.Orders[measure];
  const WithinInterval within = cell.Within.empty() ? WithinInterval{} : cell.Within[measure];
  switch (column) {
    case MeansColumn::N: return static_cast<double>(sample.N);
    case MeansColumn::Mean: return sample.Mean;
    case MeansColumn::Sd: return sample.Sd;
    case MeansColumn::Se: return sample.Se();
    case MeansColumn::Median: return order.Median;
    case MeansColumn::Min: return order.Min;
    case MeansColumn::Max: return order.Max;
    case MeansColumn::Low: return sample.Low();
    case MeansColumn::High: return sample.High();
    case MeansColumn::WithinN: return within.Mean ? std::optional(static_cast<double>(within.N)) : std::nullopt;
    case MeansColumn::WithinLow:
      return within.HalfWidth ? std::optional(*within.Mean - *within.HalfWidth) : std::nullopt;
    case MeansColumn::WithinHigh:
      return within.HalfWidth ? std::optional(*within.Mean + *within.HalfWidth) : std::nullopt;
    case MeansColumn::NotComputed: return static_cast<double>(cell.Uncomputed[measure]);
  }
  return std::nullopt;
}

MeansLines LinesOf(const MeansTable& means) {
  MeansLines lines;
  CsvHeader header;
  header.Add("Measure");
  for (const std::string& variable : means.Variables) header.AddVariable(variable);
  for (const MeansColumn column : ColumnsOf(means.More)) header.Add(HeadingOf(column));
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
