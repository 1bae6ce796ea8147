// SPDX-License-Identifier: GPL-3.0-or-later

#include "report/MakeReport.h"

#include "report/ReportData.h"

namespace zova {

namespace {

// One argument, whatever the text holds.
std::string Quoted(const std::string& text) {
#ifdef _WIN32
  // A backslash is one of its own but before a quote, where it is doubled: so programs read their command line.
  std::string quoted = "\"";
  std::size_t backslashes = 0;
  for (const char c : text) {
    if (c == '"') quoted.append(backslashes + 1, '\\');
    backslashes = c == '\\' ? backslashes + 1 : 0;
    quoted += c;
  }
  return quoted.append(backslashes, '\\') + "\"";
#else
  std::string quoted = "'";
  for (const char c : text) {
    if (c == '\'') {
      quoted += "'\\''";
    } else {
      quoted += c;
    }
  }
  return quoted + "'";
#endif
}

void AppendNames(std::string& command, const char* option, const std::vector<std::string>& names) {
  if (names.empty()) return;
  std::string list;
  for (const std::string& name : names) list += (list.empty() ? "" : ",") + name;
  command += option + Quoted(list);
}

}  // namespace

std::string ReportCommand(const ProjectParameters& project, const ReportChoice& choice) {
  std::string command = "zova --report " + Quoted(choice.ReportFile);
  std::vector<std::string> variables;
  variables.reserve(choice.Variables.size());
  for (const std::size_t variable : choice.Variables) variables.push_back(project.VariableNames[variable]);
  AppendNames(command, " --means ", variables);
  AppendNames(command, " --measures ", choice.Measures);
  if (choice.Groups) {
    command += " --group-size " + std::to_string(choice.Groups->Size);
    if (choice.Groups->Separator) command += " --group-by " + Quoted(project.VariableNames[*choice.Groups->Separator]);
    if (!choice.Groups->OrderFile.empty()) command += " --group-order " + Quoted(choice.Groups->OrderFile);
  }
  for (const auto& [option, value] : CommandOptions(choice.Plots, project))
    command += " --" + option + " " + Quoted(value);
  return command + " " + Quoted(choice.ProjectFile);
}

std::optional<std::string> MakeReport(const ProjectParameters& project, const ReportChoice& choice,
                                      const std::string& version, const DrawFigure& draw, const Platform& platform,
                                      std::string& unknown) {
  const auto data = ReadReportData(project, choice.Groups, platform);
  if (!data) return std::nullopt;
  const MeasureChoice measures = ChooseMeasures(data->Table, choice.Measures);
  unknown = measures.Unknown;
  if (!unknown.empty()) return std::nullopt;
  const MeansRequest means{.Measures = measures.Measures, .Variables = choice.Variables, .LeavesOutUncomputed = true};
  return ReportHtml({project, *data, means, choice.Plots, measures.IsUsual, ReportCommand(project, choice), version,
                     measures.LeftOut},
                    draw);
}

}  // namespace zova
