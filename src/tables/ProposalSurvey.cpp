// SPDX-License-Identifier: GPL-3.0-or-later

#include "tables/ProposalSurvey.h"

#include <algorithm>
#include <map>
#include <utility>

#include "project/ProjectLimits.h"
#include "tables/TableValues.h"
#include "words/WordKey.h"

namespace zova {

namespace {

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

class Surveyor {
 public:
  Surveyor(const TableSetup& setup, const TableReader& reader, const TableSurvey& table, const ImportOptions& options)
      : m_setup(setup), m_reader(reader), m_table(table), m_options(options) {
    m_survey.HasCategories = setup.Columns.Has(ColumnRole::Category);
    for (std::size_t i = 0; i < table.Subjects.size(); ++i) m_subjects.emplace(table.Subjects[i].Text, i);
    for (int column = 0; column < static_cast<int>(setup.Format.Names.size()); ++column) {
      if (HasRole(setup, column)) continue;
      m_candidates.push_back({column, false, {}, std::vector<int>(table.Subjects.size())});
    }
  }

  void Add() {
    const std::size_t subject = m_subjects.find(m_reader.Text(ColumnRole::Subject))->second;
    for (Candidate& candidate : m_candidates) candidate.Add(m_reader.Text(candidate.Column), subject);
    const RowKind kind = KindOfRow(m_reader.Text(ColumnRole::TrialType));
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
      m_survey.Words.push_back({std::string(text), std::string(m_reader.Text(ColumnRole::Category))});
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
  TextMap<std::size_t> m_subjects;
  TextMap<int> m_words;  // by key
  std::vector<Candidate> m_candidates;
  std::map<std::pair<std::size_t, std::string>, std::size_t> m_lengths;  // study rows by subject and test
};

}  // namespace

ProposalSurvey SurveyForProject(Disk& disk, const TableSetup& setup, const TableSurvey& table,
                                const ImportOptions& options) {
  TableReader reader(disk, setup);
  Surveyor surveyor(setup, reader, table, options);
  while (reader.Next()) surveyor.Add();
  return surveyor.Finish();
}

}  // namespace zova
