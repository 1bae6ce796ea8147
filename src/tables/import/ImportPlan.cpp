// SPDX-License-Identifier: GPL-3.0-or-later

#include "tables/import/ImportPlan.h"

#include <algorithm>
#include <utility>

#include "project/ProjectLayout.h"
#include "subjects/SubjectFile.h"
#include "tables/import/ImportQuestions.h"
#include "tables/import/ImportSubjects.h"
#include "tables/import/ImportTotals.h"
#include "tables/import/SubjectBuilder.h"
#include "text/Encoding.h"
#include "words/SubjectRows.h"
#include "words/WordKey.h"

namespace zova {

namespace {

bool IsSaved(Disk& disk, const std::string& directory, const BuiltSubject& subject, const ProjectParameters& project) {
  const std::string path = JoinPath(directory, SubjectFileName(project, subject.Record.SubjectId));
  return ReadIfThere(disk, disk.Resolve(path, FileOperation::Read)) == FormatSubject(subject.Record, project);
}

// A table without an order of study does not speak against the one that is kept.
bool HasSameRows(const ImportContext& context, const BuiltSubject& subject) {
  const auto intrusions = RowsOf(context.Intrusions, subject.Record.SubjectId);
  const auto orders = RowsOf(context.StudyOrders, subject.Record.SubjectId);
  return std::equal(intrusions.begin(), intrusions.end(), subject.Intrusions.begin(), subject.Intrusions.end()) &&
         (!subject.HasOrder ||
          std::equal(orders.begin(), orders.end(), subject.StudyOrders.begin(), subject.StudyOrders.end()));
}

// Intrusions and study orders stand in one file for complete and unfinished subjects, so that an incomplete one beside
// a complete one would change what is scored of the latter.
SubjectAction ActionFor(Disk& disk, const ImportDraft& draft, const BuiltSubject& subject, std::size_t& different) {
  const ImportContext& context = draft.Context;
  if (subject.IsLeftOut) return SubjectAction::LeaveOut;
  if (subject.IsIncomplete && !draft.Options.AcceptIncomplete) return SubjectAction::Refuse;
  const std::string name = SubjectFileName(context.Project, subject.Record.SubjectId);
  const bool isComplete = context.Subjects.find(UpperCase(name)) != context.Subjects.end();
  const bool isUnfinished = context.Unfinished.find(UpperCase(name)) != context.Unfinished.end();
  const std::string& primary = context.Project.PrimaryDir;
  const bool isSame =
      (isComplete && IsSaved(disk, SubjectDirectory(primary), subject, context.Project)) ||
      (isUnfinished && subject.IsIncomplete && IsSaved(disk, UnfinishedDirectory(primary), subject, context.Project));
  if (isSame && HasSameRows(context, subject)) return SubjectAction::Same;
  const bool isThere = isComplete || isUnfinished;
  different += isThere ? 1 : 0;
  if (isThere && draft.Options.Existing != ExistingSubjects::Replace) return SubjectAction::Skip;
  if (subject.IsIncomplete) return isComplete ? SubjectAction::Refuse : SubjectAction::Unfinished;
  return isThere ? SubjectAction::Replace : SubjectAction::Write;
}

bool IsStored(SubjectAction action) noexcept {
  return action != SubjectAction::Refuse && action != SubjectAction::Skip && action != SubjectAction::LeaveOut;
}

template <typename Row>
void Append(std::vector<Row>& to, std::vector<Row>& from) {
  to.insert(to.end(), std::make_move_iterator(from.begin()), std::make_move_iterator(from.end()));
}

void PlanSubjects(Disk& disk, ImportDraft& draft, std::array<std::size_t, kMaxVariables>& withoutLevel) {
  ImportPlan& plan = draft.Plan;
  const auto variables = static_cast<std::size_t>(draft.Context.Project.VariableCount);
  SubjectBuilder builder(draft.Setup, draft.Survey, draft.Options, draft.Context, *draft.Matcher, plan.Findings);
  BuiltSubject subject;
  std::size_t next = 0;
  ForEachSubject(disk, draft.Setup, draft.Survey, variables, [&](const SubjectRows& rows) {
    if (next == plan.Subjects.size() || plan.Subjects[next].Original != rows.Original) {
      throw TableError(draft.Setup.Path, rows.Line, "The table has changed while it was read");
    }
    PlannedSubject& planned = plan.Subjects[next++];
    builder.Build(rows, planned.SubjectId, subject);
    planned.Digest = rows.Digest;
    planned.Action = ActionFor(disk, draft, subject, plan.Different);
    ++plan.ActionCounts[static_cast<std::size_t>(planned.Action)];
    if (planned.Action == SubjectAction::Refuse && draft.Options.AcceptIncomplete) {
      plan.Findings.Add({.Kind = CaseKind::Check,
                         .Row = rows.Line,
                         .Subject = rows.Original,
                         .Text = "the project has complete data of the subject, which incomplete ones do not replace"});
    }
    for (std::size_t v = 0; v < variables; ++v) withoutLevel[v] += subject.LacksLevel[v] ? 1U : 0U;
    if (IsStored(planned.Action)) {
      Append(plan.Intrusions, subject.Intrusions);
      Append(plan.StudyOrders, subject.StudyOrders);
    }
    return true;
  });
}

// Before the other cases.
void NoteNeedlessDecisions(ImportDraft& draft) {
  std::vector<ImportCase> needless;
  for (const DecidedResponse& decided : draft.Context.Decided.All()) {
    if (!IsNeedless(decided, draft)) continue;
    std::string text = "'" + decided.Response + "' is a word; what was decided about it is passed over";
    if (decided.Line != 0) {
      const std::string file =
          decided.File.empty() ? CompanionName(draft.Context.Project, CompanionFile::Responses) : decided.File;
      text.insert(0, "'" + file + "', line " + std::to_string(decided.Line) + ": ");
    }
    needless.push_back({.Kind = CaseKind::Check, .Text = std::move(text)});  // NOLINT: mostly none
  }
  std::vector<ImportCase>& cases = draft.Plan.Findings.Cases;
  cases.insert(cases.begin(), std::make_move_iterator(needless.begin()), std::make_move_iterator(needless.end()));
}

void MakePlan(Disk& disk, ImportDraft& draft) {
  draft.Plan = {};
  if (!draft.Matcher) {
    draft.Matcher =
        std::make_shared<ResponseMatcher>(draft.Context.Words, draft.Survey.Studied, draft.Options.ExactAccents);
  }
  draft.Matcher->ListDecisions().clear();
  NoteTableFaults(disk, draft);
  if (!draft.Setup.Columns.Faults.empty()) {
    AddTotals(draft);
    return;
  }
  AssignIdentifiers(draft);
  std::array<std::size_t, kMaxVariables> withoutLevel{};
  PlanSubjects(disk, draft, withoutLevel);
  NoteNeedlessDecisions(draft);
  AskQuestions(draft, withoutLevel);
  AddTotals(draft);
  draft.Plan.IsComplete = true;
}

}  // namespace

void ReadTable(Disk& disk, ImportDraft& draft, const std::string& table) {
  draft.Setup = SetUpTable(disk, table, draft.Options.Table, draft.Context.Project);
  draft.Survey = {};
  if (draft.Setup.Columns.Faults.empty()) {
    draft.Survey = SurveyTable(disk, draft.Setup, draft.Context.Words);
  }
  draft.Matcher.reset();
}

ImportDraft DraftImport(Disk& disk, const std::string& table, const ImportOptions& options, ImportContext context) {
  ImportDraft draft{.Options = options, .Context = std::move(context), .Setup = {}, .Survey = {}, .Plan = {}};
  ReadTable(disk, draft, table);
  MakePlan(disk, draft);
  return draft;
}

void RefreshImport(Disk& disk, ImportDraft& draft) {
  if (draft.Setup.Options != draft.Options.Table) ReadTable(disk, draft, draft.Setup.Path);
  if (draft.Matcher && draft.Matcher->HasExactAccents() != draft.Options.ExactAccents) draft.Matcher.reset();
  MakePlan(disk, draft);
}

// Two pieces of a cell may together be a word and yet have been decided as another item, an intrusion or nothing. As
// the word itself they were decided for tables in which they stand so.
bool IsNeedless(const DecidedResponse& decided, const ImportDraft& draft) {
  const std::string key = WordKey(decided.Response);
  const bool isItsWord = decided.What.Kind == Verdict::Item && draft.Matcher->ItemInPool(key) == decided.What.Item;
  return draft.Matcher->IsWord(key) && !isItsWord && !draft.Plan.Findings.HasNoted(decided.Response);
}

Responses DecisionsToKeep(const Responses& decided, const ImportDraft& draft) {
  const bool byPosition = draft.Options.Items == ItemsBy::Position;
  Responses kept;
  TextMap<int> items;  // responses that are items in some lists
  const auto isKeptAlready = [](const DecidedResponse& d) { return d.Line != 0 && d.File.empty(); };
  for (const DecidedResponse& decision : decided.All()) {
    if (byPosition && decision.What.Kind == Verdict::Item) items.emplace(ResponsePlace(decision.Response, {}), 0);
    if (isKeptAlready(decision)) kept.Add(decision);
  }
  for (const DecidedResponse& decision : decided.All()) {
    if (byPosition && items.find(ResponsePlace(decision.Response, {})) != items.end()) continue;
    if (isKeptAlready(decision) || (!decision.File.empty() && IsNeedless(decision, draft))) continue;
    kept.Add({decision.Response, decision.What});
  }
  return kept;
}

std::size_t TakeProposals(const ImportPlan& plan, int distance, Responses& decided) {
  std::size_t taken = 0;
  for (const OpenResponse& open : plan.Findings.Responses) {
    if (open.Decided || open.Near.size() != 1 || open.Near.front().Distance > distance) continue;
    decided.Replace({open.Response, {Verdict::Item, open.Near.front().Item}, 0, open.Scope});
    ++taken;
  }
  return taken;
}

}  // namespace zova
