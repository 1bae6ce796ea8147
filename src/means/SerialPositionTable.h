// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string_view>
#include <vector>

#include "means/MeansPlot.h"

namespace zova {

/// A serial-position master read back: shares of the subjects, test by test, position by position. One can be above 1,
/// since a repeated item counts each time.
struct SerialPositionTable {
  int TestCount = 0;
  int PositionCount = 0;
  std::vector<double> Observed;  ///< of test t at position p (both from 1): [(t - 1) * PositionCount + p - 1]
  std::vector<double> Smoothed;
};

/// Nothing for a text that is no serial-position master ("Type", ...), or one whose lines do not fit its header.
std::optional<SerialPositionTable> ParseSerialPositionMaster(std::string_view text);

/// Recall along the positions: per chosen test (from 1) the observed shares and the smoothed ones, dashed.
PlotPicture PictureOf(const SerialPositionTable& table, const std::vector<int>& tests);

}  // namespace zova
