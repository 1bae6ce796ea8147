// SPDX-License-Identifier: GPL-3.0-or-later
//
// zova-master: writes a project's masters without a window, for scripts and servers.

#include <exception>
#include <iostream>
#include <numeric>
#include <set>

#include "cli/Arguments.h"
#include "cli/CommandLine.h"
#include "cli/Terminal.h"
#include "master/groups/SavedOrders.h"
#include "master/run/CombinedMaster.h"
#include "master/run/MasterRun.h"
#include "master/run/RunStart.h"
#include "means/EffectSizes.h"
#include "means/MeansTable.h"
#include "means/UncomputedValues.h"
#include "platform/desktop/FileErrorBoxes.h"
#include "platform/desktop/NoDesktop.h"
#include "project/FileChanges.h"
#include "project/ProjectFile.h"
#include "project/ProjectOpening.h"
#include "project/ProtectedFiles.h"
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
    if (!WithRetry(m_terminal, [&] { m_project = ReadProjectFile(m_disk, projectFile); })) return kStopped;
    if (!MayOpenProject(m_project, m_terminal)) return kStopped;
    if (const std::string reason = ViewOnlyReason(m_project); !reason.empty()) {
      Warn(m_terminal, reason);
      return kStopped;
    }
    if (!FinishInterruptedChanges(m_project, m_platform)) return kStopped;
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
    const std::vector<std::string>& names = *m_arguments.Means;
    for (std::size_t first = 0; first < names.size(); ++first) {
      // In an older file the name of a variable may contain commas.
      std::string name = names[first];
      std::size_t last = first;
      while (!FindVariable(m_project, name) && last + 1 < names.size()) name += "," + names[++last];
      const bool isKnown = FindVariable(m_project, name).has_value();
      request.Variables.push_back(VariableByName(isKnown ? name : names[first]));
      first = last;
    }
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
    const std::string path = FilePath(*m_arguments.EffectsFile);
    bool isKept = false;
    const bool isDone = WithRetry(m_terminal, [&] {
      isKept = IsProtectedFile(path, m_project, m_disk);
      if (!isKept) m_disk.Write(path, text);
    });
    if (isKept) Warn(m_terminal, "A master or a data file of a project is never replaced.", path);
    return isDone && !isKept;
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
    if (!variable) throw UsageError("the project has no variable '" + name + "'");
    return *variable;
  }

  // Called before the first master is written: in the window, too, the groups are chosen first.
  bool FillCombinedRequest(const MasterRequest& request, CombinedRequest& combined) {
    combined.Selection = request.Selection;
    combined.Destination = request.Destination;
    combined.GroupsFile = request.GroupsFile;
    auto subjects = ReadGroupSubjects(m_project, request.SubjectFileCount, combined.Separator.has_value(), m_platform);
    if (!subjects) return false;
    combined.Subjects = std::move(*subjects);
    const std::vector<std::string>& ids = combined.Subjects.SubjectIds;
    GroupOrder order = FirstGroupOrder(ids.size());
    if (m_arguments.GroupOrderFile && !ReadGroupOrderFor(ids, order)) return false;
    combined.Plan = FormGroups(combined.Subjects.LevelsOf(combined.Separator), order, *m_arguments.GroupSize);
    const std::string text = GroupPlanText(combined.Plan, ids, m_project, combined.Separator);
    if (combined.Plan.Groups.empty()) {
      Warn(m_terminal, kTooFewSubjects, text);
      return false;
    }
    if (combined.Plan.HasLeftOver()) std::cerr << Printable(text, Lines::Several) << '\n';
    return true;
  }

  bool ReadGroupOrderFor(const std::vector<std::string>& subjectIds, GroupOrder& order) {
    const std::string path = FilePath(*m_arguments.GroupOrderFile);
    GroupOrderLines lines;
    if (!WithRetry(m_terminal, [&] { lines = ReadGroupOrder(m_disk, path); })) return false;
    if (!IsFaultless(GroupFileFault(lines, subjectIds), path)) return false;
    order = FitGroupOrder(lines, subjectIds);
    // No one reviews the order before it is used, so a misspelt identifier must be reported.
    const std::set<std::string_view> known(lines.SubjectIds.begin(), lines.SubjectIds.end());
    for (const std::string& id : subjectIds) {
      if (!known.contains(id))
        std::cerr << "Subject " << Printable(id) << " is not in '" << Printable(path) << "' and comes last.\n";
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
