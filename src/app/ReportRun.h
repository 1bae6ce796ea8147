// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "means/PlotOptions.h"
#include "platform/files/Disk.h"

namespace zova {

/// The options of `zova --report`; paths are drive-letter paths, lists are as typed.
struct ReportOptions {
  std::string ReportFile;
  std::string ProjectFile;
  std::string Variables;
  std::string Measures;  ///< "": those that a report has by default
  std::optional<std::string> GroupSize;
  std::optional<std::string> GroupBy;
  std::string GroupOrderFile;
  std::vector<PlotOption> Plots;
};

/// Writes the report without a window; messages go to standard error. The exit code: 0, 1 if it is not written, 2 for
/// an unknown variable or measure, or an option without meaning.
int RunReport(const ReportOptions& options, Disk& disk);

}  // namespace zova
