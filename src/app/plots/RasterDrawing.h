// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <qcustomplot.h>

#include "means/MeansPlot.h"

namespace zova {

/// The height of a plot in which all rows can be told apart, but at most `most`.
double RasterHeight(const Raster& raster, double fontSize, double most);

/// Adds a graph for each kind of marks, for the legend; PlaceRaster gives them their data.
void AddRaster(QCustomPlot& plot, const Raster& raster);

/// Fits marks, headings and the subjects' identifiers to the axes. Requires a finished layout.
void PlaceRaster(QCustomPlot& plot, const Raster& raster, const QFont& font, double fontSize);

}  // namespace zova
