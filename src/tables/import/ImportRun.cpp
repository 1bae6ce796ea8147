// SPDX-License-Identifier: GPL-3.0-or-later

#include "tables/import/ImportRun.h"

#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "platform/desktop/FileErrorBoxes.h"
#include "project/DirectoryRules.h"
#include "project/FileChanges.h"
#include "project/ProjectLayout.h"
#include "subjects/SubjectStore.h"
#include "tables/TableReader.h"
#include "tables/import/SubjectBuilder.h"
#include "words/CompanionCsv.h"
#include "words/SubjectRows.h"

namespace zova {

namespace {

bool Writes(SubjectAction action) noexcept {
  return action == SubjectAction::Write || action == SubjectAction::Replace || action == SubjectAction::Unfinished;
}

using Ids = std::set<std::string_view>;

template <typename Row>
std::vector<Row> RowsFor(const std::vector<Row>& rows, const Ids& subjects) {
  std::vector<Row> chosen;
  for (const Row& row : rows) {
    if (subjects.contains(row.Subject)) chosen.push_back(row);  // NOLINT: mostly all
  }
  return chosen;
}

// The project's companion files with the rows of these subjects replaced by the planned ones.
class Companions {
 public:
  Companions(const ImportDraft& draft, const Platform& platform) : m_draft(draft), m_platform(platform) {}

  // Before the first subject: all of them, or none when the user cancels.
  bool WriteFirst(const Ids& subjects) {
    auto changes = Plan(subjects);
    return changes && Make(*std::move(changes));
  }

  // At the end of an import that was given up. The files in the primary directory are right also where the backup
  // directory is gone.
  void WriteLast(const Ids& subjects) {
    auto changes = Plan(subjects);
    std::vector<FileChange> inPrimary, inBackup;
    if (changes) {
      for (FileChange& change : *changes) (change.InBackup ? inBackup : inPrimary).push_back(std::move(change));
    }
    if (changes && Make(std::move(inPrimary)) && Make(std::move(inBackup))) return;
    Warn(m_platform.Boxes,
         "The files of intrusions and study orders still have lines of subjects that were not imported.  Please import "
         "the table again.");
  }

 private:
  // nullopt when the user cancels after a fault.
  std::optional<std::vector<FileChange>> Plan(const Ids& subjects) {
    const ImportContext& context = m_draft.Context;
    const ImportPlan& plan = m_draft.Plan;
    const auto isReplaced = [&](const std::string& subject) { return subjects.contains(subject); };
    std::vector<Intrusion> intrusions = context.Intrusions;
    ReplaceRows(intrusions, isReplaced, RowsFor(plan.Intrusions, subjects));
    std::vector<StudyOrder> orders = context.StudyOrders;
    ReplaceRows(orders, isReplaced, RowsFor(plan.StudyOrders, subjects));
    const Responses decided = Decisions();
    std::vector<FileChange> changes;
    const bool isPlanned = WithRetry(m_platform.Boxes, [&] {
      changes.clear();
      Add(changes, CompanionFile::Responses, FormatResponses(decided), decided.All().empty());
      Add(changes, CompanionFile::Subjects, FormatOriginalIds(plan.OriginalIds), plan.OriginalIds.empty());
      Add(changes, CompanionFile::Intrusions, FormatIntrusions(intrusions), intrusions.empty());
      Add(changes, CompanionFile::StudyOrder, FormatStudyOrders(orders), orders.empty());
    });
    return isPlanned ? std::optional(std::move(changes)) : std::nullopt;
  }

  bool Make(std::vector<FileChange> changes) {
    if (changes.empty()) return true;
    return MakeChanges({"Saving the lines of imported subjects", std::move(changes)}, m_draft.Context.Project,
                       m_platform);
  }

  [[nodiscard]] Responses Decisions() const {
    Responses kept = DecisionsToKeep(m_draft.Context.Decided, m_draft);
    if (m_draft.Options.Items == ItemsBy::Position) return kept;
    for (const OpenResponse& open : m_draft.Plan.Findings.Responses) {
      if (open.IsTaken) kept.Add({open.Response, *open.Decided});
    }
    return kept;
  }

