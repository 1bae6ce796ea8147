// SPDX-License-Identifier: GPL-3.0-or-later
//
// One drawing serves the screen and files. It is laid out twice, since the room for ticks depends on the axis labels.

#include "app/plots/PlotView.h"

#include <QBuffer>
#include <QPdfWriter>
#include <algorithm>
#include <cmath>
#ifdef ZOVA_SVG
#include <QSvgGenerator>
#endif

#include "app/widgets/Colours.h"
#include "app/widgets/Controls.h"
#include "means/MeansExaminer.h"

namespace zova {

namespace {

constexpr double kWidthInCm = 16;
constexpr double kHeightInCm = 11;
constexpr double kCmPerInch = 2.54;
constexpr int kDotsPerInch = 96;  // of the layout; formats scale it
constexpr int kPixelsPerInch = 300;
constexpr int kFontPixels = 12;
constexpr int kLegendPages = 4;  // maximum height of the legend in figure heights

// Dark enough for white paper, and distinguishable for colour-blind readers (Okabe and Ito 2008).
constexpr QRgb kColors[] = {0x000000, 0x0072b2, 0xc04a00, 0x00795a, 0x8a4a7c, 0x555555};
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

template <typename Item, std::size_t N>
const Item& InTurn(const Item (&items)[N], std::size_t index) {
  return items[index % N];
}

// `index` counts series of one kind; a smoothed curve belongs to the observed one with the same index.
void Style(QCPGraph& graph, const PlotPicture& picture, const PlotSeries& series, std::size_t index, double fontSize) {
  const bool hasSmoothed =
      std::any_of(picture.Series.begin(), picture.Series.end(), [](const PlotSeries& other) { return other.IsDashed; });
  QColor color(InTurn(kColors, index));
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

// Wraps a text longer than `room` into lines of about equal length.
QString Wrapped(const QString& text, const QFontMetricsF& metrics, double room) {
  if (metrics.horizontalAdvance(text) <= room) return text;
  qsizetype cut = -1;
  for (qsizetype blank = text.indexOf(' '); blank >= 0; blank = text.indexOf(' ', blank + 1)) {
    if (cut < 0 || std::abs(2 * blank - text.size()) < std::abs(2 * cut - text.size())) cut = blank;
  }
  if (cut < 0) return text;
  return Wrapped(text.left(cut), metrics, room) + '\n' + Wrapped(text.mid(cut + 1), metrics, room);
}

// The values of the y axis: 0, the means, and their intervals unless these would press the means together.
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
  return {std::max(all.lower, means.lower - beyond), std::min(all.upper, means.upper + beyond)};
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

// Adds half a step at both ends of the axis, or the width of a symbol if steps are small.
void FitRange(QCustomPlot& plot, const PlotPicture& picture, double fontSize) {
  const auto count = static_cast<double>(picture.Ticks.size());
  const double symbol = fontSize * count / std::max(1, plot.axisRect()->width());
  const double room = std::max(0.5, 0.35 + symbol);
  plot.xAxis->setRange(1 - room, count + room);
}

// Texts that do not fit side by side are rotated; if they still do not fit, only every second, fifth, tenth ...
// remains.
void FitTicks(QCustomPlot& plot, const PlotPicture& picture) {
  const QFontMetricsF metrics(plot.xAxis->tickLabelFont());
  const auto count = static_cast<double>(picture.Ticks.size());
  const double room = plot.axisRect()->width() / plot.xAxis->range().size();
  double widest = 0;
  bool isNumber = true;
  for (const std::string& tick : picture.Ticks) {
    const QString text = ToQt(tick);
    widest = std::max(widest, metrics.horizontalAdvance(text + ' '));
    text.toInt(&isNumber);
    if (!isNumber) break;
  }
  for (const std::string& tick : picture.Ticks) widest = std::max(widest, metrics.horizontalAdvance(ToQt(tick) + ' '));
  const bool isUpright = !isNumber && widest > room;
  const double needed = isUpright ? metrics.height() : widest;
  int step = 1;
  for (int next = 1; step * room < needed && step < static_cast<int>(count); ++next) {
    constexpr int kSteps[] = {1, 2, 5};
    step = kSteps[next % 3] * static_cast<int>(std::pow(10, next / 3));
  }
  // Long names would push the axes out of the picture.
  const double longest = isUpright ? plot.viewport().height() / 3.0 : widest;
  const QSharedPointer<QCPAxisTickerText> ticker(new QCPAxisTickerText);
  for (int place = step; place <= static_cast<int>(count); place += step) {
    const QString text = ToQt(picture.Ticks[static_cast<std::size_t>(place) - 1]);
    ticker->addTick(place, metrics.elidedText(text, Qt::ElideRight, longest));
  }
  plot.xAxis->setTicker(ticker);
  plot.xAxis->setTickLabelRotation(isUpright ? -90 : 0);
}

void PrepareAxis(QCPAxis& axis, const QFont& font, const std::string& label) {
  axis.setLabelFont(font);
  axis.setTickLabelFont(font);
  axis.setLabel(ToQt(label));
  axis.grid()->setVisible(false);
}

void ShowNote(QCustomPlot& plot, const PlotPicture& picture, const QFont& font) {
  auto* note = new QCPItemText(&plot);
  note->position->setType(QCPItemPosition::ptViewportRatio);
  note->position->setCoords(0.5, 0.5);
  note->setText(ToQt(picture.Note));
  note->setFont(font);
}

enum class Page { View, Figure };

// A figure grows by a legend below the axes; in a view the axes keep half of the height including their texts, and a
// third without. Requires a finished layout of the axes.
void FitLegend(QCustomPlot& plot, PlotLegend& legend, Page page) {
  const QRect view = plot.viewport();
  if (page == Page::Figure) {
    legend.Fit(view.height() * kLegendPages, "%1 more names do not fit here.");
    return plot.setViewport(view.adjusted(0, 0, 0, legend.Height()));
  }
  const QCPAxisRect& axes = *plot.axisRect();
  const int texts = axes.outerRect().height() - axes.height();
  legend.Fit(std::min(view.height() / 2, view.height() * 2 / 3 - texts), "%1 more names are in the saved plot.");
}

void FitAxes(QCustomPlot& plot, const PlotPicture& picture, const QFont& font, double fontSize) {
  plot.replot(QCustomPlot::rpQueuedRefresh);
  const QFontMetricsF metrics(font);
  QString below = Wrapped(ToQt(picture.XLabel), metrics, plot.axisRect()->width());
  if (!picture.Footnote.empty()) below += "\n" + Wrapped(ToQt(picture.Footnote), metrics, plot.axisRect()->width());
  plot.xAxis->setLabel(below);
  FitRange(plot, picture, fontSize);
  FitTicks(plot, picture);
  if (plot.xAxis->tickLabelRotation() != 0) plot.replot(QCustomPlot::rpQueuedRefresh);  // for texts that take height
  plot.yAxis->setLabel(Wrapped(ToQt(picture.YLabel), metrics, plot.axisRect()->height()));
}

// Lays the picture out again; `fontSize` is the height of its letters in pixels.
void DrawPicture(QCustomPlot& plot, PlotLegend& legend, const PlotPicture& picture, const QFont& font, double fontSize,
                 Page page) {
  plot.clearItems();
  plot.legend->clearItems();  // at once, not one by one with their graphs
  plot.clearPlottables();
  const QCPRange range = RangeOf(picture);
  AddSeries(plot, picture, font, fontSize, range);
  legend.Arrange(font, fontSize);
  const bool isEmpty = picture.Series.empty();
  for (QCPAxis* axis : plot.axisRect()->axes())
    axis->setVisible(!isEmpty && (axis == plot.xAxis || axis == plot.yAxis));
  if (isEmpty) return ShowNote(plot, picture, font);
  const double margin = range.size() > 0 ? range.size() * 0.05 : 0.5;
  plot.yAxis->setRange(range.lower < 0 ? range.lower - margin : 0, range.upper + margin);
  PrepareAxis(*plot.xAxis, font, picture.XLabel);
  PrepareAxis(*plot.yAxis, font, picture.YLabel);
  plot.yAxis->grid()->setVisible(range.lower < 0);  // only its line at 0
  plot.yAxis->grid()->setPen(Qt::NoPen);
  FitAxes(plot, picture, font, fontSize);
  if (!legend.IsBelow()) return;
  plot.replot(QCustomPlot::rpQueuedRefresh);
  FitLegend(plot, legend, page);
  FitAxes(plot, picture, font, fontSize);
}

void Paint(QCustomPlot& plot, QPaintDevice& device, double scale) {
  QCPPainter painter;
  painter.begin(&device);
  painter.setMode(QCPPainter::pmVectorized);
  painter.setMode(QCPPainter::pmNoCaching);
  painter.setMode(QCPPainter::pmNonCosmetic);
  painter.scale(scale, scale);
  plot.toPainter(&painter, plot.viewport().width(), plot.viewport().height());
  painter.end();
}

// Numbers look alike on every machine, so that a saved plot can be compared and read by programs.
void SetCLocale(QCustomPlot& plot) {
  QLocale locale = QLocale::c();
  locale.setNumberOptions(QLocale::OmitGroupSeparator);
  plot.setLocale(locale);
}

}  // namespace

PlotView::PlotView(const char* name) : m_legend(*this) {
  SetCLocale(*this);
  setObjectName(QString::fromLatin1(name));
  setAccessibleName("Plot of Means");
  setMinimumSize(fontMetrics().averageCharWidth() * 40, fontMetrics().height() * 12);
  axisRect()->setupFullAxesBox(false);
}

void PlotView::ShowPicture(const PlotPicture& picture) {
  m_picture = picture;
  DrawPicture(*this, m_legend, m_picture, font(), fontMetrics().height() * 0.75, Page::View);
  replot(QCustomPlot::rpQueuedRefresh);
}

void PlotView::resizeEvent(QResizeEvent* event) {
  QCustomPlot::resizeEvent(event);
  ShowPicture(m_picture);
}

std::vector<PlotFormat> PlotFormats() {
#ifdef ZOVA_SVG
  return {PlotFormat::Pdf, PlotFormat::Svg, PlotFormat::Png};
#else
  return {PlotFormat::Pdf, PlotFormat::Png};
#endif
}

QByteArray RenderPicture(const PlotPicture& picture, PlotFormat format) {
  const auto dots = [](double cm, int perInch) { return static_cast<int>(std::lround(cm / kCmPerInch * perInch)); };
  QCustomPlot plot;
  SetCLocale(plot);
  PlotLegend legend(plot);
  plot.axisRect()->setupFullAxesBox(false);
  plot.setViewport(QRect(0, 0, dots(kWidthInCm, kDotsPerInch), dots(kHeightInCm, kDotsPerInch)));
  QFont font(plot.font());
  font.setPixelSize(kFontPixels);  // the same on every device
  DrawPicture(plot, legend, picture, font, kFontPixels, Page::Figure);
  const QSize size = plot.viewport().size();
  const double grownCm = legend.Height() * kCmPerInch / kDotsPerInch;
  QByteArray bytes;
  QBuffer buffer(&bytes);
  buffer.open(QIODevice::WriteOnly);
  switch (format) {
    case PlotFormat::Pdf: {
      QPdfWriter device(&buffer);
      device.setPageSize(QPageSize(QSizeF(kWidthInCm, kHeightInCm + grownCm) * 10, QPageSize::Millimeter));
      device.setPageMargins({});
      Paint(plot, device, static_cast<double>(device.logicalDpiX()) / kDotsPerInch);
      break;
    }
    case PlotFormat::Svg: {
#ifdef ZOVA_SVG
      QSvgGenerator device;
      device.setOutputDevice(&buffer);
      device.setTitle(ToQt(picture.YLabel));
      device.setResolution(kDotsPerInch);
      device.setSize(size);
      device.setViewBox(QRect(QPoint(), size));
      Paint(plot, device, 1);
#endif
      break;
    }
    case PlotFormat::Png: {
      QImage image = plot.toPixmap(size.width(), size.height(), double{kPixelsPerInch} / kDotsPerInch).toImage();
      image.setDotsPerMeterX(dots(100, kPixelsPerInch));
      image.setDotsPerMeterY(dots(100, kPixelsPerInch));
      image.save(&buffer, "PNG");
      break;
    }
  }
  return bytes;
}

std::string DrawnSvg(const PlotPicture& picture) {
  const std::vector<PlotFormat> formats = PlotFormats();
  if (std::find(formats.begin(), formats.end(), PlotFormat::Svg) == formats.end()) return {};
  return RenderPicture(picture, PlotFormat::Svg).toStdString();
}

}  // namespace zova
