// SPDX-License-Identifier: GPL-3.0-or-later

#include "session/ImportFlow.h"

#include <algorithm>
#include <utility>

#include "master/groups/SavedOrders.h"
#include "means/ResultFiles.h"
#include "platform/desktop/FileErrorBoxes.h"
#include "project/FileChanges.h"
#include "tables/import/ImportReport.h"
#include "tables/import/ImportRun.h"
#include "text/Counted.h"
#include "words/CompanionCsv.h"

namespace zova {

namespace {

std::string NameOfQuestion(const ImportQuestion& question) {
  return question.Variable.empty() ? question.Option : question.Option + " " + question.Variable;
}

}  // namespace

void ImportFlow::Show(Stage stage) {
  m_stage = stage;
  ++m_revision;
  if (m_observer) m_observer();
}

void ImportFlow::ForgetAnswers() {
  m_hasDecisions = false;
  m_choices.clear();
  m_wordsFile.clear();
  m_offers.clear();
  m_review.Clear();
  m_isNew = false;
}

void ImportFlow::Close() {
  m_draft.reset();
  ForgetAnswers();
  Show(Stage::Closed);
}

std::optional<std::string> ImportFlow::AskTable() {
  return m_platform.Dialogs.ChooseFile(
      {.Title = "Import Recalls",
       .Directory = m_project != nullptr ? m_project->PrimaryDir : std::string(),
       .Filters = {{"Tables (*.csv)", "*.csv"}, {"Tables (*.tsv)", "*.tsv"}, {"All files (*.*)", "*.*"}}});
}

bool ImportFlow::Draw(const std::string& table, const ImportOptions& options) {
  const BusyPointer busy(m_platform.Pointer);
  return WithRetry(m_platform.Boxes, [&] {
    ImportContext context = ReadImportContext(m_platform.Files, *m_project);
    context.SavedOrder = ReadSavedSerialOrder(m_platform.Files, *m_project);
    m_draft = DraftImport(m_platform.Files, table, options, std::move(context));
  });
}

void ImportFlow::Open(const ProjectParameters& project) {
  m_project = &project;
  ForgetAnswers();
  const auto table = AskTable();
  if (table && FinishInterruptedChanges(project, m_platform) && Draw(*table, {})) {
    Show(Stage::Table);
  } else if (m_stage != Stage::Closed) {
    Close();
  }
}

bool ImportFlow::Refresh() {
  const BusyPointer busy(m_platform.Pointer);
  ++m_revision;
  const auto refresh = m_isNew ? RefreshNewProject : RefreshImport;
  return WithRetry(m_platform.Boxes, [&] {
    refresh(m_platform.Files, *m_draft);
    if (!m_draft->Options.FirstItem || FindRaised("--first-item") != nullptr) return;
    m_draft->Options.FirstItem.reset();  // of the table as it was read before: it would shift all items unseen
    refresh(m_platform.Files, *m_draft);
  });
}

// A change that makes the table unreadable is reported and taken back.
bool ImportFlow::Change(const std::function<void(ImportOptions&)>& change) {
  const ImportOptions before = m_draft->Options;
  change(m_draft->Options);
  const bool isRead = m_draft->Options == before || Refresh();
  if (!isRead) {
    m_draft->Options = before;
    Refresh();
  }
  if (m_isNew) ListChoices();
  return isRead;
}

void ImportFlow::ChooseHowRead(const std::string& name, int answer) {
  Change([&](ImportOptions& options) { ChooseForTable(options.Table, name, answer); });
  if (m_isNew) Choose(name, answer);
}

void ImportFlow::ChooseUse(int column, int use) {
  Change([&](ImportOptions& options) { UseColumn(options.Table, m_draft->Setup.Columns, column, use, *m_project); });
}

void ImportFlow::SetFilter(const std::string& column, const std::string& value) {
  Change([&](ImportOptions& options) {
    options.Table.Where.clear();
    if (!column.empty()) options.Table.Where.push_back({column, value});
  });
}

void ImportFlow::ListChoices() {
  const std::vector<ImportQuestion>& raised = m_draft->Plan.Raised;
  m_totals = m_draft->Plan.Totals;
  std::erase_if(m_totals, [](const ImportTotal& total) { return total.Count == 0; });
  m_rest = m_draft->Plan.Findings.Uncounted();
  m_choices.clear();
  for (const ImportQuestion& question : raised) {
    ImportChoice choice{NameOfQuestion(question), question.Text, {}, -1};
    const std::string answer = AnswerTo(question, m_draft->Options);
    for (std::size_t i = 0; i < question.Answers.size(); ++i) {
      choice.Answers.push_back(AnswerText(question, question.Answers[i]));
      if (answer == question.Answers[i]) choice.Chosen = static_cast<int>(i);
    }
    m_choices.push_back(std::move(choice));
  }
  for (ImportChoice& choice : PlanChoices(*m_draft, m_isNew)) {
    if (FindRaised(choice.Name) == nullptr) m_choices.push_back(std::move(choice));
  }
}

const ImportQuestion* ImportFlow::FindRaised(const std::string& name) const {
  const std::vector<ImportQuestion>& raised = m_draft->Plan.Raised;
  const auto found = std::find_if(raised.begin(), raised.end(),
                                  [&](const ImportQuestion& question) { return NameOfQuestion(question) == name; });
  return found == raised.end() ? nullptr : &*found;
}

void ImportFlow::Choose(const std::string& name, int answer) {
  const ImportQuestion* const asked = FindRaised(name);
  if (asked == nullptr) {
    Change([&](ImportOptions& options) { ChooseForPlan(options, name, answer); });
  } else if (answer >= 0 && static_cast<std::size_t>(answer) < asked->Answers.size()) {
    const ImportQuestion question = *asked;
    Change([&](ImportOptions& options) {
      AnswerQuestion(options, question, question.Answers[static_cast<std::size_t>(answer)]);
    });
  }
  ListChoices();
}

bool ImportFlow::MayImport() const { return m_stage == Stage::DryRun && m_draft->Plan.MayBeWritten(); }

void ImportFlow::SaveReport() {
  const auto path = m_platform.Dialogs.ChooseNewFile({.Title = "Save Report",
                                                      .Directory = m_project->PrimaryDir,
                                                      .Filters = {{"CSV files (*.csv)", "*.csv"}},
                                                      .Name = m_project->Abbreviation + " Import Report.csv"});
  if (!path) return;
  WriteResultFile(
      *path, [this] { return FormatImportReport(m_draft->Plan); }, *m_project, m_platform);
}

void ImportFlow::Import() {
  if (!MayImport()) return;
  Show(Stage::Writing);
  ImportOutcome outcome;
  try {
    outcome = RunImport(*m_draft, m_platform);
  } catch (...) {
    Show(Stage::DryRun);
    throw;
  }
  const std::string written = Counted(outcome.Written, "subject was", "subjects were");
  Close();
  Inform(m_platform.Boxes, outcome.Completed ? "The recalls were imported: " + written + " written."
                                             : "The import was given up: " + written + " written.");
}

bool ImportFlow::CanGoBack() const {
  return m_stage == Stage::Review || m_stage == Stage::DryRun || m_stage == Stage::Proposal ||
         (m_stage == Stage::Table && m_isNew);
}

bool ImportFlow::CanGoNext() const {
  if (m_stage != Stage::Table) return m_stage == Stage::Review;
  return m_draft->Setup.Columns.Faults.empty() && (!m_isNew || m_draft->Plan.Questions.empty());
}

void ImportFlow::Next() {
  if (!CanGoNext()) return;
  if (m_isNew) {
    if (Propose()) Show(Stage::Proposal);
    return;
  }
  if (m_stage == Stage::Table) {
    if (OpenReview()) return Show(Stage::Review);
  } else if (!TakeDecisions()) {
    return;
  }
  ListChoices();
  Show(Stage::DryRun);
}

void ImportFlow::Back() {
  if (!CanGoBack()) return;
  if (m_stage == Stage::Proposal) return Show(Stage::Table);
  if (m_stage == Stage::Table) {
    ForgetAnswers();
    return OpenWithoutProject();
  }
  if (m_stage == Stage::Review) {
    if (TakeDecisions()) Show(Stage::Table);
  } else {
    Show(OpenReview() ? Stage::Review : Stage::Table);
  }
}

bool ImportFlow::OpenReview() {
  m_review.Open(m_draft->Plan, m_draft->Context);
  return m_review.RowCount() > 0;
}

bool ImportFlow::TakeDecisions() {
  if (!m_review.HasChanges()) return true;
  m_hasDecisions = true;
  m_draft->Context.Decided = m_review.Decisions();
  return Refresh();
}

bool ImportFlow::KeepDecisions() {
  const bool inReview = m_stage == Stage::Review && m_review.HasChanges();
  if (!m_draft || (!m_hasDecisions && !inReview)) return true;
  const BoxAnswer answer = m_platform.Boxes.Show({.Text = "Do you wish to keep the decisions about the responses?",
                                                  .Icon = BoxIcon::Question,
                                                  .Buttons = BoxButtons::YesNoCancel,
                                                  .Default = BoxAnswer::Yes,
                                                  .Title = "Import Recalls"});
  if (answer == BoxAnswer::No) return true;
  return answer == BoxAnswer::Yes && WithRetry(m_platform.Boxes, [&] {
           WriteCompanion(
               m_platform.Files, *m_project, CompanionFile::Responses,
               FormatResponses(DecisionsToKeep(inReview ? m_review.Decisions() : m_draft->Context.Decided, *m_draft)));
         });
}

void ImportFlow::Cancel() {
  if (m_stage == Stage::Writing) return;
  if (KeepDecisions()) Close();
}

}  // namespace zova
