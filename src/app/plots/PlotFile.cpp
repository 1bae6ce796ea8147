// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/plots/PlotFile.h"

#include <QBuffer>
#include <QPdfWriter>
#include <QRegularExpression>
#include <algorithm>
#include <cmath>
#ifdef ZOVA_SVG
#include <QSvgGenerator>
#endif

#include "app/plots/PlotDrawing.h"
#include "app/plots/RasterDrawing.h"
#include "app/widgets/Controls.h"
#include "means/MeansExaminer.h"

namespace zova {

namespace {

constexpr double kWidthInCm = 16;
constexpr double kHeightInCm = 11;
constexpr double kMostHeightInCm = 24;  // of a raster
constexpr double kCmPerInch = 2.54;
constexpr int kDotsPerInch = 96;  // of the layout; formats scale it
constexpr int kPixelsPerInch = 300;
constexpr int kFontPixels = 12;

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

#ifdef ZOVA_SVG
// Half of what Qt writes are groups without content, and attributes that have their default.
QByteArray Compact(const QByteArray& svg) {
  QString text = QString::fromUtf8(svg);
  static const QRegularExpression kFontOfGroup("(<g [^>]*?)\\s*font-family=[^>]*>");
  static const QRegularExpression kEmptyGroup("<g [^>]*>\\s*</g>\\s*");
  text.replace(kFontOfGroup, "\\1>");
  text.remove(kEmptyGroup);
  for (const char* byDefault : {" stroke-opacity=\"1\"", " fill-opacity=\"1\"", " vector-effect=\"none\"",
                                " transform=\"matrix(1,0,0,1,0,0)\""}) {
    text.remove(byDefault);
  }
  return text.toUtf8();
}
#endif

double HeightOf(const PlotPicture& picture) {
  if (picture.Lists.Groups.empty()) return kHeightInCm;
  const double most = kMostHeightInCm / kCmPerInch * kDotsPerInch;
  return std::max(RasterHeight(picture.Lists, kFontPixels, most) * kCmPerInch / kDotsPerInch, kHeightInCm / 2);
}

}  // namespace

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
  PreparePlot(plot);
  PlotLegend legend(plot);
  const double heightInCm = HeightOf(picture);
  plot.setViewport(QRect(0, 0, dots(kWidthInCm, kDotsPerInch), dots(heightInCm, kDotsPerInch)));
  QFont font(plot.font());
  font.setPixelSize(kFontPixels);  // the same on every device
  DrawPicture(plot, legend, picture, font, kFontPixels, PlotPage::Figure);
  const QSize size = plot.viewport().size();
  const double grownCm = legend.Height() * kCmPerInch / kDotsPerInch;
  QByteArray bytes;
  QBuffer buffer(&bytes);
  buffer.open(QIODevice::WriteOnly);
  switch (format) {
    case PlotFormat::Pdf: {
      QPdfWriter device(&buffer);
      device.setPageSize(QPageSize(QSizeF(kWidthInCm, heightInCm + grownCm) * 10, QPageSize::Millimeter));
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
      bytes = Compact(bytes);
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

std::string DrawnFigure(const PlotPicture& picture) {
#ifdef ZOVA_SVG
  const QByteArray svg = RenderPicture(picture, PlotFormat::Svg);
  return svg.mid(svg.indexOf("<svg")).toStdString();  // a prolog may stand at the beginning of a document only
#else
  const QByteArray bytes = RenderPicture(picture, PlotFormat::Png).toBase64();
  return ("<img alt=\"\" style=\"width:" + QByteArray::number(kWidthInCm) +
          "cm;max-width:100%\" src=\"data:image/png;base64," + bytes + "\">")
      .toStdString();
#endif
}

}  // namespace zova
