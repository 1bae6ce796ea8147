// SPDX-License-Identifier: GPL-3.0-or-later

#include "master/LongExport.h"

#include <algorithm>

#include "master/CleanExport.h"
#include "scoring/ScoreSubject.h"
#include "text/Csv.h"
#include "text/NumberText.h"

namespace zova {

LongExport::LongExport(const ProjectParameters& project, const std::optional<SerialOrder>& order)
    : m_project(project), m_hasLures(IsFalseMemoryInForce(project)) {
  std::vector<std::pair<int, int>> study;  // position, item
  for (int item = 1; item <= project.ItemCount; ++item) {
    if (m_hasLures && IsLure(item, project)) continue;
    study.emplace_back(order ? order->at(static_cast<std::size_t>(item) - 1) : item, item);
  }
  std::sort(study.begin(), study.end());
  for (const auto& [position, item] : study) {
    std::string& row = m_study.emplace_back();
    AppendItem(row, ",study,", position, item);
    if (project.MinutesRecorded == 1) row += ',';
    if (project.Rated == 1) row += ',';
  }
}

std::string LongExport::Header() const {
  CsvHeader header;
  for (const char* name : {"subject", "list", "trial_type", "position", "item"}) header.Add(name);
  if (m_project.Categorized == 1) header.Add("category");
  if (m_hasLures) header.Add("lure");
  if (m_project.MinutesRecorded == 1) header.Add("minute");
  if (m_project.Rated == 1) header.Add("rating");
  for (std::size_t v = 0; v < static_cast<std::size_t>(m_project.VariableCount); ++v) {
    header.Add(m_project.VariableNames[v]);
  }
  return header.Line();
}

void LongExport::AppendItem(std::string& row, const char* trialType, int position, int item) const {
  row += trialType;
  AppendNumber(row, position);
  row += ',';
  AppendNumber(row, item);
  if (m_project.Categorized == 1) {
    row += ',';
    const int category = CategoryOf(item, m_project);
    if (category > 0) AppendNumber(row, category);
  }
  if (m_hasLures) row += IsLure(item, m_project) ? ",1" : ",0";
}

void LongExport::AddRow(std::string& rows, int test, std::string_view middle) const {
  if (!rows.empty()) rows += kCsvLineEnd;
  rows += m_subject;
  rows += ',';
  AppendNumber(rows, test);
  rows += middle;
  rows += m_levels;
}

void LongExport::Build(const ScoredSubject& subject, std::string& rows) {
  m_subject.clear();
  AppendCsvField(m_subject, subject.SubjectId);
  m_levels.clear();
  for (std::size_t v = 0; v < static_cast<std::size_t>(m_project.VariableCount); ++v) {
    m_levels += ',';
    AppendLevelField(m_levels, m_project, v, subject.Record.Levels[v]);
  }
  rows.clear();
  for (int test = 1; test <= m_project.TestCount; ++test) {
    for (const std::string& study : m_study) AddRow(rows, test, study);
    AddRecalls(subject.Record.Lists, test, rows);
  }
}

// Also the items behind a blank, which the walks of some measures do not reach: the protocol is told as it is.
void LongExport::AddRecalls(const RecallLists& lists, int test, std::string& rows) {
  const auto addNumber = [this](int value) {
    m_recall += ',';
    if (value != 0) AppendNumber(m_recall, value);
  };
  int left = lists.RecallCount(test);
  for (int position = 1; left > 0 && position <= lists.PositionCount(); ++position) {
    const Recall& recall = lists.At(test, position);
    if (recall.Item < 1) continue;
    --left;
    m_recall.clear();
    AppendItem(m_recall, ",recall,", position, recall.Item);
    if (m_project.MinutesRecorded == 1) addNumber(recall.Minute);
    if (m_project.Rated == 1) addNumber(IsTestRated(m_project, test) ? recall.Rating : 0);
    AddRow(rows, test, m_recall);
  }
}

}  // namespace zova
