// SPDX-License-Identifier: GPL-3.0-or-later
//
// One drawing serves the screen and files. It is laid out twice, since the room for ticks depends on the axis labels.

#include "app/plots/PlotDrawing.h"

#include <algorithm>
#include <cmath>

#include "app/plots/PlotText.h"
#include "app/plots/RasterDrawing.h"
#include "app/plots/SeriesDrawing.h"
#include "app/widgets/Controls.h"

namespace zova {

namespace {

constexpr int kLegendPages = 4;   // maximum height of the legend in figure heights
constexpr double kLongWord = 10;  // in letters: what is not parted

// Adds half a step at both ends of the axis, or the width of a symbol if steps are small.
void FitRange(QCustomPlot& plot, const PlotPicture& picture, double fontSize) {
  const auto count = static_cast<double>(picture.Ticks.size());
  const double symbol = fontSize * count / std::max(1, plot.axisRect()->width());
  const double room = std::max(0.5, 0.35 + symbol);
  plot.xAxis->setRange(1 - room, count + room);
}

// In lines of whole words, if all texts then fit side by side; else empty.
QStringList WrappedTicks(const PlotPicture& picture, const QFontMetricsF& metrics, double room) {
  constexpr int kMostLines = 3;
  QStringList texts;
  for (const std::string& tick : picture.Ticks) {
    const QString text = ToQt(tick);
    for (const QString& word : text.split(' ')) {
      if (metrics.horizontalAdvance(word + ' ') > room) return {};
    }
    texts.append(Wrapped(text, metrics, room - metrics.horizontalAdvance(' ')));
    if (texts.back().count('\n') >= kMostLines) return {};
  }
  return texts;
}

// Texts that do not fit side by side are wrapped, else rotated; if they still do not fit, only every second, fifth,
// tenth ... remains. Returns the whole texts of those that are cut.
QStringList FitTicks(QCustomPlot& plot, const PlotPicture& picture) {
  const QFontMetricsF metrics(plot.xAxis->tickLabelFont());
  const int count = static_cast<int>(picture.Ticks.size());
  const double room = plot.axisRect()->width() / plot.xAxis->range().size();
  double widest = 0;
  bool areNumbers = true;
  for (const std::string& tick : picture.Ticks) {
    widest = std::max(widest, metrics.horizontalAdvance(ToQt(tick) + ' '));
    bool isNumber = false;
    ToQt(tick).toInt(&isNumber);
    areNumbers = areNumbers && isNumber;
  }
  const QStringList wrapped = areNumbers ? QStringList() : WrappedTicks(picture, metrics, room);
  const bool isUpright = !areNumbers && wrapped.isEmpty() && widest > room;
  const double needed = isUpright ? metrics.height() : wrapped.isEmpty() ? widest : 0;
  int step = 1;
  for (int next = 1; step * room < needed && step < count; ++next) {
    constexpr int kSteps[] = {1, 2, 5};
    step = kSteps[next % 3] * static_cast<int>(std::pow(10, next / 3));
  }
  // Long names would push the axes out of the picture.
  const double longest = isUpright ? plot.viewport().height() / 3.0 : widest;
  const QSharedPointer<QCPAxisTickerText> ticker(new QCPAxisTickerText);
  QStringList cut;
  for (int place = step; place <= count; place += step) {
    const QString text = ToQt(picture.Ticks[static_cast<std::size_t>(place) - 1]);
    const QString shown = wrapped.isEmpty() ? metrics.elidedText(text, Qt::ElideRight, longest) : wrapped[place - 1];
    ticker->addTick(place, shown);
    if (wrapped.isEmpty() && shown != text) cut.append(text);
  }
  plot.xAxis->setTicker(ticker);
  plot.xAxis->setTickLabelRotation(isUpright ? -90 : 0);
  return cut;
}

// Steps of 1, 2 or 5, with powers of ten: halves of items are hard to read.
class ValueTicker final : public QCPAxisTicker {
 protected:
  double getTickStep(const QCPRange& range) override {
    const double step = range.size() / (tickCount() + 1e-10);
    const double power = std::pow(10, std::floor(std::log10(step)));
    const double first = step / power;
    return power * (first < 1.5 ? 1 : first < 3.5 ? 2 : first < 7.5 ? 5 : 10);
  }
};

void PrepareAxis(QCPAxis& axis, const QFont& font, const std::string& label) {
  axis.setLabelFont(font);
  axis.setTickLabelFont(font);
  axis.setLabel(ToQt(label));
  axis.grid()->setVisible(false);
  axis.setTickLength(5, 0);
}

// From 0, unless means are below it or an end is chosen.
void PrepareValueAxis(QCPAxis& axis, const PlotPicture& picture, const QCPRange& range, const QFont& font) {
  const double margin = range.size() > 0 ? range.size() * 0.05 : 0.5;
  const double lower = range.lower < 0 ? range.lower - margin : 0;
  axis.setRange(picture.Frame.Min.value_or(lower), picture.Frame.Max.value_or(range.upper + margin));
  axis.setRangeReversed(false);
  axis.setTicker(QSharedPointer<QCPAxisTicker>(new ValueTicker));
  PrepareAxis(axis, font, picture.YLabel);
  axis.grid()->setVisible(range.lower < 0);  // only its line at 0
  axis.grid()->setPen(Qt::NoPen);
}

// In a row of its own above the axes.
void ShowTitle(QCustomPlot& plot, const PlotPicture& picture, const QFont& font) {
  QCPLayoutGrid& layout = *plot.plotLayout();
  if (qobject_cast<QCPTextElement*>(layout.element(0, 0)) != nullptr) {
    layout.remove(layout.element(0, 0));
    layout.simplify();
  }
  if (picture.Frame.Title.empty() || picture.IsEmpty()) return;
  layout.insertRow(0);
  auto* title = new QCPTextElement(
      &plot, Wrapped(ToQt(picture.Frame.Title), QFontMetricsF(font), plot.viewport().width() * 0.9), font);
  const int gap = QFontMetrics(font).height() / 3;
  title->setMargins({0, gap, 0, gap});
  layout.addElement(0, 0, title);
  layout.setRowStretchFactor(0, kLittle);
}

void ShowNote(QCustomPlot& plot, const PlotPicture& picture, const QFont& font) {
  auto* note = new QCPItemText(&plot);
  note->position->setType(QCPItemPosition::ptViewportRatio);
  note->position->setCoords(0.5, 0.5);
  note->setText(ToQt(picture.Note));
  note->setFont(font);
}

// A figure grows by a legend below the axes; in a view the axes keep half of the height including their texts, and a
// third without. Requires a finished layout of the axes.
void FitLegend(QCustomPlot& plot, PlotLegend& legend, PlotPage page) {
  const QRect view = plot.viewport();
  if (page == PlotPage::Figure) {
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
  const QStringList cut = FitTicks(plot, picture);
  for (const QString& text : cut)
    plot.xAxis->setLabel(plot.xAxis->label() + "\n" + Wrapped(text, metrics, plot.axisRect()->width()));
  plot.replot(QCustomPlot::rpQueuedRefresh);  // for texts that take height
  plot.yAxis->setLabel(
      Wrapped(ToQt(picture.YLabel), metrics, std::max(plot.axisRect()->height() * 1.0, fontSize * kLongWord)));
}

}  // namespace

void PreparePlot(QCustomPlot& plot) {
  QLocale locale = QLocale::c();
  locale.setNumberOptions(QLocale::OmitGroupSeparator);
  plot.setLocale(locale);
  plot.axisRect()->setupFullAxesBox(false);
}

void DrawPicture(QCustomPlot& plot, PlotLegend& legend, const PlotPicture& picture, const QFont& font, double fontSize,
                 PlotPage page) {
  plot.clearItems();
  plot.legend->clearItems();  // at once, not one by one with their graphs
  plot.clearPlottables();
  const QCPRange range = RangeOf(picture);
  AddRaster(plot, picture.Lists);
  AddSeries(plot, picture, font, fontSize, range);
  legend.Arrange(font, fontSize);
  for (QCPAxis* axis : plot.axisRect()->axes()) {
    axis->setVisible(!picture.IsEmpty() && (axis == plot.xAxis || axis == plot.yAxis));
  }
  ShowTitle(plot, picture, font);
  if (picture.IsEmpty()) return ShowNote(plot, picture, font);
  PrepareAxis(*plot.xAxis, font, picture.XLabel);
  PrepareValueAxis(*plot.yAxis, picture, range, font);
  const auto fit = [&] {
    FitAxes(plot, picture, font, fontSize);
    if (!picture.Lists.Groups.empty()) PlaceRaster(plot, picture.Lists, font, fontSize);
  };
  fit();
  if (!legend.IsBelow()) return;
  plot.replot(QCustomPlot::rpQueuedRefresh);
  FitLegend(plot, legend, page);
  fit();
}

}  // namespace zova
