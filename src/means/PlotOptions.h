// SPDX-License-Identifier: GPL-3.0-or-later
//
// What a user chooses for plots, kept while a project is open and written as options of a command.
#pragma once

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "means/OccurringLevels.h"

namespace zova {

struct PlotPicture;

/// The kind of the picture of recall lists; those of means are the stems of their families.
inline constexpr std::string_view kRasterKind = "Raster";

/// What is drawn about a mean.
enum class PlotBars {
  Confidence,     ///< its confidence interval
  StandardError,  ///< its standard error
  Within,         ///< the interval of a test within subjects; needs MoreStatistics::Within
  None
};

/// What the colours of a raster show.
enum class RasterColours { StudyPosition, Category };

/// The title of a plot, and the ends of its value axis.
struct PlotFrame {
  std::string Title;          ///< "" for none
  std::optional<double> Min;  ///< automatic if empty
  std::optional<double> Max;

  bool operator==(const PlotFrame&) const = default;
};

struct PlotOptions {
  PlotBars Bars = PlotBars::Confidence;
  RasterColours Colours = RasterColours::StudyPosition;
  std::map<std::string, PlotFrame, std::less<>> Frames;  ///< by PlotPicture::Kind
  std::vector<LevelOrder> Orders;

  bool operator==(const PlotOptions&) const = default;
};

/// Gives the picture the title and axis of its kind, and notes how many means lie beyond the axis.
void ApplyFrame(const PlotOptions& options, PlotPicture& picture);

/// The ends of an axis as typed, empty for automatic. nullopt for a text that is no number, and unless the lower end is
/// below the upper one.
std::optional<PlotFrame> FrameOf(std::string title, std::string_view min, std::string_view max);

/// An option of a command and its value: {"title", "Net=Recall by group"}.
using PlotOption = std::pair<std::string, std::string>;

/// Options that make these choices; none for the defaults, and none for plots, variables and levels that the project
/// has not. The order of the levels of a variable that is not chosen has no effect.
std::vector<PlotOption> CommandOptions(const PlotOptions& options, const ProjectParameters& project);
/// Makes a choice: "bars", "colours", "title", "axis" or "order". Returns "", or why the value has no meaning in the
/// project.
std::string SetPlotOption(const PlotOption& option, const ProjectParameters& project, PlotOptions& options);

}  // namespace zova
