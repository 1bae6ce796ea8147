// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "means/MeansTable.h"

namespace zova {

/// What is drawn about a mean.
enum class PlotBars {
  Confidence,     ///< its confidence interval
  StandardError,  ///< its standard error
  Within,         ///< the interval of a test within subjects; needs MoreStatistics::Within
  None
};

/// The content of a plot, independent of a drawing library. Positions on the x axis count from 1.
struct PlotPoint {
  double X = 0;
  double Y = 0;
  std::optional<double> HalfWidth;  ///< of the bar
};

struct PlotSeries {
  std::string Name;               ///< for the legend; "" without levels and tests to distinguish
  bool IsDashed = false;          ///< a smoothed curve
  std::vector<PlotPoint> Points;  ///< ascending; never empty in a plot of means
};

struct PlotPicture {
  std::string XLabel;              ///< "Test", or the names of the variables
  std::string YLabel;              ///< measure and unit, "Net recall (items)"
  std::vector<std::string> Ticks;  ///< the text at x = 1, 2, ...
  std::vector<PlotSeries> Series;
  bool HasLines = true;           ///< false: separate points
  std::string Footnote;           ///< under the axes, on the screen and in a file; or ""
  std::string Note;               ///< what the picture leaves out, or ""
  std::optional<double> Break{};  ///< no line crosses this x: lag 0
};

/// The picture of a means table. One measure: the cells' means along the first variable's levels, one series per
/// combination of the others. Several of one family: lines along the family's axis (tests, pairs of tests, minutes,
/// patterns, lures), one series per cell, and per test if the axis is within tests. The total is drawn only without
/// other cells. The note names what is left out: measures of other families and cells without values.
PlotPicture PictureOf(const MeansTable& means, PlotBars bars = PlotBars::Confidence);

/// What the bars of a picture are, as a sentence; "" for none.
std::string_view BarsText(PlotBars bars);

/// True when a point of the picture has a bar.
bool HasIntervals(const PlotPicture& picture);

}  // namespace zova
