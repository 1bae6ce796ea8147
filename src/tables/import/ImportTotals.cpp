// SPDX-License-Identifier: GPL-3.0-or-later

#include "tables/import/ImportTotals.h"

#include <algorithm>

#include "tables/import/SubjectBuilder.h"
#include "text/Counted.h"

namespace zova {

namespace {

std::string SeparatorText(const std::string& separator) {
  return separator == " " ? "blank" : separator == "\t" ? "tab" : separator == "\n" ? "line" : separator;
}

void AddColumns(const ImportDraft& draft, std::vector<ImportTotal>& totals) {
  const TableFormat& format = draft.Setup.Format;
  const TableColumns& columns = draft.Setup.Columns;
  const auto nameOf = [&](int column) { return format.Names[static_cast<std::size_t>(column)]; };
  for (std::size_t role = 0; role < kColumnRoleCount; ++role) {
    if (columns.Roles[role] == kNoColumn) continue;
    totals.push_back(
        {"column", 1, nameOf(columns.Roles[role]), {}, std::string(RoleName(static_cast<ColumnRole>(role)))});
  }
  for (std::size_t v = 0; v < static_cast<std::size_t>(draft.Context.Project.VariableCount); ++v) {
    if (columns.Variables[v] == kNoColumn) continue;
    totals.push_back({"column", 1, nameOf(columns.Variables[v]), {}, draft.Context.Project.VariableNames[v]});
  }
  if (draft.Setup.Layout.Shape != TableShape::Long) {
    for (const ResponseColumn& response : draft.Setup.Layout.Responses) {
      const bool hasRole =
          std::count(columns.Roles.begin(), columns.Roles.end(), static_cast<int>(response.Column)) > 0;
      if (hasRole) continue;
      totals.push_back({"column", 1, format.Names[response.Column], response.TestLabel,
                        response.IsCell ? "responses in cells" : "responses"});
    }
  }
  for (const ColumnNote& note : columns.Notes) totals.push_back({"column", 0, note.Column, {}, note.Text});
}

// "test 1 of 12 subjects, test 2 of 1 subject"
std::string RanksText(const std::vector<std::size_t>& ranks) {
  std::string text;
  for (std::size_t rank = 0; rank < ranks.size(); ++rank) {
    if (ranks[rank] == 0) continue;
    text += (text.empty() ? "test " : ", test ") + std::to_string(rank + 1) + " of " +
            Counted(ranks[rank], "subject", "subjects");
  }
  return text;
}

void AddTests(const ImportDraft& draft, std::vector<ImportTotal>& totals) {
  const TableSurvey& survey = draft.Survey;
  const std::vector<int> tests = TestsOfLabels(survey, draft.Context.Project.TestCount);
  for (const std::size_t label : survey.ByPlace) {
    const std::string test = draft.Options.Tests == TestsBy::Rank ? RanksText(survey.LabelRanks[label])
                             : tests[label] == 0                  ? "none"
                                                                  : "test " + std::to_string(tests[label]);
    totals.push_back({"test", survey.Labels[label].Count, {}, survey.Labels[label].Text, test});
  }
  for (const SeenText& type : survey.TrialTypes) {
    totals.push_back(
        {"passed-over",
         type.Count,
         draft.Setup.Columns.Has(ColumnRole::TrialType)
             ? draft.Setup.Format.Names[static_cast<std::size_t>(draft.Setup.Columns.Of(ColumnRole::TrialType))]
             : std::string(),
         {},
         "trial type '" + type.Text + "'"});
  }
}

void AddCounts(const ImportDraft& draft, std::vector<ImportTotal>& totals) {
  const ImportCounts& counts = draft.Plan.Findings.Counts;
  const ImportPlan& plan = draft.Plan;
  const auto add = [&](const char* what, std::size_t count) { totals.push_back({what, count}); };
  add("rows", draft.Survey.Rows);
  add("subjects", draft.Survey.Subjects.size());
  add("tests", draft.Survey.Labels.size());
  add("study-rows", draft.Survey.StudyRows);
  add("recalls", counts.Recalls);
  add("exact", counts.Exact);
  add("decided", counts.Decided);
  add("proposed", counts.Proposed);
  add("taken", counts.Taken);
  add("open", counts.Open);
  add("intrusions", counts.Intrusions);
  add("from-another-list", counts.OtherList);
  add("skipped", counts.Skipped);
  add("repeats", counts.Repeats);
  add("gaps", counts.Gaps);
  add("too-long-lists", counts.TooLong);
  add("missing-tests", counts.MissingTests);
  add("empty-tests", counts.EmptyTests);
  add("study-orders", plan.StudyOrders.size());
  add("new", plan.CountOf(SubjectAction::Write));
  add("replaced", plan.CountOf(SubjectAction::Replace));
  add("same", plan.CountOf(SubjectAction::Same));
  add("existing", plan.CountOf(SubjectAction::Skip));
  add("unfinished", plan.CountOf(SubjectAction::Unfinished));
  add("refused", plan.CountOf(SubjectAction::Refuse));
  add("left-out", plan.CountOf(SubjectAction::LeaveOut));
}

}  // namespace

void AddTotals(ImportDraft& draft) {
  std::vector<ImportTotal>& totals = draft.Plan.Totals;
  const TableSetup& setup = draft.Setup;
  AddCounts(draft, totals);
  totals.push_back({"encoding", 1, {}, {}, std::string(EncodingName(setup.Format.Encoding))});
  totals.push_back({"delimiter", 1, {}, {}, std::string(DelimiterName(setup.Format.Delimiter))});
  totals.push_back({"shape", 1, {}, {}, std::string(ShapeName(setup.Layout.Shape))});
  if (!setup.Layout.Separator.empty()) {
    totals.push_back({"separator", 1, {}, {}, SeparatorText(setup.Layout.Separator)});
  }
  AddColumns(draft, totals);
  AddTests(draft, totals);
  for (const std::string& text : draft.Context.Notes) totals.push_back({"project", 1, {}, {}, text});
}

}  // namespace zova
