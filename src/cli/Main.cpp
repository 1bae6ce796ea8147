// SPDX-License-Identifier: GPL-3.0-or-later
//
// zova-master: writes a project's masters without a window, for scripts and servers.

#include <exception>
#include <iostream>
#include <numeric>

#include "cli/Arguments.h"
#include "cli/CommandLine.h"
#include "cli/Terminal.h"
#include "master/groups/GroupChoice.h"
#include "master/groups/SavedOrders.h"
#include "master/run/CombinedMaster.h"
#include "master/run/MasterRun.h"
#include "master/run/RunStart.h"
#include "means/EffectSizes.h"
#include "means/MeansTable.h"
#include "means/ResultFiles.h"
#include "means/UncomputedValues.h"
#include "platform/desktop/FileErrorBoxes.h"
#include "platform/desktop/NoDesktop.h"
#include "project/ProjectOpening.h"
#include "session/Version.h"
#include "subjects/SubjectFiles.h"
#include "text/Counted.h"

namespace zova {
namespace {

constexpr int kDone = 0;
constexpr int kStopped = 1;
constexpr int kWrongUsage = 2;

class MasterCommand {
 public:
  explicit MasterCommand(Arguments arguments)
      : m_arguments(std::move(arguments)), m_disk(m_layer, DriveMap::FromEnvironment()) {}

  int Run() {
    const std::string projectFile = FilePath(m_arguments.ProjectFile);
    auto project = OpenForCommand(projectFile, m_platform);
    if (!project) return kStopped;
    m_project = std::move(*project);
    CombinedRequest combined;
    if (m_arguments.GroupBy) combined.Separator = VariableByName(*m_arguments.GroupBy);
    MeansRequest means = FindMeansVariables();
    MasterRequest request;
    if (!ReportUnfinished() || !FillRequest(request)) return kStopped;
    if (m_arguments.GroupSize && !FillCombinedRequest(request, combined)) return kStopped;
    request.CombinedFollows = m_arguments.GroupSize.has_value();
    std::optional<ScoredTable> table;
    if (m_arguments.Means) request.Sink = &table.emplace(m_project, request.Selection, request.Further);
    MasterRunResult result = CreateMasters(m_project, request, m_platform);
    bool isDone = ReportWritten(result);
    if (isDone && table) isDone = PrintMeans(table->Table(), std::move(means));
    if (isDone && m_arguments.GroupSize) {
      const MasterRunResult groups = CreateCombinedMaster(m_project, combined, m_platform);
      isDone = ReportWritten(groups);
      AddOlderPieces(groups.Notices, result.Notices);
    }
    if (result.IsMasterWhole) ShowMasterWarnings(result.Notices, m_terminal);
    return isDone ? kDone : kStopped;
  }

 private:
  [[nodiscard]] bool ReportWritten(const MasterRunResult& result) const {
    std::ostream& out = m_arguments.Means ? std::cerr : std::cout;  // a table stands alone on standard output
    for (const ResolvedPath& path : result.Written)
      out << (IsStandardOutputTerminal() ? Printable(NativeText(path)) : NativeText(path)) << '\n';
    const std::string missing = MissingOrderText(result.Notices);
    if (!missing.empty()) std::cerr << missing << '\n';
    return result.Completed;
  }

  [[nodiscard]] MeansRequest FindMeansVariables() const {
    MeansRequest request{.Measures = {},
                         .Variables = {},
                         .LeavesOutUncomputed = m_arguments.ComputedOnly,
                         .More = m_arguments.Statistics};
    if (!m_arguments.Means) return request;
    std::string unknown;
    request.Variables = FindVariables(m_project, *m_arguments.Means, unknown);
    if (!unknown.empty()) throw UsageError(NoVariableText(m_project, unknown));
    return request;
  }

  bool PrintMeans(const MasterTable& table, MeansRequest request) {
    request.Measures.resize(table.MeasureCount());
    std::iota(request.Measures.begin(), request.Measures.end(), std::size_t{0});
    SetStandardOutputBinary();
    std::cout << CsvText(LinesOf(ComputeMeans(table, request, &m_project)));
    return !m_arguments.EffectsFile || WriteEffects(CsvText(LinesOf(ComputeEffects(table, request, &m_project))));
  }

  bool WriteEffects(const std::string& text) {
    return WriteResultFile(
        FilePath(*m_arguments.EffectsFile), [&] { return text; }, m_project, m_platform);
  }

  [[nodiscard]] std::string FilePath(const std::string& text) const {
    return m_disk.Drives().ToDrivePath(AbsolutePath(text));
  }

  // The destination box's text; a name alone is a file in the primary directory.
  [[nodiscard]] std::string DestinationText() const {
    const std::string& text = m_arguments.Destination;
    return IsTypedForPlatform(text) ? AbsolutePath(text) : text;
  }

