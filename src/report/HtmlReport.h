// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "means/MeansPlot.h"
#include "report/ReportData.h"

namespace zova {

/// What a report is made of.
struct ReportRequest {
  const ProjectParameters& Project;
  const ReportData& Data;
  MeansRequest Means;  ///< measures and variables of the tables and plots
  PlotOptions Plots;
  bool IsUsual = false;     ///< no measure was named: long tables are left to other programs
  std::string CommandLine;  ///< that makes the same page again
  std::string Version;
  std::string LeftOut;  ///< a sentence on measures that are left out as a whole; or ""
};

/// Draws a picture as an element of the page.
using DrawFigure = std::function<std::string(const PlotPicture& picture)>;

/// One HTML page without scripts or anything that is loaded: design, subjects by level, what was left out and why, the
/// meaning of symbols, and for each family of measures its definition and source, means with intervals, effect sizes, a
/// plot, and why values are missing; the measures of groups; version and command line. All names are escaped.
std::string ReportHtml(const ReportRequest& request, const DrawFigure& draw);

/// `text` between tags, or in quotes within one.
std::string EscapedHtml(std::string_view text);

}  // namespace zova
