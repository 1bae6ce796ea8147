// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <string>
#include <vector>

#include "means/MeansPlot.h"

namespace zova {

enum class PlotFormat;

/// The formats that RenderPicture knows: without Qt's SVG module there is no SVG.
std::vector<PlotFormat> PlotFormats();

/// The picture as the bytes of a file, 16 x 11 cm in each format plus a legend below the axes. Text in PDF and SVG
/// stays text.
QByteArray RenderPicture(const PlotPicture& picture, PlotFormat format);

/// The picture as an element of an HTML page: SVG, or without Qt's SVG module a PNG within it.
std::string DrawnFigure(const PlotPicture& picture);

}  // namespace zova
