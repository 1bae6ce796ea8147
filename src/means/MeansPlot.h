// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "means/MeansTable.h"
#include "means/PlotOptions.h"

namespace zova {

/// How a mark of a raster looks.
enum class RasterLook { Graded, Category, Plain, Repeat, Lure, Intrusion };

/// Marks of a raster that look alike.
struct RasterMarks {
  std::string Name;  ///< for the legend; "" for those between two that are named
  RasterLook Look = RasterLook::Plain;
  double Shade = 0;  ///< Graded: 0 to 1. Category: its number, from 0
  struct Place {
    int Output = 0;  ///< from 1
    std::size_t Row = 0;

    bool operator==(const Place&) const = default;
  };
  std::vector<Place> Places;
};

/// A dot per recall, a row per list.
struct Raster {
  struct Group {
    std::string Name;               ///< "Test 1, young"
    std::vector<std::string> Rows;  ///< subjects; rows count on over the groups
  };
  std::vector<Group> Groups;
  std::vector<RasterMarks> Marks;

  [[nodiscard]] std::size_t RowCount() const;
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
  std::string Kind{};             ///< the stem of the family, "Net", for what is chosen of its plots
  PlotFrame Frame{};
  Raster Lists{};  ///< a raster has these in place of series

  [[nodiscard]] bool IsEmpty() const noexcept { return Series.empty() && Lists.Groups.empty(); }
};

/// The picture of a means table. One measure: the cells' means along the first variable's levels, one series per
/// combination of the others. Several of one family: lines along the family's axis (tests, pairs of tests, minutes,
/// patterns, lures), one series per cell, and per test if the axis is within tests. The total is drawn only without
/// other cells. The note names what is left out: measures of other families and cells without values.
PlotPicture PictureOf(const MeansTable& means, PlotBars bars = PlotBars::Confidence);

/// The level as it stands beside others: "Sex 1" for one without a name.
std::string LevelName(const std::string& variable, const std::string& level);

/// What the bars of a picture are, as a sentence; "" for none.
std::string_view BarsText(PlotBars bars);

/// True when a point of the picture has a bar.
bool HasIntervals(const PlotPicture& picture);

}  // namespace zova
