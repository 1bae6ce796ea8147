// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "cli/OptionTable.h"
#include "master/columns/MeasureSelection.h"
#include "means/MeansTable.h"

namespace zova {

/// The command line of zova-master.
struct Arguments {
  bool Help = false;
  bool Version = false;
  std::optional<std::vector<Measure>> Measures;  ///< the boxes to leave checked
  std::vector<Measure> Without;                  ///< the boxes to uncheck of these
  std::optional<std::string> SerialOrderFile;
  std::string Destination;                        ///< "" for the default
  std::optional<std::string> CleanFile;           ///< path for the CSV of the measures
  std::optional<std::string> LongFile;            ///< path for the CSV of the recalls
  bool Further = false;                           ///< only with CleanFile or Means
  bool Positions = false;                         ///< only with Further
  std::optional<std::vector<std::string>> Means;  ///< variables of the table of means
  bool ComputedOnly = false;                      ///< only with Means
  MoreStatistics Statistics;                      ///< only with Means
  std::optional<std::string> EffectsFile;         ///< path for the CSV of effect sizes; only with Means
  std::optional<int> GroupSize;                   ///< requests the combined master; required by the next three
  std::optional<std::string> GroupBy;
  std::optional<std::string> GroupOrderFile;
  std::optional<std::string> GroupsFile;  ///< path for the CSV of the groups
  std::string ProjectFile;
};

/// Parses the arguments after the program's name. Throws UsageError.
Arguments ParseArguments(const std::vector<std::string>& arguments);

std::string UsageText();

}  // namespace zova
