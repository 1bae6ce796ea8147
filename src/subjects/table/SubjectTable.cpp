// SPDX-License-Identifier: GPL-3.0-or-later

#include "subjects/table/SubjectTable.h"

#include <algorithm>
#include <ctime>
#include <numeric>
#include <utility>

#include "platform/files/EntryNames.h"
#include "text/Counted.h"
#include "text/Csv.h"
#include "text/Encoding.h"
#include "text/TypedText.h"

namespace zova {

namespace {

std::string StateText(const SubjectRow& row) {
  switch (row.State) {
    case SubjectState::Complete: return "complete";
    case SubjectState::Unfinished: return "unfinished";
    case SubjectState::Both: return "complete, unfinished";
    case SubjectState::Unreadable: return "unreadable";
    case SubjectState::SecondAlone: return "second entry alone";
    case SubjectState::FirstAlone: return "first entry alone";
    case SubjectState::EntriesAlone: return "both entries alone";
    case SubjectState::Foreign: return "another project's";
    case SubjectState::Removed: break;
  }
  return row.RemovedNumber == 1 ? "removed" : "removed (" + std::to_string(row.RemovedNumber) + ")";
}

std::string SecondStateText(const SecondEntry& second) {
  switch (second.Is) {
    case SecondEntry::State::None: return "none";
    case SecondEntry::State::Unfinished: return "unfinished";
    case SecondEntry::State::UnfinishedAlone: return "unfinished, no first entry";
    case SecondEntry::State::Agrees: return "agrees";
    case SecondEntry::State::Settled: return "settled";
    case SecondEntry::State::Alone: return "no first entry";
    case SecondEntry::State::FirstUnreadable: return "first entry unreadable";
    case SecondEntry::State::Unreadable: return "unreadable: " + second.Reason;
    case SecondEntry::State::Differs: break;
  }
  return Counted(static_cast<std::size_t>(second.Differences), "difference", "differences");
}

// The sample can be told from the others, and filtered, also when it is entered.
std::string SecondText(const SubjectRow& row) {
  if (!row.IsInSample) return SecondStateText(row.Second);
  return row.Second.Is == SecondEntry::State::None ? "chosen" : SecondStateText(row.Second) + ", chosen";
}

// In local time, which can be sorted as text.
std::string TimeText(std::int64_t nanoseconds) {
  if (nanoseconds == 0) return {};
  const auto seconds = static_cast<std::time_t>(nanoseconds / 1'000'000'000);
  const std::tm* const local = std::localtime(&seconds);  // NOLINT(concurrency-mt-unsafe): there is one thread
  char text[32] = "";
  if (local != nullptr) std::strftime(text, sizeof text, "%Y-%m-%d %H:%M", local);
  return text;
}

template <typename AppendCell>
std::string Joined(const SubjectTable& table, char delimiter, std::string_view lineEnd, AppendCell&& appendCell) {
  std::string text;
  const std::size_t columns = table.Headings().size();
  const auto appendLine = [&](auto&& cell) {
    for (std::size_t column = 0; column < columns; ++column) {
      if (column > 0) text += delimiter;
      appendCell(text, cell(column));
    }
    text += lineEnd;
  };
  appendLine([&](std::size_t column) { return std::string_view(table.Headings()[column]); });
  for (std::size_t line = 0; line < table.LineCount(); ++line) {
    appendLine([&](std::size_t column) { return std::string_view(table.Text(line, column)); });
  }
  return text;
}

}  // namespace

SubjectTable::SubjectTable(const ProjectParameters& project, std::vector<SubjectRow> rows)
    : m_tests(static_cast<std::size_t>(project.TestCount)), m_rows(std::move(rows)) {
  CsvHeader header;
  header.Add("Identifier");
  header.Add("State");
  for (std::size_t v = 0; v < static_cast<std::size_t>(project.VariableCount); ++v) {
    header.AddVariable(project.VariableNames[v]);
  }
  m_firstTest = 2 + static_cast<std::size_t>(project.VariableCount);
  for (std::size_t test = 1; test <= m_tests; ++test) header.Add("Test " + std::to_string(test));
  for (const char* name : {"Failed Checks", "Second Entry", "Last Saved"}) header.Add(name);
  m_headings = header.Names();
  m_texts.reserve(m_rows.size());
  m_searched.reserve(m_rows.size());
  for (const SubjectRow& row : m_rows) {
    m_texts.push_back(TextsOf(row, project));
    std::string all;
    for (const std::string& text : m_texts.back()) all.append(text).append("\n");
    m_searched.push_back(UpperCase(all));
  }
  SortBy(kIdColumn, false);
}

std::vector<std::string> SubjectTable::TextsOf(const SubjectRow& row, const ProjectParameters& project) const {
  std::vector<std::string> texts;
  texts.reserve(m_headings.size());
  texts.push_back(row.Id);
  texts.push_back(StateText(row));
  for (std::size_t v = 0; v < static_cast<std::size_t>(project.VariableCount); ++v) {
    texts.push_back(row.HasData() ? LevelLabel(project, v, row.Levels[v]) : std::string());
  }
  for (std::size_t test = 0; test < m_tests; ++test) {
    texts.push_back(row.HasData() && test < row.Recalls.size() ? std::to_string(row.Recalls[test]) : std::string());
  }
  texts.push_back(row.State == SubjectState::Unreadable ? row.Reason : row.FailedChecks);
  texts.push_back(SecondText(row));
  texts.push_back(TimeText(row.SavedAt));
  return texts;
}

bool SubjectTable::IsNumber(std::size_t column) const {
  return column >= m_firstTest && column < m_firstTest + m_tests;
}

std::optional<std::size_t> SubjectTable::LineOfId(std::string_view typed) const {
  std::optional<std::size_t> first;
  for (std::size_t line = 0; line < m_lines.size(); ++line) {
    const std::string& id = At(line).Id;
    if (!BeginsIgnoringCase(id, typed)) continue;
    if (id.size() == typed.size()) return line;
    if (!first) first = line;
  }
  return first;
}

std::optional<std::size_t> SubjectTable::LineOf(std::string_view file, bool isRemoved) const {
  for (std::size_t line = 0; line < m_lines.size(); ++line) {
    if (At(line).File == file && (At(line).State == SubjectState::Removed) == isRemoved) return line;
  }
  return std::nullopt;
}

std::vector<SubjectTable::Condition> SubjectTable::Conditions() const {
  std::vector<Condition> conditions;
  std::string_view rest = m_filter;
  while (!rest.empty()) {
    const std::size_t end = std::min(rest.find(';'), rest.size());
    std::string_view part = WithoutOuterBlanks(rest.substr(0, end));
    rest.remove_prefix(std::min(end + 1, rest.size()));
    Condition condition;
    if (const std::size_t colon = part.find(':'); colon != std::string_view::npos && colon > 0) {
      const std::string_view name = WithoutOuterBlanks(part.substr(0, colon));
      const auto named = std::find_if(m_headings.begin(), m_headings.end(),
                                      [&](const std::string& heading) { return BeginsIgnoringCase(heading, name); });
      if (named != m_headings.end()) {
        condition.Column = static_cast<std::size_t>(named - m_headings.begin());
        part = WithoutOuterBlanks(part.substr(colon + 1));
      }
    }
    condition.Text = UpperCase(part);
    if (!condition.Text.empty()) conditions.push_back(std::move(condition));
  }
  return conditions;
}

void SubjectTable::Arrange() {
  const std::vector<Condition> conditions = Conditions();
  m_lines.clear();
  m_lines.reserve(m_order.size());
  for (const std::size_t row : m_order) {
    const bool isShown = std::all_of(conditions.begin(), conditions.end(), [&](const Condition& condition) {
      const std::string& text = m_searched[row];
      if (!condition.Column) return text.find(condition.Text) != std::string::npos;
      return UpperCase(m_texts[row][*condition.Column]).find(condition.Text) != std::string::npos;
    });
    if (isShown) m_lines.push_back(row);
  }
}

void SubjectTable::SetFilter(std::string_view filter) {
  m_filter = filter;
  Arrange();
}

void SubjectTable::SortBy(std::size_t column) { SortBy(column, column == m_sortColumn && !m_isDescending); }

std::int64_t SubjectTable::NumberAt(std::size_t row, std::size_t column) const {
  const SubjectRow& subject = m_rows[row];
  if (column + 1 == m_headings.size()) return subject.SavedAt;
  if (!IsNumber(column)) return subject.Second.Differences;
  const std::size_t test = column - m_firstTest;
  return test < subject.Recalls.size() ? subject.Recalls[test] : -1;
}

void SubjectTable::SortBy(std::size_t column, bool isDescending) {
  m_sortColumn = column;
  m_isDescending = isDescending;
  const std::size_t secondColumn = m_headings.size() - 2;
  const bool isByNumber = IsNumber(column) || column >= secondColumn;
  std::vector<std::pair<std::int64_t, std::string>> keys(m_rows.size());
  for (std::size_t row = 0; row < m_rows.size(); ++row) {
    if (isByNumber) keys[row].first = NumberAt(row, column);
    if (!isByNumber || column == secondColumn) keys[row].second = UpperCase(m_texts[row][column]);
  }
  m_order.resize(m_rows.size());
  std::iota(m_order.begin(), m_order.end(), std::size_t{0});
  std::stable_sort(m_order.begin(), m_order.end(), [&](std::size_t left, std::size_t right) {
    return isDescending ? keys[right] < keys[left] : keys[left] < keys[right];
  });
  Arrange();
}

std::string SubjectTable::TabText() const {
  return Joined(*this, '\t', "\n", [](std::string& text, std::string_view cell) { text += cell; });
}

std::string SubjectTable::CsvText() const {
  return Joined(*this, ',', kCsvLineEnd, [](std::string& text, std::string_view cell) { AppendCsvField(text, cell); });
}

}  // namespace zova
