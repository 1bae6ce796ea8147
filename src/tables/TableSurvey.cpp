// SPDX-License-Identifier: GPL-3.0-or-later

#include "tables/TableSurvey.h"

#include <algorithm>
#include <numeric>

#include "project/ProjectLimits.h"
#include "tables/TableValues.h"
#include "text/TypedText.h"
#include "words/WordKey.h"

namespace zova {

namespace {

constexpr std::size_t kMaxPartValues = 1000;

class Surveyor {
 public:
  Surveyor(const TableSetup& setup, const TableReader& reader, const WordList& words)
      : m_setup(setup),
        m_reader(reader),
        m_hasItems(setup.Columns.Has(ColumnRole::Item) && setup.Layout.Shape == TableShape::Long) {
    for (const Word& word : words.Words) {
      std::string key = WordKey(word.Text);
      if (!m_hasItems && HasDigits(KeyPoints(key))) m_numberWords.emplace(std::move(key), 0);
    }
  }

  void Add() {
    ++m_survey.Rows;
    const std::size_t subject = SubjectOf(m_reader.Text(ColumnRole::Subject));
    const std::string_view type = m_reader.Text(ColumnRole::TrialType);
    const RowKind kind = KindOfRow(type);
    if (kind == RowKind::Other) {
      Note(m_survey.TrialTypes, m_trialTypes, type);
      return;
    }
    if (kind == RowKind::Study) ++m_survey.StudyRows;
    for (const ResponseColumn& column : m_setup.Layout.Responses) {
      NoteLabel(subject, column.TestLabel.empty() ? m_reader.Text(ColumnRole::Test) : column.TestLabel);
      NoteResponse(kind, column);
    }
    if (kind == RowKind::Recall) NoteMinute();
  }

  TableSurvey Finish() {
    m_survey.HasNumbers = m_numbers > 0 && m_texts == 0;
    OrderLabels();
    return std::move(m_survey);
  }

 private:
  std::size_t SubjectOf(std::string_view id) {
    if (!m_survey.Subjects.empty() && m_survey.Subjects[m_subject].Text == id) {
      ++m_survey.Subjects[m_subject].Count;
      return m_subject;
    }
    const std::size_t before = m_survey.Subjects.size();
    m_subject = Note(m_survey.Subjects, m_subjects, id);
    if (m_survey.Subjects.size() == before) m_survey.IsSorted = false;
    m_labelsOf.resize(m_survey.Subjects.size());
    return m_subject;
  }

  std::size_t Note(std::vector<SeenText>& seen, TextMap<std::size_t>& indices, std::string_view text) const {
    const auto found = indices.find(text);
    const std::size_t index = found == indices.end() ? seen.size() : found->second;
    if (found == indices.end()) {
      indices.emplace(text, index);
      seen.push_back({std::string(text), m_reader.Line(), 0});
    }
    ++seen[index].Count;
    return index;
  }

  void NoteLabel(std::size_t subject, std::string_view text) {
    if (m_survey.Labels.empty() || m_survey.Labels[m_label].Text != text) {
      m_label = Note(m_survey.Labels, m_survey.LabelIndices, text);
    } else {
      ++m_survey.Labels[m_label].Count;
    }
    std::vector<std::uint32_t>& own = m_labelsOf[subject];
    const auto label = static_cast<std::uint32_t>(m_label);
    if (!own.empty() && own.back() == label) return;
    if (std::find(own.begin(), own.end(), label) == own.end()) own.push_back(label);
  }

