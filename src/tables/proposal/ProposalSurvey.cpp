// SPDX-License-Identifier: GPL-3.0-or-later

#include "tables/proposal/ProposalSurvey.h"

#include <algorithm>
#include <limits>
#include <map>
#include <utility>

#include "project/ProjectLimits.h"
#include "tables/TableValues.h"
#include "words/WordKey.h"

namespace zova {

namespace {

constexpr int kMaxNumbered = 32767;  // larger numbers are codes

// A column that may be a variable, as long as no subject has two values in it.
struct Candidate {
  int Column = 0;
  bool IsOut = false;
  std::vector<std::string> Levels;
  std::vector<int> OfSubject;  // level, from 1; 0 for none yet

  void Add(std::string_view text, std::size_t subject) {
    if (IsOut || IsNothing(text)) return;
    auto found = std::find(Levels.begin(), Levels.end(), text);
    if (found == Levels.end()) found = Levels.insert(Levels.end(), std::string(text));
    const int level = static_cast<int>(found - Levels.begin()) + 1;
    int& own = OfSubject[subject];
    IsOut = Levels.size() > kMaxEditedLevels || (own != 0 && own != level);
    own = level;
  }
};

class ProposalSurveyor {
 public:
  ProposalSurveyor(const ImportDraft& draft, const TableReader& reader)
      : m_setup(draft.Setup), m_reader(reader), m_table(draft.Survey), m_options(draft.Options) {
    const TableColumns& columns = m_setup.Columns;
    m_survey.HasCategories = columns.Has(ColumnRole::Category);
    m_category = columns.Of(ColumnRole::Category);
    const int name = m_setup.OrderColumn == kNoColumn ? kNoColumn : ColumnNamed(m_setup.Format, "category_name");
    if (m_survey.HasCategories && name != kNoColumn) m_category = name;
    m_isNumbered = m_table.HasNumbers && m_setup.Layout.Shape == TableShape::Long;
    m_survey.HasNumberedWords = m_isNumbered && columns.Has(ColumnRole::Item) && columns.Has(ColumnRole::Word);
    m_survey.LargestNumber = std::min(m_table.LargestNumber, std::numeric_limits<int>::max() - 1) + Shift();
    for (std::size_t i = 0; i < m_table.Subjects.size(); ++i) m_subjects.emplace(m_table.Subjects[i].Text, i);
    for (int column = 0; column < static_cast<int>(m_setup.Format.Names.size()); ++column) {
      if (HasRole(m_setup, column)) continue;
      m_candidates.push_back({column, false, {}, std::vector<int>(m_table.Subjects.size())});
    }
  }

  void Add() {
    const auto known = m_subjects.find(m_reader.Text(ColumnRole::Subject));
    if (known == m_subjects.end()) {
      throw TableError(m_setup.Path, m_reader.Line(), "The table has changed while it was read");
    }
    const std::size_t subject = known->second;
    for (Candidate& candidate : m_candidates) candidate.Add(m_reader.Text(candidate.Column), subject);
    const RowKind kind = KindOfRow(m_reader.Text(ColumnRole::TrialType));
    if (kind == RowKind::Other) return;
    if (m_isNumbered) AddNumbered(kind);
    if (kind == RowKind::Study) AddStudied(subject);
    if (kind == RowKind::Recall) AddRecall();
  }

  ProposalSurvey Finish() {
    for (Candidate& candidate : m_candidates) {
      const bool isForAll =
          std::find(candidate.OfSubject.begin(), candidate.OfSubject.end(), 0) == candidate.OfSubject.end();
      if (candidate.IsOut || !isForAll || candidate.Levels.size() < 2) continue;
      m_survey.Variables.push_back({m_setup.Format.Names[static_cast<std::size_t>(candidate.Column)],
                                    SortedLevels(std::move(candidate.Levels))});
    }
    return std::move(m_survey);
  }

 private:
  [[nodiscard]] int Shift() const { return m_options.FirstItem.value_or(1) == 0 ? 1 : 0; }

