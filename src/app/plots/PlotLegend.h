// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <qcustomplot.h>

namespace zova {

/// The stretch of a row or column that stays at its minimum.
inline constexpr double kLittle = 0.001;

/// The names of the lines of a plot: beside the axes, at the top, if they fit in one column and leave two thirds of the
/// width, else below the axes in as many columns as fit. Sizes are in layout pixels.
class PlotLegend {
 public:
  /// Reserves room in the plot's layout. `plot` must outlive the legend.
  explicit PlotLegend(QCustomPlot& plot);

  /// Lists the graphs with a name, in order. `fontSize` is the height of the letters.
  void Arrange(const QFont& font, double fontSize);
  /// Leaves out rows beyond `height`, except the first, and shows `rest` with the number of names left out for %1. Only
  /// for a legend below the axes.
  void Fit(double height, const QString& rest);
  [[nodiscard]] bool IsBelow() const noexcept { return m_rows > 0; }
  /// 0 unless the legend is below the axes.
  [[nodiscard]] int Height() const;

 private:
  void PlaceIn(QCPLayoutGrid& grid, int wrap);

  QCustomPlot& m_plot;
  QCPLayoutGrid* m_side;
  QCPLayoutGrid* m_below;
  QFont m_font;
  QSize m_item;       // the largest
  int m_columns = 1;  // below the axes
  int m_rows = 0;     // there; 0 beside them
};

}  // namespace zova
