// SPDX-License-Identifier: GPL-3.0-or-later

#include "tables/import/ImportSubjects.h"

#include <algorithm>
#include <functional>
#include <set>

#include "project/ProjectLayout.h"
#include "subjects/SubjectFiles.h"
#include "tables/TableReader.h"
#include "tables/TableValues.h"
#include "tables/import/SubjectBuilder.h"
#include "text/Encoding.h"

namespace zova {

namespace {

void AddError(ImportDraft& draft, std::size_t row, const std::string& subject, std::string text) {
  draft.Plan.Findings.Add({.Kind = CaseKind::Error, .Row = row, .Subject = subject, .Text = std::move(text)});
}

constexpr const char* kNoSubject = "the row has no subject";

// Later imports keep the numbers of earlier ones; nobody gets the number of a subject that is there under its own name.
void NumberSubjects(ImportDraft& draft) {
  ImportPlan& plan = draft.Plan;
  plan.OriginalIds = draft.Context.OriginalIds;
  TextMap<std::string> known;
  std::set<std::string, std::less<>> taken;
  for (const OriginalId& id : plan.OriginalIds) {
    known.emplace(id.Original, id.Subject);
    taken.insert(id.Subject);
  }
  const auto isThere = [&](const std::string& id) {
    const std::string name = UpperCase(SubjectFileName(draft.Context.Project, id));
    return draft.Context.Subjects.contains(name) || draft.Context.Unfinished.contains(name);
  };
  int next = 1;
  for (PlannedSubject& subject : plan.Subjects) {
    if (const auto found = known.find(subject.Original); found != known.end()) {
      subject.SubjectId = found->second;
      continue;
    }
    if (subject.Original.empty()) {
      AddError(draft, subject.Row, {}, kNoSubject);
    } else if (IsSubjectId(subject.Original) && !taken.contains(subject.Original) && isThere(subject.Original)) {
      AddError(draft, subject.Row, subject.Original,
               "'" + subject.Original + "' is in the project under this name; with a number it would be there twice");
    }
    while (taken.contains(std::to_string(next)) || isThere(std::to_string(next))) ++next;
    subject.SubjectId = std::to_string(next++);
    plan.OriginalIds.push_back({subject.SubjectId, subject.Original});
  }
  std::sort(plan.OriginalIds.begin(), plan.OriginalIds.end(),
            [](const OriginalId& left, const OriginalId& right) { return StandsBefore(left, right); });
}

void KeepIdentifiers(ImportDraft& draft) {
  constexpr const char* kNumberThem = "; --ids number numbers the subjects";
  TextMap<const PlannedSubject*> seen;
  for (PlannedSubject& subject : draft.Plan.Subjects) {
    subject.SubjectId = subject.Original;
    if (!IsSubjectId(subject.Original)) {
      AddError(draft, subject.Row, subject.Original,
               subject.Original.empty() ? kNoSubject
                                        : "'" + subject.Original + "' cannot be a subject's identifier" + kNumberThem);
      continue;
    }
    const auto [other, isNew] = seen.emplace(UpperCase(subject.Original), &subject);
    if (!isNew) {
      AddError(draft, subject.Row, subject.Original,
               "'" + subject.Original + "' and '" + other->second->Original + "' differ in case alone" + kNumberThem);
    }
    const std::string name = SubjectFileName(draft.Context.Project, subject.SubjectId);
    for (const auto* files : {&draft.Context.Subjects, &draft.Context.Unfinished}) {
      const auto file = files->find(UpperCase(name));
      if (file == files->end() || file->second == name) continue;
      AddError(draft, subject.Row, subject.Original,
               "'" + subject.Original + "' differs from the file '" + file->second + "' in case alone" + kNumberThem);
    }
  }
}

// The number of tests that the table needs. Labels of which one is above the project's tests are numbered in order.
int TestsNeeded(const ImportDraft& draft) {
  const TableSurvey& survey = draft.Survey;
  if (draft.Options.Tests == TestsBy::Rank) return survey.MostLabels;
  const std::vector<int> tests = TestsOfLabels(survey, draft.Context.Project.TestCount);
  const bool isBeyond = std::find(tests.begin(), tests.end(), 0) != tests.end();
  return isBeyond ? static_cast<int>(survey.Labels.size()) : 0;
}

void NoteChoicesInVain(ImportDraft& draft) {
  const ProjectParameters& project = draft.Context.Project;
  for (const LevelChoice& choice : draft.Options.Levels) {
    const int variable = VariableNamed(choice.Variable, project);
    if (variable == kNoColumn) {
      AddError(draft, 0, {}, "--level: '" + choice.Variable + "' is no variable of the project");
    } else if (LevelOf(choice.Level, project, static_cast<std::size_t>(variable)) == 0) {
      AddError(draft, 0, {}, "--level: '" + choice.Level + "' is no level of " + choice.Variable);
    }
  }
  if (draft.Survey.Rows > 0 || draft.Options.Table.Where.empty()) return;
  std::string text;
  for (const RowFilter& filter : draft.Options.Table.Where) {
    text += (text.empty() ? "no row has " : ", ") + filter.Column + "=" + filter.Value;
  }
  AddError(draft, 0, {}, text);
}

}  // namespace

void AssignIdentifiers(ImportDraft& draft) {
  draft.Plan.Subjects.reserve(draft.Survey.Subjects.size());
  for (const SeenText& seen : draft.Survey.Subjects) {
    draft.Plan.Subjects.push_back({.Original = seen.Text, .SubjectId = {}, .Row = seen.Line});
  }
  const bool areNumbered = draft.Options.NumberIds || !draft.Context.OriginalIds.empty();
  areNumbered ? NumberSubjects(draft) : KeepIdentifiers(draft);
}

void NoteTableFaults(Disk& disk, ImportDraft& draft) {
  ImportFindings& findings = draft.Plan.Findings;
  for (const ImportFault& fault : draft.Context.Faults) AddError(draft, fault.Row, {}, fault.Text);
  for (const ColumnNote& fault : draft.Setup.Columns.Faults) {
    findings.Add({.Kind = CaseKind::Error, .Column = fault.Column, .Text = fault.Text});
  }
  if (!draft.Setup.Columns.Faults.empty()) return;
  NoteChoicesInVain(draft);
  const int tests = TestsNeeded(draft);
  const int allowed = draft.Context.Project.TestCount;
  if (tests > kMaxTests) {
    AddError(
        draft, 0, {},
        "The table has " + std::to_string(tests) + " tests; a project has at most 15" + PartsText(disk, draft.Setup));
  } else if (tests > allowed) {
    AddError(draft, 0, {},
             "The table has " + std::to_string(tests) + " tests; the project has " + std::to_string(allowed));
  }
  if (draft.Survey.Subjects.size() > static_cast<std::size_t>(kMaxSubjects)) {
    AddError(draft, 0, {},
             "The table has " + std::to_string(draft.Survey.Subjects.size()) +
                 " subjects; a project has at most 32767" + PartsText(disk, draft.Setup));
  }
  const bool needsWords = draft.Options.Items == ItemsBy::Pool && !draft.Survey.HasNumbers;
  if (needsWords && draft.Context.Words.IsEmpty() && draft.Survey.Rows > 0) {
    AddError(draft, 0, {}, "The responses are words, but the project has no word list; --items position needs none");
  }
  const auto empty = draft.Survey.LabelIndices.find(std::string_view());
  if (empty != draft.Survey.LabelIndices.end() && draft.Setup.Columns.Has(ColumnRole::Test)) {
    AddError(draft, draft.Survey.Labels[empty->second].Line, {}, "the row has no test");
  }
}

}  // namespace zova
