// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <qcustomplot.h>

namespace zova {

/// The names of the lines of a plot: beside the axes, at the top, where they fit there in one column and leave two
/// thirds of the width, else below the axes in as many columns as fit. Sizes are in pixels of the layout.
class PlotLegend {
 public:
  /// Makes room in the plot's layout; `plot` must outlive the legend.
  explicit PlotLegend(QCustomPlot& plot);

  /// Takes the graphs that have a name, in their order. `fontSize` is the height of the letters.
  void Arrange(const QFont& font, double fontSize);
  /// Leaves out what is higher than `height` (but the first row never is), and says so with `rest`, where %1 stands for
  /// the number of names left out. Only for a legend below the axes.
  void Fit(double height, const QString& rest);
  [[nodiscard]] bool IsBelow() const noexcept { return m_rows > 0; }
  /// Of a legend below the axes; else 0.
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
