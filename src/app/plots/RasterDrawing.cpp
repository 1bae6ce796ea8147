// SPDX-License-Identifier: GPL-3.0-or-later
//
// The y axis counts pixels from above, so that headings keep their height however low the rows are.

#include "app/plots/RasterDrawing.h"

#include <algorithm>
#include <cmath>

#include "app/plots/PlotText.h"
#include "app/plots/SeriesDrawing.h"
#include "app/widgets/Colours.h"
#include "app/widgets/Controls.h"

namespace zova {

namespace {

constexpr std::size_t kMostLabelledRows = 60;
constexpr double kLowRow = 5;     // pixels of a row without identifier
constexpr double kLowSymbol = 5;  // below it shapes cannot be told apart
constexpr double kLeastSymbol = 4.5;
constexpr double kLineHeight = 1.4;    // in letters
constexpr double kAroundAxes = 4.5;    // in letters: labels and numbers below the axes
constexpr std::size_t kManyRows = 12;  // the numbers stand above the rows, too

// From violet to yellow-green, lighter step by step, also for colour-blind readers and in grey: viridis (Smith and van
// der Walt 2015) without its end, too light for white paper.
constexpr QRgb kScale[] = {0x440154, 0x3b528b, 0x21918c, 0x5ec962, 0xc8e020};

constexpr QCPScatterStyle::ScatterShape kCategoryShapes[] = {QCPScatterStyle::ssCircle, QCPScatterStyle::ssSquare,
                                                             QCPScatterStyle::ssTriangle, QCPScatterStyle::ssDiamond,
                                                             QCPScatterStyle::ssTriangleInverted};

QColor ScaleColor(double shade) {
  constexpr int kLast = static_cast<int>(std::size(kScale)) - 1;
  const double place = std::clamp(shade, 0.0, 1.0) * kLast;
  const int below = std::min(static_cast<int>(place), kLast - 1);
  return Mixed(QColor(kScale[below]), QColor(kScale[below + 1]), place - below);
}

QColor ColorOf(const RasterMarks& marks) {
  switch (marks.Look) {
    case RasterLook::Graded: return ScaleColor(marks.Shade);
    case RasterLook::Category: return QColor(InTurn(kPlotColors, static_cast<std::size_t>(marks.Shade)));
    default: return Qt::black;
  }
}

QCPScatterStyle SymbolOf(const RasterMarks& marks, double size) {
  const QColor color = ColorOf(marks);
  const QPen thin(color, std::max(size / 8, 0.5));
  switch (marks.Look) {
    case RasterLook::Category:
      return {InTurn(kCategoryShapes, static_cast<std::size_t>(marks.Shade)), thin, color, size};
    case RasterLook::Repeat: return {QCPScatterStyle::ssCircle, QPen(color, size / 6), Qt::white, size * 0.85};
    case RasterLook::Lure: return {QCPScatterStyle::ssDiamond, QPen(color, size / 6), Qt::white, size};
    case RasterLook::Intrusion: return {QCPScatterStyle::ssCross, QPen(color, size / 5), Qt::NoBrush, size * 0.85};
    default: return {QCPScatterStyle::ssCircle, QPen(color.darker(130), thin.widthF()), color, size};
  }
}

// In rows too low for shapes: a thick dash for an item, a thin one for a repeat, and symbols for the rare others.
bool IsDash(const RasterMarks& marks) { return marks.Look != RasterLook::Intrusion && marks.Look != RasterLook::Lure; }

QPen DashPen(const RasterMarks& marks, double height) {
  QPen pen(ColorOf(marks), height * (marks.Look == RasterLook::Repeat ? 0.3 : 0.9));
  pen.setCapStyle(Qt::FlatCap);
  return pen;
}

// In output positions.
constexpr double kDashLength = 0.8;

void AddDashes(QCustomPlot& plot, const RasterMarks& marks, const QVector<double>& outputs, const QVector<double>& rows,
               double height) {
  auto* dashes = new QCPCurve(plot.xAxis, plot.yAxis);
  dashes->setPen(DashPen(marks, height));
  QVector<double> x, y;
  for (qsizetype i = 0; i < outputs.size(); ++i) {
    x << outputs[i] - kDashLength / 2 << outputs[i] + kDashLength / 2 << qQNaN();
    y << rows[i] << rows[i] << qQNaN();
  }
  dashes->setData(x, y);
}

void RemoveDashes(QCustomPlot& plot) {
  for (int i = plot.plottableCount(); i-- > 0;) {
    if (qobject_cast<QCPCurve*>(plot.plottable(i)) != nullptr) plot.removePlottable(i);
  }
}

double HeadingHeight(const QString& heading, double fontSize) {
  return fontSize * (kLineHeight * static_cast<double>(heading.count('\n') + 1) + 0.3);
}

void AddHeading(QCustomPlot& plot, const QString& text, double y, const QFont& font) {
  auto* heading = new QCPItemText(&plot);
  heading->setPositionAlignment(Qt::AlignLeft | Qt::AlignTop);
  heading->position->setAxisRect(plot.axisRect());
  heading->position->setTypeX(QCPItemPosition::ptAxisRectRatio);
  heading->position->setTypeY(QCPItemPosition::ptPlotCoords);
  heading->position->setCoords(0.005, y);
  heading->setText(text);
  heading->setTextAlignment(Qt::AlignLeft);
  heading->setFont(font);
}

void AddRule(QCustomPlot& plot, double y) {
  auto* rule = new QCPItemLine(&plot);
  for (const auto& [end, x] : {std::pair(rule->start, 0.0), {rule->end, 1.0}}) {
    end->setAxisRect(plot.axisRect());
    end->setTypeX(QCPItemPosition::ptAxisRectRatio);
    end->setTypeY(QCPItemPosition::ptPlotCoords);
    end->setCoords(x, y);
  }
  rule->setPen(QPen(QColor(0xa0a0a0), 0.5));
}

void ShowNumbersAbove(QCustomPlot& plot, bool areShown, const QFont& font) {
  QCPAxis& above = *plot.xAxis2;
  above.setVisible(areShown);
  above.setTickLabels(areShown);
  above.setTickLength(0, 5);
  above.setTickLabelFont(font);
  above.setTicker(plot.xAxis->ticker());
  above.setRange(plot.xAxis->range());
}

// `places` are the heights of the rows, `row` is that of one.
void PlaceMarks(QCustomPlot& plot, const Raster& raster, const std::vector<double>& places, double row,
                double fontSize) {
  const double column = plot.axisRect()->width() / plot.xAxis->range().size();
  const double size = std::min({row, column, fontSize}) * 0.85;
  for (std::size_t i = 0; i < raster.Marks.size(); ++i) {
    QCPGraph& graph = *plot.graph(static_cast<int>(i));
    QVector<double> outputs, rows;
    for (const RasterMarks::Place& place : raster.Marks[i].Places) {
      outputs << place.Output;
      rows << places[place.Row];
    }
    const bool isDash = size < kLowSymbol && IsDash(raster.Marks[i]);
    graph.setLineStyle(isDash ? QCPGraph::lsLine : QCPGraph::lsNone);  // in the legend
    graph.setPen(DashPen(raster.Marks[i], fontSize / 2));
    if (isDash) {
      graph.setScatterStyle(QCPScatterStyle());
      AddDashes(plot, raster.Marks[i], outputs, rows, row);
      continue;
    }
    graph.setData(outputs, rows);
    graph.setScatterStyle(SymbolOf(raster.Marks[i], std::max(size, kLeastSymbol)));
  }
}

}  // namespace

double RasterHeight(const Raster& raster, double fontSize, double most) {
  const std::size_t rows = raster.RowCount();
  const double row = rows <= kMostLabelledRows ? fontSize * kLineHeight : kLowRow;
  const double headings = static_cast<double>(raster.Groups.size()) * HeadingHeight({}, fontSize);
  return std::min(most, row * static_cast<double>(rows) + headings + 2 * kAroundAxes * fontSize);
}

void AddRaster(QCustomPlot& plot, const Raster& raster) {
  for (const RasterMarks& marks : raster.Marks) {
    QCPGraph* graph = plot.addGraph();
    graph->setName(ToQt(marks.Name));
    graph->setLineStyle(QCPGraph::lsNone);
    graph->setAdaptiveSampling(false);  // which leaves out marks
    graph->setScatterStyle(SymbolOf(marks, plot.fontMetrics().height() * 0.5));
  }
}

void PlaceRaster(QCustomPlot& plot, const Raster& raster, const QFont& font, double fontSize) {
  plot.clearItems();
  RemoveDashes(plot);
  plot.xAxis->setTickLength(0, 5);  // not into the rows
  ShowNumbersAbove(plot, raster.RowCount() > kManyRows, font);
  plot.replot(QCustomPlot::rpQueuedRefresh);
  const QFontMetricsF metrics(font);
  const double height = plot.axisRect()->height();
  QStringList headings;
  double left = height;
  for (const Raster::Group& group : raster.Groups) {
    headings.append(Wrapped(ToQt(group.Name), metrics, plot.axisRect()->width()));
    left -= HeadingHeight(headings.back(), fontSize);
  }
  const double row = std::max(left / static_cast<double>(std::max<std::size_t>(raster.RowCount(), 1)), 0.1);
  const bool isLabelled = row >= fontSize;
  const QSharedPointer<QCPAxisTickerText> ticker(new QCPAxisTickerText);
  std::vector<double> places;
  places.reserve(raster.RowCount());
  double y = 0;
  for (std::size_t i = 0; i < raster.Groups.size(); ++i) {
    if (i > 0) AddRule(plot, y);
    AddHeading(plot, headings[static_cast<int>(i)], y, font);
    y += HeadingHeight(headings[static_cast<int>(i)], fontSize);
    for (const std::string& name : raster.Groups[i].Rows) {
      places.push_back(y + row / 2);
      if (isLabelled) {
        ticker->addTick(places.back(), metrics.elidedText(ToQt(name), Qt::ElideRight, plot.viewport().width() / 4.0));
      }
      y += row;
    }
  }
  plot.yAxis->setRangeReversed(true);
  plot.yAxis->setRange(0, height);
  plot.yAxis->setTicker(ticker);
  plot.yAxis->grid()->setVisible(isLabelled);
  plot.yAxis->grid()->setPen(QPen(QColor(0xe0e0e0), 0.5));
  PlaceMarks(plot, raster, places, row, fontSize);
}

}  // namespace zova
