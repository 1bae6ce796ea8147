// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "master/columns/FurtherFamilies.h"
#include "means/MeansTable.h"

namespace zova {

/// The measures of one family among those of a report.
struct ReportFamily {
  std::string_view Stem;
  std::string_view Label;
  std::string_view Definition;
  std::string_view Source;
  const FurtherFamily* Further = nullptr;  ///< null for one of the master
  std::vector<std::size_t> Measures;
};

/// In the order of their first measures; behind them, with `withGroups`, the families of groups, without measures.
std::vector<ReportFamily> FamiliesOf(const MasterTable& table, const std::vector<std::size_t>& measures,
                                     bool withGroups);

/// The symbols in the definitions of these families, and what holds for all of them, as sentences.
std::vector<std::string> ConventionsOf(const std::vector<ReportFamily>& families);

/// Why values of the measures are missing, as sentences: "RR(Test 1), RR(Test 2): 2 not computed (fewer than 2
/// recalls)". Measures with the same reasons share one.
std::vector<std::string> GapTexts(const MasterTable& table, const std::vector<std::size_t>& measures);

}  // namespace zova