  // A file without rows is written only in place of one that is there; one with the same content stays.
  void Add(std::vector<FileChange>& changes, CompanionFile file, const std::string& content, bool isEmpty) {
    const ProjectParameters& project = m_draft.Context.Project;
    auto before = ReadCompanion(m_platform.Files, project, file);
    if (before ? *before == content : isEmpty) return;
    changes.push_back({false, CompanionName(project, file), std::move(before), content});
    if (IsNoDirectory(project.BackupDir)) return;
    before = ReadCompanionIn(m_platform.Files, project.BackupDir, project, file);
    changes.push_back({true, CompanionName(project, file), std::move(before), content});
  }

  const ImportDraft& m_draft;
  const Platform& m_platform;
};

class Import {
 public:
  Import(const ImportDraft& draft, const Platform& platform)
      : m_draft(draft),
        m_platform(platform),
        m_store(draft.Context.Project, platform.Files, Disk::Durability::NameLater),
        m_builder(draft.Setup, draft.Survey, draft.Options, draft.Context, *draft.Matcher, m_findings),
        m_total(draft.Plan.CountOf(SubjectAction::Write) + draft.Plan.CountOf(SubjectAction::Replace) +
                draft.Plan.CountOf(SubjectAction::Unfinished)) {}

  ImportOutcome Run() {
    Companions companions(m_draft, m_platform);
    Ids planned;
    for (const PlannedSubject& subject : m_draft.Plan.Subjects) {
      if (Writes(subject.Action)) planned.insert(subject.SubjectId);
    }
    if (!companions.WriteFirst(planned)) return m_outcome;
    WithRetryOnce([&] {
      ForEachSubject(m_platform.Files, m_draft.Setup, m_draft.Survey,
                     static_cast<std::size_t>(m_draft.Context.Project.VariableCount),
                     [&](const SubjectRows& rows) { return Take(rows); });
    });
    m_platform.Bar.EndCopying();
    if (!m_store.FlushNames(m_platform.Boxes)) m_isStopped = true;
    m_outcome.Completed = !m_isStopped && m_next == m_draft.Plan.Subjects.size();
    if (!m_isStopped && !m_outcome.Completed) ReportChange({});
    if (!m_outcome.Completed) companions.WriteLast(m_done);
    return m_outcome;
  }

 private:
  // A table that cannot be read on is not read from its beginning again.
  template <typename Step>
  void WithRetryOnce(Step&& step) {
    try {
      step();
    } catch (const FileError& error) {
      Warn(m_platform.Boxes, FaultText(error));
      m_isStopped = true;
    }
  }

  void ReportChange(const std::string& subject) {
    Warn(m_platform.Boxes, "The table has changed since it was read.  Nothing more was imported.",
         subject.empty() ? std::string() : "Subject '" + subject + "'");
    m_isStopped = true;
  }

  bool Take(const SubjectRows& rows) {
    const bool isPlanned = m_next < m_draft.Plan.Subjects.size() &&
                           m_draft.Plan.Subjects[m_next].Original == rows.Original &&
                           m_draft.Plan.Subjects[m_next].Digest == rows.Digest;
    if (!isPlanned) {
      ReportChange(rows.Original);
      return false;
    }
    const PlannedSubject& planned = m_draft.Plan.Subjects[m_next++];
    if (!Writes(planned.Action)) return true;
    if (!m_platform.Bar.ShowCopying(m_outcome.Written, m_total, true)) {
      m_isStopped = true;
      return false;
    }
    m_findings = {};
    m_builder.Build(rows, planned.SubjectId, m_subject);
    if (planned.Action == SubjectAction::Unfinished) m_subject.Record.UnfinishedNote = "imported";
    if (!m_store.Save(m_subject.Record, m_platform.Boxes)) {
      m_isStopped = true;
      return false;
    }
    m_done.insert(planned.SubjectId);
    ++m_outcome.Written;
    return true;
  }

  const ImportDraft& m_draft;
  const Platform& m_platform;
  SubjectStore m_store;
  ImportFindings m_findings;
  SubjectBuilder m_builder;
  BuiltSubject m_subject;
  std::size_t m_total;
  std::size_t m_next = 0;
  Ids m_done;
  bool m_isStopped = false;
  ImportOutcome m_outcome;
};

}  // namespace

ImportOutcome RunImport(const ImportDraft& draft, const Platform& platform) { return Import(draft, platform).Run(); }

}  // namespace zova
