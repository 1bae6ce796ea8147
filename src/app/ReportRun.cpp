// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/ReportRun.h"

#include <iostream>

#include "app/plots/PlotFile.h"
#include "master/groups/NominalGroups.h"
#include "means/MeansExaminer.h"
#include "platform/desktop/FileErrorBoxes.h"
#include "platform/desktop/NoDesktop.h"
#include "project/ProjectFile.h"
#include "project/ProjectOpening.h"
#include "project/ProtectedFiles.h"
#include "report/HtmlReport.h"
#include "report/ReportData.h"
#include "session/Version.h"

namespace zova {

namespace {

constexpr int kDone = 0;
constexpr int kStopped = 1;
constexpr int kWrongUsage = 2;

// Tells on standard error, and never tries again.
class ErrorLines final : public MessageBoxes, public Progress {
 public:
  BoxAnswer Show(const MessageBox& box) override {
    std::cerr << box.Text << '\n';
    if (!box.Details.empty()) std::cerr << box.Details << '\n';
    switch (box.Buttons) {
      case BoxButtons::Ok: return BoxAnswer::Ok;
      case BoxButtons::YesNo: return BoxAnswer::No;
      default: return BoxAnswer::Cancel;
    }
  }
  void Show(int /*percent*/, const std::string& /*text*/) override {}
  void ProcessEvents() override {}
};

int Refuse(const std::string& fault) {
  std::cerr << "zova: " << fault << '\n';
  return kWrongUsage;
}

}  // namespace

int RunReport(const ReportOptions& options, Disk& disk) {
  ErrorLines lines;
  NoDesktop none;
  const Platform platform{disk, lines, none, none, none, none, lines};
  ProjectParameters project;
  if (!WithRetry(lines, [&] { project = ReadProjectFile(disk, options.ProjectFile); })) return kStopped;
  if (!MayOpenProject(project, lines)) return kStopped;
  if (const std::string reason = ViewOnlyReason(project); !reason.empty()) {
    Warn(lines, reason);
    return kStopped;
  }
  MeansRequest means{.Measures = {}, .Variables = {}, .LeavesOutUncomputed = true};
  for (const std::string& name : options.Variables) {
    const auto variable = FindVariable(project, name);
    if (!variable) return Refuse("the project has no variable '" + name + "'");
    means.Variables.push_back(*variable);
  }
  PlotOptions plots;
  for (const auto& option : options.Plots) {
    if (!SetPlotOption(option, plots)) return Refuse("--" + option.first + " does not take '" + option.second + "'");
  }
  for (const LevelOrder& order : plots.Orders) {
    if (!FindVariable(project, order.Variable)) return Refuse("the project has no variable '" + order.Variable + "'");
  }
  auto data = ReadReportData(project, platform);
  if (!data) return kStopped;
  const ReportChoice choice = ChooseMeasures(data->Table, options.Measures);
  if (!choice.Unknown.empty()) return Refuse("unknown measure '" + choice.Unknown + "'");
  means.Measures = choice.Measures;
  if (!choice.Notice.empty()) data->Notices.push_back(choice.Notice);
  const ReportRequest request{
      project,
      data->Table,
      means,
      plots,
      choice.IsUsual,
      std::move(data->Notices),
      ReportCommand(options.ReportFile, options.ProjectFile, options.Variables, options.Measures, plots),
      kVersion};
  const std::string html = ReportHtml(request, DrawnSvg);
  bool isKept = false;
  const bool isDone = WithRetry(lines, [&] {
    isKept = IsProtectedFile(options.ReportFile, project, disk);
    if (!isKept) disk.Write(options.ReportFile, html);
  });
  if (isKept) Warn(lines, "A master or a data file of a project is never replaced.", options.ReportFile);
  return isDone && !isKept ? kDone : kStopped;
}

}  // namespace zova
