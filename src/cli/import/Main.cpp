// SPDX-License-Identifier: GPL-3.0-or-later
//
// zova-import: imports recalls from a table into a project, for scripts and servers.

#include <algorithm>
#include <exception>
#include <iostream>
#include <utility>

#include "cli/CommandLine.h"
#include "cli/Terminal.h"
#include "cli/import/ImportArguments.h"
#include "master/groups/SavedOrders.h"
#include "means/ResultFiles.h"
#include "platform/desktop/FileErrorBoxes.h"
#include "platform/desktop/NoDesktop.h"
#include "project/FileChanges.h"
#include "project/ProjectFile.h"
#include "project/ProjectOpening.h"
#include "project/ProtectedFiles.h"
#include "session/Version.h"
#include "tables/import/ImportPlan.h"
#include "tables/import/ImportReport.h"
#include "tables/import/ImportRun.h"
#include "tables/import/ImportTotals.h"
#include "tables/proposal/NewProjectFromTable.h"
#include "text/Counted.h"

namespace zova {
namespace {

constexpr int kDone = 0;
constexpr int kStopped = 1;
constexpr int kWrongUsage = 2;
constexpr const char* kStoppedText = "Something is undecided or wrong: see the report.  Nothing was imported.\n";

class ImportCommand {
 public:
  explicit ImportCommand(ImportArguments arguments)
      : m_arguments(std::move(arguments)), m_disk(m_layer, DriveMap::FromEnvironment()) {}

  int Run() {
    m_table = FilePath(m_arguments.Table);
    try {
      if (!(m_arguments.NewProject ? ProposeNew() : OpenProject())) return kStopped;
      if (m_arguments.ResponsesFile)
        AddDecisions(m_disk, FilePath(*m_arguments.ResponsesFile), m_arguments.Options.Items, m_context);
      return Import();
    } catch (const FileError& error) {
      Print(FormatImportReport(error));
      Warn(m_terminal, FaultText(error));
      return kStopped;
    }
  }

 private:
  [[nodiscard]] std::string FilePath(const std::string& text) const {
    return m_disk.Drives().ToDrivePath(AbsolutePath(text));
  }

  static void Print(const std::string& report) {
    SetStandardOutputBinary();
    std::cout << report;
  }

  bool OpenProject() {
    const ProjectParameters project = ReadProjectFile(m_disk, FilePath(m_arguments.ProjectFile));
    if (!IsReadyForCommand(project, m_platform, !m_arguments.IsDryRun)) return false;
    if (m_arguments.IsDryRun && m_disk.FileExists(JournalPath(project))) {
      std::cerr << "zova-import: a change of subjects was interrupted; the import completes it first\n";
    }
    m_context = ReadImportContext(m_disk, project);
    m_context.SavedOrder = ReadSavedSerialOrder(m_disk, project);
    return true;
  }

  bool ProposeNew() {
    WordList words;
    if (m_arguments.WordsFile) words = ReadNewWords(m_disk, FilePath(*m_arguments.WordsFile));
    ImportDraft draft = DraftNewProject(m_disk, m_table, m_arguments.Options, std::move(words));
    ProjectProposal proposal = ProposeProject(m_disk, draft);
    for (const std::string& name : m_arguments.Variables) {
      if (!proposal.Fault.empty() || AddVariable(proposal, name)) continue;
      proposal.Fault = "'" + name + "' is no column with one value for each subject and 2 to 10 in all.";
    }
    if (proposal.Fault.empty()) {
      proposal.Fault = PlaceProject(m_disk, proposal.Project, *m_arguments.NewProject, FilePath(*m_arguments.Directory),
                                    ParamDirectory());
    }
    draft.Context = NewImportContext(proposal.Project, std::move(proposal.Words));
    draft.Context.Notes = std::move(proposal.Notes);
    if (!proposal.Fault.empty()) return Refuse(draft, proposal.Fault);
    draft.Context.Notes.insert(draft.Context.Notes.begin(), ProjectSummary(proposal.Project));
    const auto& names = proposal.Project.VariableNames;
    for (const VariableOffer& offer : proposal.Variables) {
      const auto isNamed = [&](const std::string& name) { return PlainName(name) == PlainName(offer.Name); };
      if (std::any_of(names.begin(), names.end(), isNamed)) continue;
      draft.Context.Notes.push_back("'" + offer.Name +
                                    "' could be a variable: " + Counted(offer.Levels.size(), "level", "levels"));
    }
    m_context = std::move(draft.Context);
    return true;
  }

