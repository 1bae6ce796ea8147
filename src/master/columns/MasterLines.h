// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "master/columns/MasterColumns.h"

namespace zova {

/// A master's header line, without its line end, and its properties.
struct MasterHeaderLine {
  std::string MasterHeader;
  std::int16_t MasterColumnCount = 0;
  FamilySet Families;  ///< those with at least one column
};

/// Throws ScoringError (Overflow), naming the measures to uncheck, for more than 32,767 columns.
MasterHeaderLine BuildMasterHeader(const ProjectParameters& project, const MeasureSelection& selection,
                                   MasterKind kind);

/// How many columns the individual master will have, and how many it can have, for the measure screen.
std::string ColumnCountText(const ProjectParameters& project, const MeasureSelection& selection);

/// Replaces `row` by the value line of an individual master (without its line end).
void BuildMasterRow(std::string_view subjectId, const std::array<std::int16_t, kMaxVariables>& levels,
                    const ProjectParameters& project, const MeasureSelection& selection, const ScoringArrays& scores,
                    std::string& row);

/// Replaces `row` by a group's line of the combined master, without its line end. `separator` is the index of the
/// separating variable, which has `level`; the other variables have "XXXXXXX".
void BuildGroupRow(std::string_view label, std::optional<std::size_t> separator, std::int16_t level,
                   const ProjectParameters& project, const MeasureSelection& selection, const ScoringArrays& scores,
                   std::string& row);

/// Cuts a line of a master with `columnCount` columns at commas into pieces of 256 columns, then 255 each, the last
/// with the rest. Kept: the pieces are uneven. A line with fewer commas has empty pieces at its end. The views point
/// into `line`.
std::vector<std::string_view> SplitWideMaster(std::string_view line, int columnCount);

/// A master with more columns is also written in pieces.
inline constexpr int kMaxColumnsUnsplit = 256;

}  // namespace zova
