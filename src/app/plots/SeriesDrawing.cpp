// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/plots/SeriesDrawing.h"

#include <algorithm>

#include "app/plots/PlotText.h"
#include "app/widgets/Colours.h"
#include "app/widgets/Controls.h"

namespace zova {

namespace {

constexpr double kLighter = 0.55;  // share of white in the dots behind a smoothed curve
constexpr Qt::PenStyle kDashes[] = {Qt::SolidLine, Qt::DashLine, Qt::DotLine, Qt::DashDotLine, Qt::DashDotDotLine};
struct Symbol {
  QCPScatterStyle::ScatterShape Shape;
  bool IsFilled;
};
// The most different ones first: in black and white only they distinguish separate means.
constexpr Symbol kSymbols[] = {{QCPScatterStyle::ssCircle, true},
                               {QCPScatterStyle::ssSquare, false},
                               {QCPScatterStyle::ssTriangle, true},
                               {QCPScatterStyle::ssDiamond, false},
                               {QCPScatterStyle::ssSquare, true},
                               {QCPScatterStyle::ssCircle, false},
                               {QCPScatterStyle::ssDiamond, true},
                               {QCPScatterStyle::ssTriangle, false},
                               {QCPScatterStyle::ssTriangleInverted, true},
                               {QCPScatterStyle::ssCross, false},
                               {QCPScatterStyle::ssTriangleInverted, false},
                               {QCPScatterStyle::ssCrossCircle, false},
                               {QCPScatterStyle::ssCrossSquare, false}};

// `index` counts series of one kind; a smoothed curve belongs to the observed one with the same index.
void Style(QCPGraph& graph, const PlotPicture& picture, const PlotSeries& series, std::size_t index, double fontSize) {
  const bool hasSmoothed =
      std::any_of(picture.Series.begin(), picture.Series.end(), [](const PlotSeries& other) { return other.IsDashed; });
  QColor color(InTurn(kPlotColors, index));
  if (hasSmoothed && !series.IsDashed) color = Mixed(color, Qt::white, kLighter);  // the curve stands out from its dots
  QPen pen(color, series.IsDashed ? fontSize / 6 : fontSize / 10);
  if (series.IsDashed) {
    pen.setStyle(kDashes[1 + index % (std::size(kDashes) - 1)]);
  } else if (!hasSmoothed) {
    pen.setStyle(InTurn(kDashes, index));
  }
  graph.setPen(pen);
  graph.setLineStyle(picture.HasLines && (series.IsDashed || !hasSmoothed) ? QCPGraph::lsLine : QCPGraph::lsNone);
  if (series.IsDashed) return;
  const Symbol& symbol = InTurn(kSymbols, index);
  graph.setScatterStyle({symbol.Shape, QPen(color, fontSize / 10), symbol.IsFilled ? QBrush(color) : QBrush(Qt::white),
                         hasSmoothed ? fontSize / 3 : fontSize * 2 / 3});
}

// Offsets the series so that symbols and intervals do not overlap; `room` is the distance of two ticks in symbol
// widths.
double OffsetOf(const PlotPicture& picture, std::size_t index, double room) {
  const auto count = static_cast<double>(picture.Series.size());
  const double step = std::min(1 / room, 0.7 / count);
  return HasIntervals(picture) ? (static_cast<double>(index) - (count - 1) / 2) * step : 0;
}

// An arrow where the axis ends before an interval does.
void AddArrows(QCustomPlot& plot, const QCPGraph& graph, const PlotSeries& series, double offset, const QCPRange& range,
               double fontSize) {
  for (const bool isUp : {true, false}) {
    QVector<double> places, ends;
    for (const PlotPoint& point : series.Points) {
      const double half = point.HalfWidth.value_or(0);
      if (isUp ? point.Y + half <= range.upper : point.Y - half >= range.lower) continue;
      places << point.X + offset;
      ends << (isUp ? range.upper : range.lower);
    }
    if (places.isEmpty()) continue;
    QCPGraph* arrows = plot.addGraph();
    arrows->setName({});
    arrows->setData(places, ends, true);
    arrows->setLineStyle(QCPGraph::lsNone);
    const QColor color = graph.pen().color();
    arrows->setScatterStyle({isUp ? QCPScatterStyle::ssTriangle : QCPScatterStyle::ssTriangleInverted,
                             QPen(color, fontSize / 12), QBrush(color), fontSize * 2 / 3});
  }
}

}  // namespace

QCPRange RangeOf(const PlotPicture& picture) {
  QCPRange means(0, 0);
  QCPRange all(0, 0);
  for (const PlotSeries& series : picture.Series) {
    for (const PlotPoint& point : series.Points) {
      means.expand(point.Y);
      all.expand(point.Y - point.HalfWidth.value_or(0));
      all.expand(point.Y + point.HalfWidth.value_or(0));
    }
  }
  const double beyond = means.size() > 0 ? means.size() : all.size();
  QCPRange range(std::max(all.lower, means.lower - beyond), std::min(all.upper, means.upper + beyond));
  range.lower = picture.Frame.Min.value_or(range.lower);
  range.upper = picture.Frame.Max.value_or(range.upper);
  if (range.lower < range.upper) return range;
  (picture.Frame.Min ? range.upper : range.lower) = picture.Frame.Min ? range.lower + 1 : range.upper - 1;
  return range;
}

void AddSeries(QCustomPlot& plot, const PlotPicture& picture, const QFont& font, double fontSize,
               const QCPRange& range) {
  const QFontMetricsF metrics(font);
  const double symbols = plot.viewport().width() * 0.7 / fontSize;
  const double room = symbols / static_cast<double>(std::max<std::size_t>(1, picture.Ticks.size()));
  std::size_t smoothed = 0;
  for (std::size_t index = 0; index < picture.Series.size(); ++index) {
    const PlotSeries& series = picture.Series[index];
    QVector<double> places, means, below, above;
    for (const PlotPoint& point : series.Points) {
      const bool isBehind = picture.Break && point.X > *picture.Break;
      if (isBehind && !places.isEmpty() && places.last() < *picture.Break) {  // a line ends where there is no number
        places << *picture.Break;
        for (QVector<double>* values : {&means, &below, &above}) *values << qQNaN();
      }
      places << point.X + OffsetOf(picture, index, room);
      means << point.Y;
      const double half = point.HalfWidth.value_or(qQNaN());
      below << (half > point.Y - range.lower ? point.Y - range.lower : half);
      above << (half > range.upper - point.Y ? range.upper - point.Y : half);
    }
    QCPGraph* graph = plot.addGraph();
    graph->setName(Wrapped(ToQt(series.Name), metrics, plot.viewport().width() - fontSize * 6));
    graph->setData(places, means, true);
    Style(*graph, picture, series, series.IsDashed ? smoothed++ : index - smoothed, fontSize);
    auto* intervals = new QCPErrorBars(plot.xAxis, plot.yAxis);
    intervals->setDataPlottable(graph);
    intervals->setData(below, above);
    intervals->setPen(QPen(graph->pen().color(), fontSize / 12));
    intervals->setWhiskerWidth(fontSize / 2);
    intervals->setSymbolGap(0);
    AddArrows(plot, *graph, series, OffsetOf(picture, index, room), range, fontSize);
  }
}

}  // namespace zova