  bool FillRequest(MasterRequest& request) {
    request.Selection.SetDefaultMeasures(m_project);
    if (m_arguments.Measures) {
      for (const MeasureBox& box : AllMeasureBoxes()) request.Selection.Check(box.Which, false);
      for (const Measure measure : *m_arguments.Measures) request.Selection.Check(measure, true);
    }
    for (const Measure measure : m_arguments.Without) request.Selection.Check(measure, false);
    request.Destination = DestinationText();
    if (m_arguments.CleanFile) request.CleanFile = AbsolutePath(*m_arguments.CleanFile);
    if (m_arguments.LongFile) request.LongFile = AbsolutePath(*m_arguments.LongFile);
    if (m_arguments.GroupsFile) request.GroupsFile = AbsolutePath(*m_arguments.GroupsFile);
    if (m_arguments.Further) {
      request.Further = m_arguments.Positions ? FurtherColumns::AllAndPositions : FurtherColumns::All;
    }
    const auto count = CountSubjectFiles(m_project, m_disk, m_terminal);
    if (count.value_or(0) == 0) return false;
    request.SubjectFileCount = *count;
    return !m_arguments.SerialOrderFile || ReadOrder(request);
  }

  bool ReadOrder(MasterRequest& request) {
    const std::string path = FilePath(*m_arguments.SerialOrderFile);
    if (!WithRetry(m_terminal, [&] { request.Order = ReadSerialOrder(m_disk, path, m_project.ItemCount); }))
      return false;
    return IsFaultless(SerialOrderFault(*request.Order), path);
  }

  bool IsFaultless(const std::optional<OrderFault>& fault, const std::string& path) {
    if (fault) Warn(m_terminal, fault->Text, "Reading '" + path + "'");
    return !fault;
  }

  [[nodiscard]] std::size_t VariableByName(const std::string& name) const {
    const auto variable = FindVariable(m_project, name);
    if (!variable) throw UsageError(NoVariableText(m_project, name));
    return *variable;
  }

  // Called before the first master is written: in the window, too, the groups are chosen first.
  bool FillCombinedRequest(const MasterRequest& request, CombinedRequest& combined) {
    combined.Selection = request.Selection;
    combined.Destination = request.Destination;
    combined.GroupsFile = request.GroupsFile;
    const std::string orderFile = m_arguments.GroupOrderFile ? FilePath(*m_arguments.GroupOrderFile) : std::string();
    const GroupChoice choice{*m_arguments.GroupSize, combined.Separator, orderFile};
    auto groups = ReadChosenGroups(m_project, request.SubjectFileCount, choice, m_platform);
    if (!groups) return false;
    combined.Subjects = std::move(groups->Subjects);
    combined.Plan = std::move(groups->Plan);
    for (const std::string& id : groups->NotInOrder) {
      std::cerr << "Subject " << Printable(id) << " is not in '" << Printable(orderFile) << "' and comes last.\n";
    }
    if (combined.Plan.HasLeftOver()) {
      const std::string text =
          GroupPlanText(combined.Plan, combined.Subjects.SubjectIds, m_project, combined.Separator);
      std::cerr << Printable(text, Lines::Several) << '\n';
    }
    return true;
  }

  bool ReportUnfinished() {
    return WithRetry(m_terminal, [&] {
      const auto names = ListSubjectFiles(m_disk, m_project, UnfinishedDirectory(m_project.PrimaryDir));
      if (names.empty()) return;
      std::cerr << Counted(names.size(), "unfinished subject is", "unfinished subjects are")
                << " not included in the master.\n";
    });
  }

  Arguments m_arguments;
  NativeFileLayer m_layer;
  Disk m_disk;
  Terminal m_terminal;
  NoDesktop m_desktop;
  Platform m_platform{m_disk, m_terminal, m_desktop, m_desktop, m_desktop, m_desktop, m_terminal};
  ProjectParameters m_project;
};

int RunCommand(const std::vector<std::string>& texts) {
  try {
    Arguments arguments = ParseArguments(texts);
    if (arguments.Help) {
      std::cout << UsageText();
      return kDone;
    }
    if (arguments.Version) {
      std::cout << "zova-master " << kVersion << '\n';
      return kDone;
    }
    return MasterCommand(std::move(arguments)).Run();
  } catch (const UsageError& error) {
    std::cerr << "zova-master: " << Printable(error.what()) << "\nTry 'zova-master --help'.\n";
    return kWrongUsage;
  }
}

}  // namespace
}  // namespace zova

int main(int argc, char** argv) { return zova::RunProgram("zova-master", argc, argv, zova::RunCommand); }
