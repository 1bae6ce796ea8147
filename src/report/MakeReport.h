// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "master/groups/GroupChoice.h"
#include "means/PlotOptions.h"
#include "platform/desktop/Platform.h"
#include "report/HtmlReport.h"

namespace zova {

/// What a report is made of, by the names that its command line has. Paths are drive-letter paths.
struct ReportChoice {
  std::string ReportFile;
  std::string ProjectFile;
  std::vector<std::size_t> Variables;  ///< of the project, from index 0; crossed
  std::vector<std::string> Measures;   ///< none: those that are usual
  std::optional<GroupChoice> Groups;
  PlotOptions Plots;
};

/// The command that makes the report again, for the system's shell.
std::string ReportCommand(const ProjectParameters& project, const ReportChoice& choice);

/// The page, made of the subjects as they are now, whoever asks for it. nullopt after a message, or for a measure that
/// the project has not, which goes to `unknown`.
std::optional<std::string> MakeReport(const ProjectParameters& project, const ReportChoice& choice,
                                      const std::string& version, const DrawFigure& draw, const Platform& platform,
                                      std::string& unknown);

}  // namespace zova
