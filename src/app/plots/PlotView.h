// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <qcustomplot.h>

#include "app/plots/PlotLegend.h"
#include "means/MeansPlot.h"

namespace zova {

/// Draws pictures of means as printed: black and dark colours on white whatever the desktop's colours; symbols and
/// dashes distinguish the series.
class PlotView : public QCustomPlot {
  Q_OBJECT

 public:
  explicit PlotView(const char* name);
  void ShowPicture(const PlotPicture& picture);

 protected:
  void resizeEvent(QResizeEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;

 private:
  [[nodiscard]] double FontSize() const;
  void Draw();

  PlotPicture m_picture;
  PlotLegend m_legend;
};

}  // namespace zova
