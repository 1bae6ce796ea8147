// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "master/columns/FurtherFamilies.h"
#include "master/exports/FurtherData.h"
#include "master/groups/GroupChoice.h"
#include "means/MasterTable.h"
#include "platform/desktop/Platform.h"

namespace zova {

/// The measures of nominal groups.
struct GroupTable {
  struct Line {
    std::string Label;  ///< "Group 1 (4+17+9)"
    std::string Level;  ///< of the separating variable; "" without one
    std::vector<Measured> Values;
  };

  std::vector<std::string> Names;  ///< "SharedOrganization(Test 1)"
  std::string Separator;           ///< the variable's name, or ""
  std::vector<Line> Lines;
};

/// A project's subjects as a table, read and scored without writing a master.
struct ReportData {
  MasterTable Table;
  std::vector<std::string> Notices;  ///< as at the end of a master's run, and what is left out
  OrderCounts Orders{};              ///< whose order of study the lists have
  std::optional<GroupTable> Groups;
};

/// Faults show the boxes of a run; nullopt when the user cancels, when there is no subject, or not enough for a group.
std::optional<ReportData> ReadReportData(const ProjectParameters& project, const std::optional<GroupChoice>& groups,
                                         const Platform& platform);

/// The measures of a report.
struct MeasureChoice {
  std::vector<std::size_t> Measures;
  bool IsUsual = false;  ///< no measure was named
  std::string Unknown;   ///< a name that is no measure's; "" for none
  std::string LeftOut;   ///< usual families without a value for any subject, and why; or ""
};

/// The measures with these names, of a table with further measures; blanks around a name do not count, nor does a name
/// that comes again. Without names the usual ones: recall, its change and accumulation, repeats and intrusions,
/// clustering, organization, serial position, average ratings, false recall.
MeasureChoice ChooseMeasures(const MasterTable& table, const std::vector<std::string>& names);

}  // namespace zova
