// SPDX-License-Identifier: GPL-3.0-or-later

#include "master/exports/LongExport.h"

#include "master/exports/CleanExport.h"
#include "master/groups/SavedOrders.h"
#include "project/StudyItems.h"
#include "scoring/ScoreSubject.h"
#include "text/Csv.h"
#include "text/NumberText.h"

namespace zova {

namespace {

// A minute or a rating; 0 is an empty field.
void AppendKept(std::string& rows, int value) {
  rows += ',';
  if (value >= 1 && value <= 9) {  // most of them
    rows += static_cast<char>('0' + value);
  } else if (value != 0) {
    AppendNumber(rows, value);
  }
}

}  // namespace

LongExport::LongExport(const ProjectParameters& project, const FurtherData& data)
    : m_project(project), m_data(data), m_hasLures(IsFalseMemoryInForce(project)) {
  m_items.emplace_back();
  for (int item = 1; item <= project.ItemCount; ++item) {
    AppendItem(m_items.emplace_back(), item);
    std::string& place = m_places.emplace_back(",recall,");
    AppendNumber(place, item);
    place += ',';
  }
  FillStudyRows(data.Common.empty() ? RanksOf(FirstSerialOrder(project), data.Study) : data.Common, m_study);
}

void LongExport::FillStudyRows(const StudyRanks& ranks, std::vector<std::string>& rows) const {
  rows.resize(static_cast<std::size_t>(m_data.Study.TrueCount));
  for (std::size_t item = 1; item < ranks.size(); ++item) {
    if (ranks[item] == 0) continue;  // a lure
    std::string& row = rows[static_cast<std::size_t>(ranks[item]) - 1];
    row = ",study,";
    AppendNumber(row, int{ranks[item]});
    row += ',';
    row += m_items[item];
    if (m_project.MinutesRecorded == 1) row += ',';
    if (m_project.Rated == 1) row += ',';
  }
}

std::string LongExport::Header() const {
  CsvHeader header;
  for (const char* name : {"subject", "list", "trial_type", "position", "item"}) header.Add(name);
  if (!m_data.Words.IsEmpty()) header.Add("word");
  if (m_project.Categorized == 1) header.Add("category");
  if (m_data.Words.HasCategories) header.Add("category_name");
  if (m_hasLures) header.Add("lure");
  if (m_project.MinutesRecorded == 1) header.Add("minute");
  if (m_project.Rated == 1) header.Add("rating");
  header.Add("order");
  for (std::size_t v = 0; v < static_cast<std::size_t>(m_project.VariableCount); ++v) {
    header.AddVariable(m_project.VariableNames[v]);
  }
  return header.Line();
}

void LongExport::AppendItem(std::string& row, int item) const {
  AppendNumber(row, item);
  if (!m_data.Words.IsEmpty()) AppendCsvField(row += ',', m_data.Words.TextOf(item));
  const int category = CategoryOf(item, m_project);
  if (m_project.Categorized == 1) {
    row += ',';
    if (category > 0) AppendNumber(row, category);
  }
  if (m_data.Words.HasCategories) AppendCsvField(row += ',', m_data.Words.CategoryName(category, m_project));
  if (m_hasLures) row += IsLure(item, m_project) ? ",1" : ",0";
}

void LongExport::Build(const ScoredSubject& subject, std::string& rows) {
  m_levels.clear();
  for (std::size_t v = 0; v < static_cast<std::size_t>(m_project.VariableCount); ++v) {
    m_levels += ',';
    AppendLevelField(m_levels, m_project, v, subject.Record.Levels[v]);
  }
  m_levels += kCsvLineEnd;
  rows.clear();
  for (int test = 1; test <= m_project.TestCount; ++test) {
    m_opening.clear();
    AppendCsvField(m_opening, subject.SubjectId);
    m_opening += ',';
    AppendNumber(m_opening, test);
    const KnownOrder order = OrderOf(m_data, subject.SubjectId, test);
    if (order.Origin == OrderOrigin::None) ++m_listsWithoutOrder;
    m_end = ",";
    m_end.append(OrderOriginText(order.Origin)).append(m_levels);
    const bool isOwn = order.Origin == OrderOrigin::Subject;
    if (isOwn) FillStudyRows(*order.Ranks, m_own);
    for (const std::string& study : isOwn ? m_own : m_study) rows.append(m_opening).append(study).append(m_end);
    AddRecalls(subject.Record.Lists, test, rows);
  }
  if (!rows.empty()) rows.resize(rows.size() - kCsvLineEnd.size());
}

// Includes items after a blank, which some measures do not reach.
void LongExport::AddRecalls(const RecallLists& lists, int test, std::string& rows) const {
  const bool isRated = m_project.Rated == 1 && IsTestRated(m_project, test);
  int left = lists.RecallCount(test);
  for (int position = 1; left > 0 && position <= lists.PositionCount(); ++position) {
    const Recall& recall = lists.At(test, position);
    if (recall.Item < 1) continue;
    --left;
    rows.append(m_opening).append(m_places[static_cast<std::size_t>(position) - 1]);
    const auto item = static_cast<std::size_t>(recall.Item);
    if (item < m_items.size()) {
      rows += m_items[item];
    } else {
      AppendItem(rows, recall.Item);  // after a blank, where scoring has not rejected it
    }
    if (m_project.MinutesRecorded == 1) AppendKept(rows, recall.Minute);
    if (m_project.Rated == 1) AppendKept(rows, isRated ? recall.Rating : 0);
    rows += m_end;
  }
}

}  // namespace zova
