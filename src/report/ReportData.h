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

/// What a report is about.
struct ReportChoice {
  std::vector<std::size_t> Measures;
  bool IsUsual = false;  ///< no measure was named
  std::string Unknown;   ///< a name that is no measure's; "" for none
  std::string Notice;    ///< of usual measures without a value for any subject, which are left out; or ""
};

/// The measures with these names, of a table with further measures. Without names the usual ones: recall, its change
/// and accumulation, repeats and intrusions, clustering, organization, serial position, average ratings, false recall.
ReportChoice ChooseMeasures(const MasterTable& table, const std::vector<std::string>& names);

/// The command that makes the report again.
std::string ReportCommand(const std::string& reportFile, const std::string& projectFile,
                          const std::vector<std::string>& variables, const std::vector<std::string>& measures,
                          const PlotOptions& plots);

}  // namespace zova
