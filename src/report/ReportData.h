// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "master/columns/FurtherFamilies.h"
#include "means/MasterTable.h"
#include "means/PlotOptions.h"
#include "platform/desktop/Platform.h"

namespace zova {

/// A project's subjects as a table, read and scored without writing a master.
struct ReportData {
  MasterTable Table;
  std::vector<std::string> Notices;  ///< as at the end of a master's run, and the unfinished subjects
};

/// Faults show the boxes of a run; nullopt when the user cancels, or when there is no subject.
std::optional<ReportData> ReadReportData(const ProjectParameters& project, const Platform& platform);

/// The subjects that are put aside unfinished, as a sentence; nothing when there is none. Throws FileError.
void AddUnfinishedNotice(const ProjectParameters& project, Disk& disk, std::vector<std::string>& notices);

/// The measures with these names, of a table with further measures; those of each test, pair of tests, lag and position
/// if there are none. An unknown name goes to `unknown`.
std::vector<std::size_t> MeasuresOfReport(const MasterTable& table, const std::vector<std::string>& names,
                                          std::string& unknown);

/// The command that makes the report again.
std::string ReportCommand(const std::string& reportFile, const std::string& projectFile,
                          const std::vector<std::string>& variables, const std::vector<std::string>& measures,
                          const PlotOptions& plots);

}  // namespace zova
