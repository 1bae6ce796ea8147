// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "means/MeansTable.h"

namespace zova {

/// What a plot shows, without a drawing library. Positions on the x axis count from 1.
struct PlotPoint {
  double X = 0;
  double Y = 0;
  std::optional<double> HalfWidth;  ///< of the confidence interval
};

struct PlotSeries {
  std::string Name;               ///< for the legend; "" when neither levels nor tests tell it apart
  bool IsDashed = false;          ///< a smoothed curve beside the observed one
  std::vector<PlotPoint> Points;  ///< ascending; in a means picture never empty
};

struct PlotPicture {
  std::string XLabel;              ///< "Test", or the names of the variables
  std::string YLabel;              ///< measure and unit, "Net recall (items)"
  std::vector<std::string> Ticks;  ///< the text at x = 1, 2, ...
  std::vector<PlotSeries> Series;
  bool HasLines = true;  ///< false: separate means
  std::string Note;      ///< what is not in the picture, for the line below it; "" when all is
};

/// The picture of a means table. One measure: the means of the cells, the first variable's levels along the axis and a
/// series per combination of the others. Several of one family: lines along the family's axis (tests, pairs of tests,
/// minutes, patterns, lures), a series per cell, and per test where the axis lies within tests. The total is drawn only
/// when there is no other cell. Measures of further families and cells without values are left out, and told in the
/// note.
PlotPicture PictureOf(const MeansTable& means);

}  // namespace zova
