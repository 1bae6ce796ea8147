// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <qcustomplot.h>

#include "app/plots/PlotLegend.h"
#include "means/MeansPlot.h"

namespace zova {

enum class PlotFormat;

/// Draws pictures of means as they go to print: black and dark colours on white whatever the desktop's colours, series
/// told apart by symbol and dashes.
class PlotView : public QCustomPlot {
  Q_OBJECT

 public:
  explicit PlotView(const char* name);
  void ShowPicture(const PlotPicture& picture);

 protected:
  void resizeEvent(QResizeEvent* event) override;

 private:
  PlotPicture m_picture;
  PlotLegend m_legend;
};

/// The picture as the bytes of a file, 16 x 11 cm in each format, higher by a legend that stands below the axes; the
/// text of PDF and SVG stays text.
QByteArray RenderPicture(const PlotPicture& picture, PlotFormat format);

}  // namespace zova
