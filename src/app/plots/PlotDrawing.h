// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <qcustomplot.h>

#include "app/plots/PlotLegend.h"
#include "means/MeansPlot.h"

namespace zova {

/// A figure may grow by its legend, a view may not.
enum class PlotPage { View, Figure };

/// Prepares a plot for DrawPicture: two axes, and numbers that look alike on every machine, so that a saved plot can be
/// compared and read by programs.
void PreparePlot(QCustomPlot& plot);

/// Lays the picture out again; `fontSize` is the height of its letters in pixels.
void DrawPicture(QCustomPlot& plot, PlotLegend& legend, const PlotPicture& picture, const QFont& font, double fontSize,
                 PlotPage page);

}  // namespace zova
