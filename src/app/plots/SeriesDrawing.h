// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <qcustomplot.h>

#include "means/MeansPlot.h"

namespace zova {

/// Dark enough for white paper, and distinguishable for colour-blind readers (Okabe and Ito 2008).
inline constexpr QRgb kPlotColors[] = {0x000000, 0x0072b2, 0xc04a00, 0x00795a, 0x8a4a7c, 0x555555};

/// The next one of a list that begins again at its end.
template <typename Item, std::size_t N>
const Item& InTurn(const Item (&items)[N], std::size_t index) {
  return items[index % N];
}

/// The values of the y axis: what is chosen, else 0, the means, and their intervals unless these would press the means
/// together.
QCPRange RangeOf(const PlotPicture& picture);

/// Adds a graph with its intervals for each series. `fontSize` is the height of the letters in pixels.
void AddSeries(QCustomPlot& plot, const PlotPicture& picture, const QFont& font, double fontSize,
               const QCPRange& range);

}  // namespace zova