  // There is no project into which the table could be planned.
  bool Refuse(ImportDraft& draft, const std::string& fault) {
    AddTotals(draft);
    const auto& columns = draft.Setup.Columns.Faults;
    for (const ColumnNote& note : columns) {
      draft.Plan.Findings.Add({.Kind = CaseKind::Error, .Column = note.Column, .Text = note.Text});
    }
    if (columns.empty()) draft.Plan.Findings.Add({.Kind = CaseKind::Error, .Text = fault});
    Print(FormatImportReport(draft.Plan));
    std::cerr << kStoppedText;
    return false;
  }

  [[nodiscard]] std::string ParamDirectory() const {
    return FilePath(m_arguments.ParamDirectory.value_or(*m_arguments.Directory));
  }

  // Files of the project stay, and what the import reads.
  bool WriteUnmatched(const ImportDraft& draft) {
    const auto isKept = [&](const std::string& path) {
      const std::string read[] = {m_table, FilePath(m_arguments.ResponsesFile.value_or(m_arguments.Table)),
                                  FilePath(m_arguments.WordsFile.value_or(m_arguments.Table))};
      return IsKeptFile(path, draft.Context.Project, m_disk) ||
             std::any_of(std::begin(read), std::end(read), [&](const auto& file) { return m_disk.IsSame(path, file); });
    };
    const std::string path = FilePath(*m_arguments.UnmatchedFile);
    return WriteNamedFile(
        path, [&] { return FormatUnmatched(draft.Plan); }, isKept, m_platform);
  }

  int Import() {
    ImportDraft draft = DraftImport(m_disk, m_table, m_arguments.Options, std::move(m_context));
    Print(FormatImportReport(draft.Plan));
    if (m_arguments.UnmatchedFile && !WriteUnmatched(draft)) return kStopped;
    if (!draft.Plan.MayBeWritten()) {
      std::cerr << kStoppedText;
      return kStopped;
    }
    if (m_arguments.IsDryRun) return kDone;
    if (m_arguments.NewProject &&
        !CreateProject(m_disk, m_terminal, draft.Context.Project, draft.Context.Words, ParamDirectory())) {
      return kStopped;
    }
    const ImportOutcome outcome = RunImport(draft, m_platform);
    std::cerr << Counted(outcome.Written, "subject was", "subjects were") << " imported.\n";
    if (const std::size_t refused = draft.Plan.CountOf(SubjectAction::Refuse); refused > 0) {
      std::cerr << Counted(refused, "subject was", "subjects were") << " refused by the checks: see the report.\n";
    }
    return outcome.Completed ? kDone : kStopped;
  }

  ImportArguments m_arguments;
  NativeFileLayer m_layer;
  Disk m_disk;
  Terminal m_terminal;
  NoDesktop m_desktop;
  Platform m_platform{m_disk, m_terminal, m_desktop, m_desktop, m_desktop, m_desktop, m_terminal};
  std::string m_table;
  ImportContext m_context;
};

int RunCommand(const std::vector<std::string>& texts) {
  try {
    ImportArguments arguments = ParseImportArguments(texts);
    if (arguments.Help) {
      std::cout << ImportUsageText();
      return kDone;
    }
    if (arguments.Version) {
      std::cout << "zova-import " << kVersion << '\n';
      return kDone;
    }
    return ImportCommand(std::move(arguments)).Run();
  } catch (const UsageError& error) {
    std::cerr << "zova-import: " << Printable(error.what()) << "\nTry 'zova-import --help'.\n";
    return kWrongUsage;
  }
}

}  // namespace
}  // namespace zova

int main(int argc, char** argv) { return zova::RunProgram("zova-import", argc, argv, zova::RunCommand); }
