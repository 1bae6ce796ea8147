// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "project/ProjectParameters.h"
#include "scoring/ScoringArrays.h"
#include "subjects/RecallLists.h"

namespace zova {

/// The serial position, from 1, at which each item was presented: item i at index i-1.
using SerialOrder = std::vector<std::int16_t>;

/// Number of recalls per serial position (row) and test.
using SerialCounts = TestTable<float>;

/// A column of the serial-position master: test, position.
inline constexpr std::string_view kSerialPositionName = "SP(Test % Pos %)";

/// Adds the entries of one subject's lists, which must not contain lures. Blanks have no serial position.
void AccumulateSerialPositions(const RecallLists& lists, const SerialOrder& order, SerialCounts& counts);

/// The serial-position master: for each position the share of the subjects who recalled the item presented there,
/// observed and smoothed (moving average of three positions), cut to three decimals. `subjectCount` is at least 1.
std::string FormatSerialPositionMaster(const SerialCounts& counts, int testCount, int subjectCount);

}  // namespace zova
