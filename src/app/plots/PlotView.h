// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <qcustomplot.h>

#include <vector>

#include "app/plots/PlotLegend.h"
#include "means/MeansPlot.h"

namespace zova {

enum class PlotFormat;

/// The formats that RenderPicture knows: without Qt's SVG module there is no SVG.
std::vector<PlotFormat> PlotFormats();

/// Draws pictures of means as printed: black and dark colours on white whatever the desktop's colours; symbols and
/// dashes distinguish the series.
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

/// The picture as the bytes of a file, 16 x 11 cm in each format plus a legend below the axes. Text in PDF and SVG
/// stays text.
QByteArray RenderPicture(const PlotPicture& picture, PlotFormat format);

/// The picture as SVG; "" without Qt's SVG module.
std::string DrawnSvg(const PlotPicture& picture);

}  // namespace zova