  void NoteResponse(RowKind kind, const ResponseColumn& column) {
    std::string_view text = m_reader.Text(static_cast<int>(column.Column));
    if (kind == RowKind::Study) {
      if (const auto number = WholeNumber(m_hasItems ? m_reader.Text(ColumnRole::Item) : text)) NoteValue(*number);
      if (IsNothing(text) || text == m_lastStudied) return;
      m_lastStudied = text;
      if (m_studiedTexts.find(text) != m_studiedTexts.end()) return;
      m_studiedTexts.emplace(text, 0);
      const std::size_t before = m_survey.Studied.size();
      Note(m_survey.Studied, m_studied, WordKey(text));
      if (m_survey.Studied.size() > before) m_survey.Studied.back().Text = text;
      return;
    }
    if (m_hasItems) text = m_reader.Text(ColumnRole::Item);
    if (!column.IsCell) return NoteNumber(text);
    const std::string& separator = m_setup.Layout.Separator;
    while (!text.empty()) {
      const std::size_t end = std::min(text.find(separator), text.size());
      NoteNumber(WithoutOuterBlanks(text.substr(0, end)));
      text.remove_prefix(std::min(text.size(), end + separator.size()));
    }
  }

  void NoteNumber(std::string_view text) {
    if (m_texts > 0 || IsNothing(text)) return;
    const auto number = WholeNumber(text);
    if (!number || (!m_numberWords.empty() && m_numberWords.find(WordKey(text)) != m_numberWords.end())) {
      ++m_texts;
      return;
    }
    ++m_numbers;
    NoteValue(*number);
  }

  void NoteValue(int number) {
    m_survey.LargestNumber = std::max(m_survey.LargestNumber, number);
    if (number == 0 && m_survey.ZeroLine == 0) m_survey.ZeroLine = m_reader.Line();
  }

  void NoteMinute() {
    if (m_survey.BrokenMinuteLine != 0 || !m_setup.Columns.Has(ColumnRole::Minute)) return;
    const std::string_view text = m_reader.Text(ColumnRole::Minute);
    if (IsNothing(text)) return;
    const auto minute = WholeNumber(text);
    if (!minute) m_survey.BrokenMinuteLine = m_reader.Line();
    if (minute.value_or(0) <= m_survey.LargestMinute) return;
    m_survey.LargestMinute = *minute;
    m_survey.LargestMinuteLine = m_reader.Line();
  }

  void OrderLabels() {
    TableSurvey& survey = m_survey;
    survey.ByPlace.resize(survey.Labels.size());
    std::iota(survey.ByPlace.begin(), survey.ByPlace.end(), std::size_t{0});
    const auto numberOf = [&](std::size_t label) { return WholeNumber(survey.Labels[label].Text); };
    const bool areNumbers = std::all_of(survey.ByPlace.begin(), survey.ByPlace.end(),
                                        [&](std::size_t label) { return numberOf(label).has_value(); });
    if (areNumbers) {
      std::stable_sort(survey.ByPlace.begin(), survey.ByPlace.end(),
                       [&](std::size_t left, std::size_t right) { return numberOf(left) < numberOf(right); });
    }
    survey.LabelPlaces.resize(survey.Labels.size());
    for (std::size_t place = 0; place < survey.ByPlace.size(); ++place) {
      survey.LabelPlaces[survey.ByPlace[place]] = static_cast<int>(place) + 1;
    }
    survey.LabelRanks.resize(survey.Labels.size());
    for (auto& own : m_labelsOf) {
      if (own.empty()) continue;
      std::sort(own.begin(), own.end(), [&](std::uint32_t left, std::uint32_t right) {
        return survey.LabelPlaces[left] < survey.LabelPlaces[right];
      });
      if (survey.LabelPlaces[own.back()] != static_cast<int>(own.size())) survey.RankDiffers = true;
      survey.MostLabels = std::max(survey.MostLabels, static_cast<int>(own.size()));
      for (std::size_t rank = 0; rank < std::min<std::size_t>(own.size(), kMaxTests); ++rank) {
        std::vector<std::size_t>& ranks = survey.LabelRanks[own[rank]];
        ranks.resize(std::max(ranks.size(), rank + 1));
        ++ranks[rank];
      }
    }
  }

