// SPDX-License-Identifier: GPL-3.0-or-later

#include "means/TestSeries.h"

#include <algorithm>

#include "master/columns/ColumnName.h"
#include "master/columns/FurtherFamilies.h"

namespace zova {

namespace {

struct TestOfFamily {
  std::string_view Family;
  int Test = 0;
};

template <typename Column>
std::optional<TestOfFamily> TestOf(const std::optional<Column>& column) {
  if (!column || column->Family->Shape.Axis != MeasureAxis::Test) return std::nullopt;
  return TestOfFamily{column->Family->Stem, column->Place.Index};
}

}  // namespace

std::vector<TestSeries> SeriesOfTests(const MasterTable& table, const std::vector<std::size_t>& measures) {
  std::vector<TestSeries> all;
  for (std::size_t place = 0; place < measures.size(); ++place) {
    const std::size_t measure = measures[place];
    const std::string& name = table.MeasureName(measure);
    const auto test = table.IsFurther(measure) ? TestOf(FurtherColumnByName(name)) : TestOf(ColumnByName(name));
    if (!test) continue;
    auto series = std::find_if(all.begin(), all.end(), [&](const TestSeries& s) { return s.Family == test->Family; });
    if (series == all.end()) series = all.insert(all.end(), TestSeries{test->Family, {}, {}});
    series->Measures.push_back(measure);
    series->Places.push_back(place);
  }
  std::erase_if(all, [](const TestSeries& series) { return series.Measures.size() < 2; });
  return all;
}

std::optional<double> CountedValue(const MasterTable& table, std::size_t row, std::size_t measure, bool leavesOut) {
  if (table.IsUncomputed(row, measure) && (leavesOut || table.IsFurther(measure))) return std::nullopt;
  return table.Value(row, measure);
}

std::vector<std::vector<double>> CompleteRows(const MasterTable& table, std::span<const std::size_t> rows,
                                              const TestSeries& series, bool leavesOut) {
  std::vector<std::vector<double>> complete;
  complete.reserve(rows.size());
  std::vector<double> values;
  for (const std::size_t row : rows) {
    values.clear();
    for (const std::size_t measure : series.Measures) {
      if (const auto value = CountedValue(table, row, measure, leavesOut)) values.push_back(*value);
    }
    if (values.size() == series.Measures.size()) complete.push_back(values);
  }
  return complete;
}

}  // namespace zova
