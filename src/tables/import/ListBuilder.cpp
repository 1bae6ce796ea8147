// SPDX-License-Identifier: GPL-3.0-or-later
//
// The list of a test: its study rows, then its recalls in their order, without gaps. Intrusions stand beside the list,
// with the number of entries before them. What a response is stands in ListResponses.cpp.

#include "tables/import/ListBuilder.h"

#include <algorithm>
#include <limits>

#include "project/StudyItems.h"
#include "tables/TableValues.h"
#include "tables/import/ListSink.h"
#include "words/WordKey.h"

namespace zova {

ListBuilder::ListBuilder(const TableSetup& setup, const TableSurvey& survey, const ImportOptions& options,
                         const ImportContext& context, ResponseMatcher& matcher, ImportFindings& findings)
    : m_setup(setup),
      m_survey(survey),
      m_options(options),
      m_context(context),
      m_matcher(matcher),
      m_findings(findings),
      m_byPosition(options.Items == ItemsBy::Position),
      m_repeats(KeptRepeats(options, setup)),
      m_hasItems(setup.Layout.Shape == TableShape::Long && setup.Columns.Has(ColumnRole::Item)) {}

void ListBuilder::Report(CaseKind kind, const TableEntry& entry, int column, std::string text) {
  ImportCase found{.Kind = kind, .Row = entry.Line, .Subject = m_rows->Original, .Text = std::move(text)};
  if (column != kNoColumn) found.Column = m_setup.Format.Names[static_cast<std::size_t>(column)];
  found.Test = m_survey.Labels[static_cast<std::size_t>(entry.Label)].Text;
  m_findings.Add(std::move(found));
}

// Rows of nothing have no place. Study rows whose places are all empty keep the order of the rows.
void ListBuilder::SortByPosition(std::vector<const TableEntry*>& entries, bool areRecalls) {
  const int column = m_setup.Columns.Of(ColumnRole::Position);
  if (m_options.OrderByRows || column == kNoColumn || m_setup.Layout.Shape != TableShape::Long) return;
  const auto hasNone = [&](const TableEntry* entry) { return IsNothing(m_rows->TextOf(entry->Position)); };
  if (!areRecalls && std::all_of(entries.begin(), entries.end(), hasNone)) return;
  m_ordered.clear();
  for (const TableEntry* entry : entries) {
    const std::string_view text = m_rows->TextOf(entry->Position);
    const std::string_view response = m_rows->TextOf(entry->Response);
    const bool hasNumber = m_survey.HasNumbers && !m_byPosition && !IsNothing(NumberOf(*entry));
    if (IsNothing(response) && !hasNumber && !IsWordHere(response)) continue;
    const auto position = WholeNumber(text);
    if (!position || *position < 0) {
      Report(CaseKind::Error, *entry, column,
             "'" + std::string(text) + "' is no position; --order rows takes the order of the rows");
      continue;
    }
    m_ordered.emplace_back(*position, entry);
  }
  const auto before = [](const auto& left, const auto& right) { return left.first < right.first; };
  if (!std::is_sorted(m_ordered.begin(), m_ordered.end(), before)) {
    std::stable_sort(m_ordered.begin(), m_ordered.end(), before);
  }
  entries.clear();
  std::int64_t expected = 1;
  for (const auto& [position, entry] : m_ordered) {
    if (!entries.empty() && position < expected) {
      Report(CaseKind::Error, *entry, column, "position " + std::to_string(position) + " stands twice");
    }
    if (areRecalls && position > expected) m_findings.Counts.Gaps += static_cast<std::size_t>(position - expected);
    expected = position + 1;
    entries.push_back(entry);
  }
}

void ListBuilder::AddStudied(const TableEntry& entry, int place) {
  const std::string text(m_rows->TextOf(entry.Response));
  int item = 0;
  if (m_byPosition) {
    item = place;
    if (!m_own.Add(item, text)) Report(CaseKind::Error, entry, entry.Column, "'" + text + "' is studied twice");
  } else if (const std::string_view number = NumberOf(entry); m_survey.HasNumbers && !IsNothing(number)) {
    const int shift = m_options.FirstItem.value_or(1) == 0 ? 1 : 0;
    item = std::min(WholeNumber(number).value_or(-1), std::numeric_limits<int>::max() - 1) + shift;
    if (number == "0" && !m_options.FirstItem) return;  // asked about
    CheckWord(entry, item);
    if (m_context.Words.IsEmpty()) m_own.Add(item, text);
  } else {
    item = m_matcher.ItemInPool(WordKey(text));
  }
  if (item >= 1 && item <= m_context.Project.ItemCount) {
    m_studied.push_back(item);
    m_isStudied[static_cast<std::size_t>(item)] = true;
  } else if (m_byPosition) {
    Report(CaseKind::Error, entry, entry.Column,
           "more than the " + std::to_string(m_context.Project.ItemCount) + " items of the project are studied");
  } else if (m_unknownStudied.emplace(text, 0).second) {
    Report(
        CaseKind::Error, entry, entry.Column,
        "'" + text + "' is studied, but is no " + (m_survey.HasNumbers ? "item of the project" : "word of the list"));
  }
}

void ListBuilder::StudyList(std::vector<const TableEntry*>& study) {
  m_hasStudy = !study.empty();
  m_studied.clear();
  m_hasOwn = m_byPosition || m_context.Words.IsEmpty();
  if (m_hasOwn) m_own.Clear();
  if (!m_hasStudy) return;
  m_isStudied.assign(static_cast<std::size_t>(m_context.Project.ItemCount) + 1, false);
  SortByPosition(study, false);
  int place = 0;
  for (const TableEntry* entry : study) AddStudied(*entry, ++place);
}

// In the order of the items among those that are studied: a saved order may count the lures.
bool ListBuilder::IsSavedOrder(const StudyOrder& order) const {
  const std::vector<std::int16_t>& positions = order.Positions;
  if (!m_context.SavedOrder || m_context.SavedOrder->size() != positions.size()) return false;
  std::vector<std::pair<std::int16_t, std::size_t>> saved;
  saved.reserve(positions.size());
  for (std::size_t i = 0; i < positions.size(); ++i) {
    if (positions[i] != 0) saved.emplace_back((*m_context.SavedOrder)[i], i);
  }
  std::sort(saved.begin(), saved.end());
  for (std::size_t place = 0; place < saved.size(); ++place) {
    if (positions[saved[place].second] != static_cast<std::int16_t>(place + 1)) return false;
  }
  return true;
}

void ListBuilder::NoteOrder(const std::string& subjectId, std::vector<StudyOrder>& orders) const {
  const ProjectParameters& project = m_context.Project;
  if (!m_hasStudy || static_cast<int>(m_studied.size()) != StudiedItemCount(project)) return;
  StudyOrder order{subjectId, m_test, std::vector<std::int16_t>(static_cast<std::size_t>(project.ItemCount))};
  std::int16_t position = 0;
  for (const int item : m_studied) {
    std::int16_t& at = order.Positions[static_cast<std::size_t>(item) - 1];
    if (at != 0 || !IsStudied(item, project)) return;
    at = ++position;
  }
  orders.push_back(std::move(order));
}

int ListBuilder::MinuteOfEntry(const TableEntry& entry) {
  const ProjectParameters& project = m_context.Project;
  const std::string_view text = m_rows->TextOf(entry.Minute);
  if (project.MinutesRecorded != 1 || IsNothing(text)) return 0;
  const auto minute = MinuteOf(text, m_options.Times, project.MaxMinutes, m_setup.Format.Delimiter);
  if (!minute) {
    Report(CaseKind::Minute, entry, m_setup.Columns.Of(ColumnRole::Minute),
           "'" + std::string(text) + "' is in none of the minutes 1 to " + std::to_string(project.MaxMinutes));
  }
  return minute.value_or(0);
}

int ListBuilder::RatingOfEntry(const TableEntry& entry) {
  const ProjectParameters& project = m_context.Project;
  const std::string_view text = m_rows->TextOf(entry.Rating);
  if (IsNothing(text) || !IsTestRated(project, m_test)) return 0;
  const auto rating = WholeNumber(text);
  if (rating && *rating >= 1 && *rating <= project.MaxRating) return *rating;
  Report(CaseKind::Rating, entry, m_setup.Columns.Of(ColumnRole::Rating),
         "'" + std::string(text) + "' is no rating from 1 to " + std::to_string(project.MaxRating));
  return 0;
}

void ListBuilder::Place(const TableEntry& entry, std::string_view text, const Interpreted& what, Sink& sink) {
  ImportCounts& counts = m_findings.Counts;
  switch (what.What) {
    case Outcome::Nothing: return;
    case Outcome::Skip: ++counts.Skipped; return;
    case Outcome::Intrusion:
      ++counts.Intrusions;
      sink.Intrusions.push_back({.Subject = sink.SubjectId,
                                 .Test = m_test,
                                 .Place = std::min(sink.Length, sink.Lists.PositionCount()),
                                 .Response = std::string(text),
                                 .Minute = MinuteOfEntry(entry),
                                 .Rating = RatingOfEntry(entry)});
      return;
    case Outcome::Item: break;
  }
  const auto item = static_cast<std::size_t>(what.Item);
  if (m_isRecalled[item]) {
    ++counts.Repeats;
    if (m_repeats == Repeats::First) return;
  }
  m_isRecalled[item] = true;
  ++sink.Length;
  if (sink.Length > sink.Lists.PositionCount()) {
    if (sink.Overflow == nullptr) sink.Overflow = &entry;
    return;
  }
  sink.Lists.At(m_test, sink.Length) = {static_cast<std::int16_t>(what.Item),
                                        static_cast<std::int16_t>(MinuteOfEntry(entry)),
                                        static_cast<std::int16_t>(RatingOfEntry(entry))};
  sink.Listed.push_back(&entry);
}

bool ListBuilder::Build(const SubjectRows& rows, int test, TestEntries& entries, const std::string& subjectId,
                        RecallLists& lists, std::vector<Intrusion>& intrusions, std::vector<StudyOrder>& orders) {
  m_rows = &rows;
  m_test = test;
  m_label = m_survey.Labels[static_cast<std::size_t>(entries.Label)].Text;
  entries.Listed.clear();
  m_isRecalled.assign(static_cast<std::size_t>(m_context.Project.ItemCount) + 1, false);
  StudyList(entries.Study);
  const auto isOrdered = [](const TableEntry* entry) { return entry->IsOrdered; };
  if (std::all_of(entries.Study.begin(), entries.Study.end(), isOrdered)) NoteOrder(subjectId, orders);
  if (m_byPosition && !m_hasStudy && !entries.Recall.empty()) {
    Report(CaseKind::Error, *entries.Recall.front(), kNoColumn,
           "there are no study rows, which --items position needs");
    return true;
  }
  SortByPosition(entries.Recall, true);
  Sink sink{subjectId, lists, intrusions, entries.Listed};
  for (const TableEntry* entry : entries.Recall) AddEntry(*entry, sink);
  lists.RecallCount(test) = static_cast<std::int16_t>(std::min(sink.Length, lists.PositionCount()));
  if (sink.Length == 0) ++m_findings.Counts.EmptyTests;
  if (sink.Overflow == nullptr) return true;
  if (m_findings.Counts.TooLong++ == 0) m_findings.Counts.TooLongRow = sink.Overflow->Line;
  Report(CaseKind::TooLong, *sink.Overflow, kNoColumn,
         std::to_string(sink.Length) + " recalls of " + std::to_string(lists.PositionCount()) + " items");
  return false;
}

}  // namespace zova