  void Note(SaidOfItem& said, std::string_view text) const {
    if (IsNothing(text) || text == said.Text || said.OtherLine != 0) return;
    if (said.Line == 0) {
      said.Text = text;
      said.Line = m_reader.Line();
    } else if (WordKey(text) != WordKey(said.Text)) {
      said.Other = text;
      said.OtherLine = m_reader.Line();
    }
  }

  void AddNumbered(RowKind kind) {
    const std::string_view response = m_reader.Text(static_cast<int>(m_setup.Layout.Responses.front().Column));
    const std::string_view number = m_reader.Text(ColumnRole::Item);
    const auto given = WholeNumber(number.empty() ? response : number);
    if (!given || *given > kMaxNumbered || *given + Shift() < 1) return;
    NumberedItem& item = m_survey.Numbered[*given + Shift()];
    if (item.Line == 0) item.Line = m_reader.Line();
    item.IsStudied = item.IsStudied || kind == RowKind::Study;
    Note(item.Category, m_reader.Text(m_category));
    if (!m_survey.HasNumberedWords) return;
    // What is recalled may be misspelled: a row of study has the last word.
    if (kind == RowKind::Study && !std::exchange(item.HasStudiedWord, true)) item.Word = {};
    if (kind == RowKind::Study || !item.HasStudiedWord) Note(item.Word, response);
  }

  // Numbers by value, so that level 2 is "2".
  static std::vector<std::string> SortedLevels(std::vector<std::string> levels) {
    const auto isNumber = [](const std::string& text) { return WholeNumber(text).has_value(); };
    if (std::all_of(levels.begin(), levels.end(), isNumber)) {
      std::sort(levels.begin(), levels.end(), [](const std::string& left, const std::string& right) {
        return WholeNumber(left) < WholeNumber(right);
      });
    }
    return levels;
  }

  void AddStudied(std::size_t subject) {
    std::size_t& length = m_lengths[{subject, std::string(m_reader.Text(ColumnRole::Test))}];
    m_survey.LongestStudy = std::max(m_survey.LongestStudy, ++length);
    for (const ResponseColumn& column : m_setup.Layout.Responses) {
      const std::string_view text = m_reader.Text(static_cast<int>(column.Column));
      if (IsNothing(text)) continue;
      if (!m_words.emplace(WordKey(text), 0).second) continue;
      m_survey.Words.push_back({std::string(text), std::string(m_reader.Text(m_category))});
    }
  }

  void AddRecall() {
    const std::string_view minute = m_reader.Text(ColumnRole::Minute);
    if (!IsNothing(minute)) {
      const auto last = LastMinuteOf(minute, m_options.Times, m_setup.Format.Delimiter);
      m_survey.LastMinute = std::max(m_survey.LastMinute, last.value_or(1));
    }
    const auto rating = WholeNumber(m_reader.Text(ColumnRole::Rating));
    if (!rating || *rating < 1) return;
    m_survey.LargestRating = std::max(m_survey.LargestRating, *rating);
    const auto label = m_table.LabelIndices.find(m_reader.Text(ColumnRole::Test));
    std::vector<std::size_t>& rated = m_survey.RatedLabels;
    if (label == m_table.LabelIndices.end()) return;
    if (std::find(rated.begin(), rated.end(), label->second) == rated.end()) rated.push_back(label->second);
  }

  const TableSetup& m_setup;
  const TableReader& m_reader;
  const TableSurvey& m_table;
  const ImportOptions& m_options;
  ProposalSurvey m_survey;
  int m_category = kNoColumn;  // our own tables have its name beside its number
  bool m_isNumbered = false;
  TextMap<std::size_t> m_subjects;
  TextMap<int> m_words;  // by key
  std::vector<Candidate> m_candidates;
  std::map<std::pair<std::size_t, std::string>, std::size_t> m_lengths;  // study rows by subject and test
};

}  // namespace

ProposalSurvey SurveyForProject(Disk& disk, const ImportDraft& draft) {
  TableReader reader(disk, draft.Setup);
  ProposalSurveyor surveyor(draft, reader);
  while (reader.Next()) surveyor.Add();
  return surveyor.Finish();
}

}  // namespace zova
