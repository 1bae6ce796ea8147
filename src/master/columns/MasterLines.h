// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "master/columns/MasterColumns.h"

namespace zova {

/// A master's header line (without its line end) and what can be read off it.
struct MasterHeaderLine {
  std::string MasterHeader;
  std::int16_t MasterColumnCount = 0;
  FamilySet Families;  ///< families with at least one column
};

/// Throws ScoringError (Overflow) for more than 32,767 columns; its text names the measures to uncheck.
MasterHeaderLine BuildMasterHeader(const ProjectParameters& project, const MeasureSelection& selection,
                                   MasterKind kind);

/// Replaces `row` by the value line of an individual master (without its line end).
void BuildMasterRow(std::string_view subjectId, const std::array<std::int16_t, kMaxVariables>& levels,
                    const ProjectParameters& project, const MeasureSelection& selection, const ScoringArrays& scores,
                    std::string& row);

/// The same for a nominal group. `separator` is the variable (from index 0) that keeps the groups apart, and the only
/// one with a level; the others have "XXXXXXX".
void BuildGroupRow(std::string_view label, std::optional<std::size_t> separator, std::int16_t level,
                   const ProjectParameters& project, const MeasureSelection& selection, const ScoringArrays& scores,
                   std::string& row);

/// The pieces of a line of a master with `columnCount` columns: 256 columns, then 255 each, the last takes the rest
/// (an uneven division that is kept). Cut at the commas, which belong to no piece; a line with fewer has empty pieces
/// at its end. The views point into `line`.
std::vector<std::string_view> SplitWideMaster(std::string_view line, int columnCount);

/// A master of more columns is also written in pieces.
inline constexpr int kMaxColumnsUnsplit = 256;

}  // namespace zova
