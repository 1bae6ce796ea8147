// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/plots/PlotView.h"

#include <algorithm>

#include "app/plots/PlotDrawing.h"
#include "app/plots/RasterDrawing.h"

namespace zova {

namespace {

constexpr double kMostHeight = 16000;  // of a widget

}  // namespace

PlotView::PlotView(const char* name) : m_legend(*this) {
  PreparePlot(*this);
  setObjectName(QString::fromLatin1(name));
  setAccessibleName("Plot of Means");
  setMinimumSize(fontMetrics().averageCharWidth() * 40, fontMetrics().height() * 8);
}

// A raster with many rows is higher than its place, which scrolls.
void PlotView::ShowPicture(const PlotPicture& picture) {
  m_picture = picture;
  const int lowest = fontMetrics().height() * 8;
  setMinimumHeight(picture.Lists.Groups.empty()
                       ? lowest
                       : std::max(lowest, static_cast<int>(RasterHeight(picture.Lists, FontSize(), kMostHeight))));
  Draw();
}

double PlotView::FontSize() const { return fontMetrics().height() * 0.75; }

void PlotView::Draw() {
  DrawPicture(*this, m_legend, m_picture, font(), FontSize(), PlotPage::View);
  replot(QCustomPlot::rpQueuedRefresh);
}

void PlotView::resizeEvent(QResizeEvent* event) {
  QCustomPlot::resizeEvent(event);
  Draw();
}

// The wheel scrolls what the plot stands in.
void PlotView::wheelEvent(QWheelEvent* event) { event->ignore(); }

}  // namespace zova
