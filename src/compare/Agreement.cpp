// SPDX-License-Identifier: GPL-3.0-or-later

#include "compare/Agreement.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

#include "compare/Differences.h"
#include "subjects/entry/EntryLists.h"
#include "text/Csv.h"
#include "text/NumberText.h"

namespace zova {

namespace {

constexpr double kNormal95 = 1.959963984540054;  // the 97.5 % point of the normal distribution

void CountCells(Agreement& counts, const Comparison& comparison, const SubjectRecord& first,
                const SubjectRecord& second, const ProjectParameters& project, int test) {
  for (const AlignedLine& line : comparison.Tests[static_cast<std::size_t>(test) - 1]) {
    for (const int column : {kItemColumn, kMinuteColumn, kRatingColumn}) {
      if (!IsColumnUsed(project, test, column)) continue;
      ++counts.Cells;
      if (line.First == 0 || line.Second == 0) continue;
      const bool agrees =
          CellValue(first.Lists.At(test, line.First), column) == CellValue(second.Lists.At(test, line.Second), column);
      counts.AgreeingCells += agrees ? 1 : 0;
    }
  }
}

std::vector<bool> RecalledItems(const RecallLists& lists, int test, int itemCount) {
  std::vector<bool> recalled(static_cast<std::size_t>(itemCount));
  for (int position = 1; position <= lists.PositionCount(); ++position) {
    const int item = lists.At(test, position).Item;
    if (item >= 1 && item <= itemCount) recalled[static_cast<std::size_t>(item) - 1] = true;
  }
  return recalled;
}

void CountItems(Agreement& counts, const SubjectRecord& first, const SubjectRecord& second, int test, int itemCount) {
  const std::vector<bool> one = RecalledItems(first.Lists, test, itemCount);
  const std::vector<bool> other = RecalledItems(second.Lists, test, itemCount);
  for (std::size_t item = 0; item < one.size(); ++item) {
    ++counts.Items[(one[item] ? 0U : 2U) + (other[item] ? 0U : 1U)];
  }
}

void AppendShare(std::string& text, std::int64_t part, std::int64_t whole) {
  text += ',';
  if (whole > 0) AppendPlainNumber(text, 100.0 * static_cast<double>(part) / static_cast<double>(whole));
}

void AppendLine(std::string& text, std::string_view group, std::string_view name, std::int64_t subjects,
                const Agreement& counts) {
  text += group;
  text += ',';
  AppendCsvField(text, name);
  const auto& items = counts.Items;
  const std::int64_t itemCount = items[0] + items[1] + items[2] + items[3];
  text += ',' + std::to_string(subjects) + ',' + std::to_string(counts.Differences) + ',';
  text += std::to_string(counts.Cells) + ',' + std::to_string(counts.AgreeingCells);
  AppendShare(text, counts.AgreeingCells, counts.Cells);
  for (const std::int64_t count : items) text += ',' + std::to_string(count);
  AppendShare(text, items[0] + items[3], itemCount);
  const std::optional<Kappa> kappa = KappaOf({{items[0], items[1]}, {items[2], items[3]}});
  for (const double Kappa::*value : {&Kappa::Value, &Kappa::Low, &Kappa::High}) {
    text += ',';
    if (kappa) AppendPlainNumber(text, *kappa.*value);
  }
  text += kCsvLineEnd;
}

}  // namespace

std::optional<Kappa> KappaOf(const std::vector<std::vector<std::int64_t>>& table) {
  const std::size_t size = table.size();
  double total = 0;
  for (const auto& row : table) {
    for (const std::int64_t count : row) total += static_cast<double>(count);
  }
  if (total == 0) return std::nullopt;
  const auto share = [&](std::size_t row, std::size_t column) {
    return static_cast<double>(table[row][column]) / total;
  };
  std::vector<double> rows(size), columns(size);
  double observed = 0;
  for (std::size_t i = 0; i < size; ++i) {
    for (std::size_t j = 0; j < size; ++j) {
      rows[i] += share(i, j);
      columns[j] += share(i, j);
    }
    observed += share(i, i);
  }
  double expected = 0;
  for (std::size_t i = 0; i < size; ++i) expected += rows[i] * columns[i];
  if (1 - expected < 1e-12) return std::nullopt;
  Kappa kappa;
  kappa.Value = (observed - expected) / (1 - expected);
  const double left = 1 - kappa.Value;
  double variance = -std::pow(kappa.Value - expected * left, 2);
  for (std::size_t i = 0; i < size; ++i) {
    for (std::size_t j = 0; j < size; ++j) {
      variance += i == j ? share(i, i) * std::pow(1 - (rows[i] + columns[i]) * left, 2)
                         : left * left * share(i, j) * std::pow(columns[i] + rows[j], 2);
    }
  }
  const double error = std::sqrt(std::max(0.0, variance) / total) / (1 - expected);
  kappa.Low = kappa.Value - kNormal95 * error;
  kappa.High = std::min(1.0, kappa.Value + kNormal95 * error);
  return kappa;
}

Agreement& Agreement::operator+=(const Agreement& other) {
  Cells += other.Cells;
  AgreeingCells += other.AgreeingCells;
  Differences += other.Differences;
  for (std::size_t i = 0; i < Items.size(); ++i) Items[i] += other.Items[i];
  return *this;
}

AgreementReport::AgreementReport(const ProjectParameters& project) : m_project(project) {
  m_tests.resize(static_cast<std::size_t>(project.TestCount));
  for (std::size_t test = 0; test < m_tests.size(); ++test) m_tests[test].Name = "Test " + std::to_string(test + 1);
  m_levels.resize(static_cast<std::size_t>(project.VariableCount));
  for (std::size_t v = 0; v < m_levels.size(); ++v) {
    m_levels[v].resize(static_cast<std::size_t>(project.LevelCounts[v]));
    for (std::size_t level = 0; level < m_levels[v].size(); ++level) {
      m_levels[v][level].Name = project.VariableNames[v] + ": " + LevelLabel(project, v, static_cast<int>(level) + 1);
    }
  }
}

AgreementReport::Part* AgreementReport::LevelPart(std::size_t variable, int level) {
  auto& levels = m_levels[variable];
  return level >= 1 && static_cast<std::size_t>(level) <= levels.size() ? &levels[static_cast<std::size_t>(level) - 1]
                                                                        : nullptr;
}

void AgreementReport::Add(std::string_view subjectId, const SubjectRecord& first, const SubjectRecord& second) {
  const Comparison comparison = Compare(first, second, m_project);
  Agreement whole;
  for (std::size_t v = 0; v < m_levels.size(); ++v) {
    ++whole.Cells;
    whole.AgreeingCells += first.Levels[v] == second.Levels[v] ? 1 : 0;
  }
  for (int test = 1; test <= m_project.TestCount; ++test) {
    Agreement counts;
    CountCells(counts, comparison, first, second, m_project, test);
    CountItems(counts, first, second, test, m_project.ItemCount);
    counts.Differences = std::count_if(comparison.Differences.begin(), comparison.Differences.end(),
                                       [&](const Difference& difference) { return difference.Test == test; });
    Part& part = m_tests[static_cast<std::size_t>(test) - 1];
    ++part.Subjects;
    part.Counts += counts;
    whole += counts;
  }
  whole.Differences = static_cast<std::int64_t>(comparison.Differences.size());
  ++m_all.Subjects;
  m_all.Counts += whole;
  for (std::size_t v = 0; v < m_levels.size(); ++v) {
    if (Part* const part = LevelPart(v, first.Levels[v])) {
      ++part->Subjects;
      part->Counts += whole;
    }
  }
  m_subjects.push_back({std::string(subjectId), 1, whole});
}

std::string AgreementReport::CsvText() const {
  std::string text =
      "part,name,subjects,differences,cells,agreeing cells,agreeing cells %,recalled in both,in first alone,"
      "in second alone,in none,agreeing items %,kappa,kappa low,kappa high";
  text += kCsvLineEnd;
  AppendLine(text, "all", "", m_all.Subjects, m_all.Counts);
  for (const Part& part : m_tests) AppendLine(text, "test", part.Name, part.Subjects, part.Counts);
  for (const auto& levels : m_levels) {
    for (const Part& part : levels) AppendLine(text, "level", part.Name, part.Subjects, part.Counts);
  }
  std::vector<const Part*> subjects;
  subjects.reserve(m_subjects.size());
  for (const Part& part : m_subjects) subjects.push_back(&part);
  std::stable_sort(subjects.begin(), subjects.end(), [](const Part* left, const Part* right) {
    return left->Counts.Differences > right->Counts.Differences;
  });
  for (const Part* part : subjects) AppendLine(text, "subject", part->Name, part->Subjects, part->Counts);
  return text;
}

}  // namespace zova
