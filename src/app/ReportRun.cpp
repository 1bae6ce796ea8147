// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/ReportRun.h"

#include <iostream>

#include "app/plots/PlotFile.h"
#include "means/ResultFiles.h"
#include "platform/desktop/NoDesktop.h"
#include "project/ProjectOpening.h"
#include "report/MakeReport.h"
#include "session/Version.h"
#include "text/Cells.h"

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

// What the options name; "" or why they do not name it.
std::string ReadChoice(const ReportOptions& options, const ProjectParameters& project, ReportChoice& choice) {
  std::string unknown;
  choice = {options.ReportFile, options.ProjectFile, {}, SplitNames(options.Measures), std::nullopt, {}};
  choice.Variables = FindVariables(project, SplitNames(options.Variables), unknown);
  if (!unknown.empty()) return NoVariableText(project, unknown);
  for (const PlotOption& option : options.Plots) {
    const std::string fault = SetPlotOption(option, project, choice.Plots);
    if (!fault.empty()) return "--" + option.first + ": " + fault;
  }
  if (!options.GroupSize) return "";
  const auto size = ParseGroupSize(*options.GroupSize);
  if (!size) return std::string("--group-size: ") + kGroupSizeFault;
  choice.Groups = GroupChoice{*size, std::nullopt, options.GroupOrderFile};
  if (!options.GroupBy) return "";
  choice.Groups->Separator = FindVariable(project, *options.GroupBy);
  return choice.Groups->Separator ? "" : NoVariableText(project, *options.GroupBy);
}

int Refuse(const std::string& fault) {
  std::cerr << "zova: " << fault << '\n';
  return kWrongUsage;
}

}  // namespace

int RunReport(const ReportOptions& options, Disk& disk) {
  ErrorLines lines;
  NoDesktop none;
  const Platform platform{disk, lines, none, none, none, none, lines};
  const auto project = OpenForCommand(options.ProjectFile, platform);
  if (!project) return kStopped;
  ReportChoice choice;
  if (const std::string fault = ReadChoice(options, *project, choice); !fault.empty()) return Refuse(fault);
  std::string unknown;
  const auto html = MakeReport(*project, choice, kVersion, DrawnFigure, platform, unknown);
  if (!unknown.empty()) return Refuse("unknown measure '" + unknown + "'");
  const bool isDone = html && WriteResultFile(
                                  options.ReportFile, [&] { return *html; }, *project, platform);
  return isDone ? kDone : kStopped;
}

}  // namespace zova