  const TableSetup& m_setup;
  const TableReader& m_reader;
  bool m_hasItems;  // a column of item numbers
  TableSurvey m_survey;
  TextMap<std::size_t> m_subjects;
  TextMap<std::size_t> m_trialTypes;
  TextMap<std::size_t> m_studied;  // by key
  TextMap<int> m_studiedTexts;
  TextMap<int> m_numberWords;  // keys of words that could be read as numbers
  std::string m_lastStudied;
  std::vector<std::vector<std::uint32_t>> m_labelsOf;  // by subject
  std::size_t m_subject = 0;
  std::size_t m_label = 0;
  std::size_t m_numbers = 0;
  std::size_t m_texts = 0;
};

// The parts into which one column divides a table. Mostly a row is of the same part and subject as the one before.
struct Parts {
  struct Part {
    TextMap<int> Labels;
    TextMap<int> Subjects;
    TextMap<int> Studied;
    std::string LastSubject;
  };
  TextMap<Part> ByValue;
  TextMap<Part>::value_type* Last = nullptr;
  bool IsOut = false;

  void Add(std::string_view value, std::string_view subject, const std::vector<std::string_view>& labels,
           std::string_view studied) {
    if (IsOut) return;
    if (Last == nullptr || Last->first != value) {
      auto found = ByValue.find(value);
      if (found == ByValue.end()) found = ByValue.emplace(value, Part{}).first;
      Last = &*found;
    }
    Part& part = Last->second;
    for (const std::string_view label : labels) {
      if (part.Labels.find(label) == part.Labels.end()) part.Labels.emplace(label, 0);
    }
    if (part.LastSubject != subject || part.Subjects.empty()) {
      part.LastSubject = subject;
      if (part.Subjects.find(subject) == part.Subjects.end()) part.Subjects.emplace(subject, 0);
    }
    if (!studied.empty() && part.Studied.find(studied) == part.Studied.end()) part.Studied.emplace(studied, 0);
    IsOut = ByValue.size() > kMaxPartValues || part.Studied.size() > static_cast<std::size_t>(kMaxItems) ||
            part.Labels.size() > kMaxTests || part.Subjects.size() > static_cast<std::size_t>(kMaxSubjects);
    if (IsOut) ByValue = {};
  }
};

}  // namespace

TableSurvey SurveyTable(Disk& disk, const TableSetup& setup, const WordList& words) {
  TableReader reader(disk, setup);
  Surveyor surveyor(setup, reader, words);
  while (reader.Next()) surveyor.Add();
  return surveyor.Finish();
}

std::string PartsText(Disk& disk, const TableSetup& setup) {
  TableReader reader(disk, setup);
  std::vector<Parts> parts(setup.Format.Names.size());
  for (std::size_t i = 0; i < parts.size(); ++i) {
    const auto column = static_cast<int>(i);
    parts[i].IsOut = HasRole(setup, column) && column != setup.Columns.Of(ColumnRole::Test);
  }
  std::vector<std::string_view> labels;
  while (reader.Next()) {
    labels.clear();
    for (const ResponseColumn& column : setup.Layout.Responses) {
      labels.push_back(column.TestLabel.empty() ? reader.Text(ColumnRole::Test) : column.TestLabel);
    }
    const bool isStudy = KindOfRow(reader.Text(ColumnRole::TrialType)) == RowKind::Study;
    const std::string_view studied =
        isStudy ? reader.Text(static_cast<int>(setup.Layout.Responses.front().Column)) : std::string_view();
    for (std::size_t i = 0; i < parts.size(); ++i) {
      parts[i].Add(reader.Text(static_cast<int>(i)), reader.Text(ColumnRole::Subject), labels, studied);
    }
  }
  std::string text;
  for (std::size_t i = 0; i < parts.size(); ++i) {
    if (parts[i].IsOut || parts[i].ByValue.size() < 2) continue;
    text.append(text.empty() ? "; a part by --where would fit: " : ", ").append(setup.Format.Names[i]);
  }
  return text.empty() ? "; no column divides the table into parts that would fit" : text;
}

}  // namespace zova
