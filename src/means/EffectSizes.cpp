// SPDX-License-Identifier: GPL-3.0-or-later

#include "means/EffectSizes.h"

#include <cmath>

#include "means/OccurringLevels.h"
#include "means/TestSeries.h"
#include "text/NumberText.h"

namespace zova {

namespace {

// The number, the mean and the sum of squared deviations of some values.
struct Moments {
  std::size_t N = 0;
  double Mean = 0;
  double Squares = 0;

  void Add(double value) noexcept {
    ++N;
    const double before = value - Mean;
    Mean += before / static_cast<double>(N);
    Squares += before * (value - Mean);
  }
};

std::optional<double> Quotient(double part, double whole) {
  return whole > 0 ? std::optional(part / whole) : std::nullopt;
}

std::optional<double> EtaSquared(const std::vector<Moments>& groups, const Moments& all) {
  double between = 0;
  for (const Moments& group : groups) {
    between += static_cast<double>(group.N) * (group.Mean - all.Mean) * (group.Mean - all.Mean);
  }
  return Quotient(between, all.Squares);
}

std::optional<double> CohensD(const Moments& first, const Moments& second) {
  if (first.N + second.N < 3) return std::nullopt;
  const double variance = (first.Squares + second.Squares) / static_cast<double>(first.N + second.N - 2);
  return Quotient(first.Mean - second.Mean, std::sqrt(variance));
}

// Levels in which no subject has a value do not count.
void AddLevels(const MasterTable& table, const MeansRequest& request, std::size_t variable,
               const OccurringLevels& levels, std::vector<Effect>& effects) {
  for (const std::size_t measure : request.Measures) {
    std::vector<Moments> groups(levels.Names.size());
    Moments all;
    for (std::size_t row = 0; row < table.RowCount(); ++row) {
      const auto value = CountedValue(table, row, measure, request.LeavesOutUncomputed);
      if (!value) continue;
      groups[levels.OfRow[row]].Add(*value);
      all.Add(*value);
    }
    std::vector<std::size_t> used;
    for (std::size_t level = 0; level < groups.size(); ++level) {
      if (groups[level].N > 0) used.push_back(level);
    }
    if (used.size() < 2) continue;
    Effect effect{.Measure = table.MeasureName(measure),
                  .Kind = used.size() == 2 ? "d" : "eta squared",
                  .Factor = table.Variables[variable],
                  .Contrast = {},
                  .N = all.N,
                  .Value = {},
                  .Low = {},
                  .High = {}};
    if (used.size() == 2) {
      effect.Contrast = levels.Names[used[0]] + " - " + levels.Names[used[1]];
      effect.Value = CohensD(groups[used[0]], groups[used[1]]);
    } else {
      effect.Value = EtaSquared(groups, all);
    }
    effects.push_back(std::move(effect));
  }
}

void AddPair(const MasterTable& table, const TestSeries& series, const std::vector<std::vector<double>>& rows,
             std::vector<Effect>& effects) {
  Sample differences;
  for (const std::vector<double>& row : rows) differences.Add(row[1] - row[0]);
  CriticalValues critical;
  const SampleStatistics statistics = differences.Statistics(critical);
  Effect effect{.Measure = std::string(series.Family),
                .Kind = "difference",
                .Factor = "Test",
                .Contrast = table.MeasureName(series.Measures[1]) + " - " + table.MeasureName(series.Measures[0]),
                .N = rows.size(),
                .Value = statistics.Mean,
                .Low = statistics.Low(),
                .High = statistics.High()};
  effects.push_back(effect);
  effect.Kind = "d_z";
  effect.Value = statistics.Sd ? Quotient(*statistics.Mean, *statistics.Sd) : std::nullopt;
  effect.Low = effect.High = std::nullopt;
  effects.push_back(std::move(effect));
}

void AddTests(const MasterTable& table, const MeansRequest& request, const TestSeries& series,
              std::vector<Effect>& effects) {
  std::vector<std::size_t> all(table.RowCount());
  for (std::size_t row = 0; row < all.size(); ++row) all[row] = row;
  const auto rows = CompleteRows(table, all, series, request.LeavesOutUncomputed);
  if (series.Measures.size() == 2) return AddPair(table, series, rows, effects);
  std::vector<Moments> tests(series.Measures.size());
  Moments total;
  for (const std::vector<double>& row : rows) {
    for (std::size_t test = 0; test < row.size(); ++test) {
      tests[test].Add(row[test]);
      total.Add(row[test]);
    }
  }
  effects.push_back({.Measure = std::string(series.Family),
                     .Kind = "eta squared",
                     .Factor = "Test",
                     .Contrast = {},
                     .N = rows.size(),
                     .Value = EtaSquared(tests, total),
                     .Low = {},
                     .High = {}});
}

}  // namespace

std::vector<Effect> ComputeEffects(const MasterTable& table, const MeansRequest& request,
                                   const ProjectParameters* project) {
  std::vector<Effect> effects;
  for (const std::size_t variable : request.Variables) {
    AddLevels(table, request, variable, LevelsOf(table, variable, project), effects);
  }
  for (const TestSeries& series : SeriesOfTests(table, request.Measures)) AddTests(table, request, series, effects);
  return effects;
}

MeansLines LinesOf(const std::vector<Effect>& effects) {
  MeansLines lines;
  lines.Header = {"Measure", "Effect", "Factor", "Contrast", "n", "Value", "95% CI Low", "95% CI High"};
  lines.Rows.reserve(effects.size());
  for (const Effect& effect : effects) {
    lines.Rows.push_back({effect.Measure, effect.Kind, effect.Factor, effect.Contrast, std::to_string(effect.N),
                          PlainNumberText(effect.Value), PlainNumberText(effect.Low), PlainNumberText(effect.High)});
  }
  return lines;
}

std::string_view EffectDefinition(std::string_view kind) {
  if (kind == "d") return "d: the difference of the two means / the pooled SD";
  if (kind == "difference") {
    return "difference: the mean of the differences of the subjects with a value on both tests, with its 95 % CI";
  }
  if (kind == "d_z") return "d_z: the mean of these differences / their SD";
  return "eta squared: sum of squares between the levels, or the tests, / sum of squares of all values; of tests only "
         "subjects with a value on each count";
}

std::string EffectText(const Effect& effect) {
  constexpr int kDecimals = 2;
  std::string text = effect.Factor + (effect.Contrast.empty() ? "" : ", " + effect.Contrast) + ": " + effect.Kind;
  text += effect.Value ? " = " + ShownNumber(effect.Value, kDecimals) : " could not be computed";
  if (effect.Low) {
    text += ", 95 % CI " + ShownNumber(effect.Low, kDecimals) + " to " + ShownNumber(effect.High, kDecimals);
  }
  return text + " (n = " + std::to_string(effect.N) + ")";
}

}  // namespace zova
