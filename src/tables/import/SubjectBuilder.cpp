// SPDX-License-Identifier: GPL-3.0-or-later

#include "tables/import/SubjectBuilder.h"

#include <algorithm>

#include "subjects/entry/CompletionChecks.h"
#include "subjects/entry/EntryLists.h"
#include "tables/TableValues.h"

namespace zova {

std::vector<int> TestsOfLabels(const TableSurvey& survey, int testCount) {
  std::vector<int> tests;
  tests.reserve(survey.Labels.size());
  for (const SeenText& label : survey.Labels) {
    const auto number = WholeNumber(label.Text);
    if (!number || *number < 1 || *number > testCount) break;
    tests.push_back(*number);
  }
  if (tests.size() == survey.Labels.size()) return tests;
  tests.clear();
  for (const int place : survey.LabelPlaces) tests.push_back(place <= testCount ? place : 0);
  return tests;
}

SubjectBuilder::SubjectBuilder(const TableSetup& setup, const TableSurvey& survey, const ImportOptions& options,
                               const ImportContext& context, ResponseMatcher& matcher, ImportFindings& findings)
    : m_setup(setup),
      m_survey(survey),
      m_options(options),
      m_context(context),
      m_findings(findings),
      m_lists(setup, survey, options, context, matcher, findings),
      m_testOfLabel(TestsOfLabels(survey, context.Project.TestCount)),
      m_tests(static_cast<std::size_t>(std::max<int>(context.Project.TestCount, 0))) {}

void SubjectBuilder::DivideByTests(const SubjectRows& rows) {
  for (TestEntries& test : m_tests) {
    test.Label = -1;
    test.Study.clear();
    test.Recall.clear();
    test.Listed.clear();
  }
  std::vector<int> own;  // places of the subject's labels, with rank
  if (m_options.Tests == TestsBy::Rank) {
    for (const TableEntry& entry : rows.Entries) {
      const int place = m_survey.LabelPlaces[static_cast<std::size_t>(entry.Label)];
      const auto at = std::lower_bound(own.begin(), own.end(), place);
      if (at == own.end() || *at != place) own.insert(at, place);  // at most a few
    }
  }
  for (const TableEntry& entry : rows.Entries) {
    const auto label = static_cast<std::size_t>(entry.Label);
    const auto rank = [&] {
      return static_cast<int>(std::lower_bound(own.begin(), own.end(), m_survey.LabelPlaces[label]) - own.begin()) + 1;
    };
    const int test = m_options.Tests == TestsBy::Rank ? rank() : m_testOfLabel[label];
    if (test < 1 || static_cast<std::size_t>(test) > m_tests.size()) continue;  // reported for the table as a whole
    TestEntries& entries = m_tests[static_cast<std::size_t>(test) - 1];
    entries.Label = entry.Label;
    (entry.IsStudy ? entries.Study : entries.Recall).push_back(&entry);
  }
}

int GivenLevel(const ImportOptions& options, const ProjectParameters& project, std::size_t variable) {
  for (const LevelChoice& choice : options.Levels) {
    const bool isOfVariable = VariableNamed(choice.Variable, project) == static_cast<int>(variable);
    if (isOfVariable) return LevelOf(choice.Level, project, variable);
  }
  return 0;
}

void SubjectBuilder::FillLevels(const SubjectRows& rows, BuiltSubject& subject) {
  const ProjectParameters& project = m_context.Project;
  for (std::size_t v = 0; v < rows.Levels.size(); ++v) {
    const LevelText& given = rows.Levels[v];
    const int column = m_setup.Columns.Variables[v];
    int level = given.ChangedLine == 0 ? LevelOf(given.Text, project, v) : 0;
    if (level == 0) {
      level = GivenLevel(m_options, project, v);
      subject.LacksLevel[v] = true;
      ImportCase found{.Kind = CaseKind::Level,
                       .Row = given.ChangedLine != 0 ? given.ChangedLine
                              : given.Line != 0      ? given.Line
                                                     : rows.Line,
                       .Subject = rows.Original};
      if (column != kNoColumn) {
        found.Column = m_setup.Format.Names[static_cast<std::size_t>(column)];
        found.Text = given.ChangedLine != 0 ? "the subject has another value than '" + given.Text + "' before"
                     : given.Line == 0      ? "the subject has no value"
                                            : "'" + given.Text + "' is no level of " + project.VariableNames[v];
        m_findings.Add(std::move(found));
      }
    }
    subject.Record.Levels[v] = static_cast<std::int16_t>(level);
  }
}

void SubjectBuilder::NoteMissingTests(const SubjectRows& rows, BuiltSubject& subject) {
  for (std::size_t test = 0; test < m_tests.size(); ++test) {
    if (m_tests[test].Label >= 0) continue;
    if (m_findings.Counts.MissingTests++ == 0) m_findings.Counts.MissingTestRow = rows.Line;
    m_findings.Add({.Kind = CaseKind::Check,
                    .Row = rows.Line,
                    .Subject = rows.Original,
                    .Text = "the subject has no rows for test " + std::to_string(test + 1)});
    if (m_options.Missing == MissingTests::LeaveOut) subject.IsLeftOut = true;
  }
}

void SubjectBuilder::Check(const SubjectRows& rows, BuiltSubject& subject) {
  const CheckResult result = CheckLists(subject.Record.Lists, m_context.Project);
  const auto report = [&](const CheckFinding& finding) {
    const TestEntries& test = m_tests[static_cast<std::size_t>(finding.Test) - 1];
    const int label = test.Label;
    const std::string where = "test " + std::to_string(finding.Test) + ", line " + std::to_string(finding.Position);
    const auto position = static_cast<std::size_t>(finding.Position);
    const TableEntry* const entry = position <= test.Listed.size() ? test.Listed[position - 1]
                                    : !test.Recall.empty()         ? test.Recall.front()
                                                                   : nullptr;
    const int column = finding.Column == kMinuteColumn   ? m_setup.Columns.Of(ColumnRole::Minute)
                       : finding.Column == kRatingColumn ? m_setup.Columns.Of(ColumnRole::Rating)
                       : entry == nullptr                ? kNoColumn
                                                         : entry->Column;
    m_findings.Add({.Kind = CaseKind::Check,
                    .Row = entry == nullptr ? rows.Line : entry->Line,
                    .Column = column == kNoColumn ? "" : m_setup.Format.Names[static_cast<std::size_t>(column)],
                    .Subject = rows.Original,
                    .Test = label < 0 ? std::string() : m_survey.Labels[static_cast<std::size_t>(label)].Text,
                    .Text = where + ": " + finding.Message.substr(0, finding.Message.find("  "))});
  };
  subject.IsIncomplete = result.Fault.has_value();
  if (result.Fault) report(*result.Fault);
  for (const CheckFinding& warning : result.Warnings) report(warning);
}

void SubjectBuilder::Build(const SubjectRows& rows, const std::string& subjectId, BuiltSubject& subject) {
  subject.IsLeftOut = subject.IsIncomplete = false;
  subject.LacksLevel.fill(false);
  subject.Intrusions.clear();
  subject.StudyOrders.clear();
  subject.Record.SubjectId = subjectId;
  subject.Record.UnfinishedNote.clear();
  subject.Record.KnownFiles.clear();
  ResetLists(subject.Record, m_context.Project);
  DivideByTests(rows);
  FillLevels(rows, subject);
  NoteMissingTests(rows, subject);
  for (std::size_t test = 0; test < m_tests.size(); ++test) {
    if (m_tests[test].Label < 0) continue;
    const bool fits = m_lists.Build(rows, static_cast<int>(test) + 1, m_tests[test], subjectId, subject.Record.Lists,
                                    subject.Intrusions, subject.StudyOrders);
    if (!fits && m_options.Long == TooLong::LeaveOut) subject.IsLeftOut = true;
  }
  subject.HasOrder = !subject.StudyOrders.empty();
  std::erase_if(subject.StudyOrders, [&](const StudyOrder& order) { return m_lists.IsSavedOrder(order); });
  Check(rows, subject);
}

}  // namespace zova
