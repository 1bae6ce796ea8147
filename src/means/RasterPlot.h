// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <vector>

#include "means/MeansPlot.h"
#include "words/WordList.h"

namespace zova {

/// Beyond it the rows of a raster cannot be told apart on a page.
inline constexpr std::size_t kMostRasterRows = 1000;

/// The lists of the further measures of `table`, a row each, grouped by test and by the levels of the requested
/// variables: those of the tests to which the requested measures belong, of all if there are none. The colours show
/// what is chosen, as far as it is known. The note says what is not in the plot.
PlotPicture RasterOf(const MasterTable& table, const MeansRequest& request, RasterColours colours,
                     const ProjectParameters& project);

/// By category: its name, "Category 2" without one.
std::vector<std::string> CategoryNames(const WordList& words, const ProjectParameters& project);

}  // namespace zova
