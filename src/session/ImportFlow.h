// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "platform/desktop/Platform.h"
#include "session/ImportChoices.h"
#include "tables/import/ImportPlan.h"
#include "tables/import/ImportReview.h"
#include "tables/proposal/NewProjectFromTable.h"

namespace zova {

/// The screens of an import: which table and how it is read, the review of responses that are no words, the dry run,
/// the writing; without an open project first which project. A new one is proposed from the table's page, and defined
/// in the wizard. The session shows the screen; the observer notifies it of changes.
class ImportFlow {
 public:
  /// Project: an existing or a new one? Proposal: what a new one would be; the session then defines it in the wizard.
  enum class Stage { Closed, Project, Proposal, Table, Review, DryRun, Writing };

  explicit ImportFlow(const Platform& platform) : m_platform(platform) {}
  /// Called when the stage changes during a command.
  void SetObserver(std::function<void()> observer) { m_observer = std::move(observer); }
  [[nodiscard]] Stage CurrentStage() const noexcept { return m_stage; }

  /// Asks for the table. `project` must outlive the screens.
  void Open(const ProjectParameters& project);
  void OpenWithoutProject();

  // Project and Proposal
  /// Asks for the table of a new project, and shows its page.
  void ChooseNew();
  /// The table is that of a project that is not there yet.
  [[nodiscard]] bool IsNew() const noexcept { return m_isNew; }
  [[nodiscard]] const ProjectProposal& Proposal() const noexcept { return m_proposal; }
  /// "6 tests, 24 items in 4 categories", and the notes.
  [[nodiscard]] std::string ProposalText() const;
  [[nodiscard]] bool IsVariable(std::size_t offer) const { return m_offers[offer]; }
  void SetVariable(std::size_t offer, bool isVariable) { m_offers[offer] = isVariable; }
  /// The project for the wizard with the chosen variables. The flow closes and keeps the table for Resume.
  ProjectParameters TakeProposal();
  [[nodiscard]] bool IsWaiting() const noexcept { return m_isWaiting; }
  /// The wizard was cancelled.
  void Forget();
  /// Goes on with the table in the project that was defined: saves its word list first.
  void Resume(const ProjectParameters& project);

  // Table
  [[nodiscard]] const ImportDraft& Draft() const noexcept { return *m_draft; }
  /// The table's file, and what it holds.
  [[nodiscard]] std::string TableLine() const;
  /// Remarks on its columns, a line each.
  [[nodiscard]] std::string ColumnNotes() const;
  /// How it is read; for a new project also what that depends on.
  [[nodiscard]] std::vector<ImportChoice> HowRead() const;
  void ChooseHowRead(const std::string& name, int answer);
  [[nodiscard]] int ColumnCount() const { return static_cast<int>(m_draft->Setup.Format.Names.size()); }
  [[nodiscard]] std::string ColumnName(int column) const;
  /// Its first values.
  [[nodiscard]] std::string ColumnSample(int column) const;
  [[nodiscard]] std::vector<std::string> Uses() const;
  [[nodiscard]] int ColumnUse(int column) const;
  void ChooseUse(int column, int use);
  /// Only rows with this value in this column; an empty name takes all rows.
  void SetFilter(const std::string& column, const std::string& value);
  /// Asks for the file with the words of a new project.
  void ChooseWords();
  [[nodiscard]] std::string WordsLine() const;
  /// Why Next is off, or "".
  [[nodiscard]] std::string TableTold() const;

  // Review
  ImportReview& Review() noexcept { return m_review; }
  [[nodiscard]] std::string ReviewLine() const;

  // DryRun
  /// Questions of the table as it is read now, answered or not, then the choices that have a default.
  [[nodiscard]] const std::vector<ImportChoice>& Choices() const noexcept { return m_choices; }
  void Choose(const std::string& name, int answer);
  [[nodiscard]] std::string DryRunLine() const;
  /// Totals other than 0, then cases, as in the report; columns from 0.
  [[nodiscard]] int DryRunRows() const noexcept;
  [[nodiscard]] std::string DryRunText(int row, int column) const;
  [[nodiscard]] bool MayImport() const;
  void SaveReport();
  void Import();

  [[nodiscard]] bool CanGoBack() const;
  [[nodiscard]] bool CanGoNext() const;
  void Back();
  void Next();
  /// After a question when decisions of the review would be lost.
  void Cancel();
  /// Increases when tables and lists of the screen have changed.
  [[nodiscard]] int Revision() const noexcept { return m_revision; }

 private:
  void Show(Stage stage);
  std::optional<std::string> AskTable();
  bool Draw(const std::string& table, const ImportOptions& options);
  bool Change(const std::function<void(ImportOptions&)>& change);
  bool Refresh();
  void ListChoices();
  [[nodiscard]] const ImportQuestion* FindRaised(const std::string& name) const;
  bool OpenReview();
  bool TakeDecisions();
  bool KeepDecisions();
  void Close();
  void ForgetAnswers();
  bool Propose();

  Platform m_platform;
  std::function<void()> m_observer;
  Stage m_stage = Stage::Closed;
  const ProjectParameters* m_project = nullptr;
  std::optional<ImportDraft> m_draft;
  ImportReview m_review;
  bool m_hasDecisions = false;  // that are not saved
  std::vector<ImportChoice> m_choices;
  std::vector<ImportTotal> m_totals;  // other than 0
  std::optional<ImportCase> m_rest;   // of more cases than are listed
  ProjectProposal m_proposal;
  std::vector<bool> m_offers;
  ProjectParameters m_unmade;  // stands for a new project on the table's page
  std::string m_wordsFile;     // of a new project
  bool m_isNew = false;
  bool m_isWaiting = false;
  int m_revision = 0;
};

}  // namespace zova
