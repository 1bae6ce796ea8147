// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <set>
#include <string_view>
#include <vector>

#include "means/MeansPlot.h"

namespace zova {

/// A parsed serial-position master: shares of the subjects per test and position. A share can exceed 1, since a
/// repeated item counts each time.
struct SerialPositionTable {
  int TestCount = 0;
  int PositionCount = 0;
  std::vector<double> Observed;  ///< test t, position p (both from 1): [(t - 1) * PositionCount + p - 1]
  std::vector<double> Smoothed;
};

/// nullopt for a text that is not a serial-position master ("Type", ...), or whose lines do not fit its header.
std::optional<SerialPositionTable> ParseSerialPositionMaster(std::string_view text);

/// Recall by serial position: for each chosen test (from 1) the observed shares, and the smoothed ones dashed. Without
/// the positions of `leftOut` (from 1).
PlotPicture PictureOf(const SerialPositionTable& table, const std::vector<int>& tests,
                      const std::set<int>& leftOut = {});

}  // namespace zova
