// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/widgets/Colours.h"

#include <QPainter>
#include <QPixmap>
#include <cmath>

namespace zova {

namespace {

double Luminance(const QColor& colour) {
  const auto linear = [](double part) {
    return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
  };
  return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) + 0.0722 * linear(colour.blueF());
}

constexpr int kIconSize = 48;
#ifdef ZOVA_SVG
constexpr const char* kIconFile = ":/icons/%1.svg";
#else
constexpr const char* kIconFile = ":/icons/%1.png";
#endif

QPixmap Inked(const QIcon& icon, const QColor& ink) {
  QPixmap picture = icon.pixmap(kIconSize, kIconSize);
  QPainter painter(&picture);
  painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
  painter.fillRect(picture.rect(), ink);
  return picture;
}

}  // namespace

QIcon NamedIcon(const char* name) { return QIcon(QString(kIconFile).arg(name)); }

QIcon InkedIcon(const char* name, const QPalette& palette) {
  const QIcon shape = NamedIcon(name);
  QIcon icon;
  icon.addPixmap(Inked(shape, palette.color(QPalette::Active, QPalette::ButtonText)), QIcon::Normal);
  icon.addPixmap(Inked(shape, palette.color(QPalette::Disabled, QPalette::ButtonText)), QIcon::Disabled);
  return icon;
}

QIcon IconForRows(const QIcon& icon, const QPalette& palette) {
  QIcon both;
  both.addPixmap(icon.pixmap(kIconSize, kIconSize), QIcon::Normal);
  both.addPixmap(Inked(icon, palette.color(QPalette::Active, QPalette::HighlightedText)), QIcon::Selected);
  return both;
}

QColor Mixed(const QColor& one, const QColor& other, double share) {
  const auto mix = [share](float from, float to) { return static_cast<float>(from + (to - from) * share); };
  return QColor::fromRgbF(mix(one.redF(), other.redF()), mix(one.greenF(), other.greenF()),
                          mix(one.blueF(), other.blueF()));
}

double Contrast(const QColor& one, const QColor& other) {
  const double first = Luminance(one) + 0.05;
  const double second = Luminance(other) + 0.05;
  return first > second ? first / second : second / first;
}

QColor WithContrast(QColor colour, const QColor& strong, const QColor& ground, double ratio) {
  constexpr int kSteps = 20;
  const QColor start = colour;
  for (int step = 1; step <= kSteps && Contrast(colour, ground) < ratio; ++step) {
    colour = Mixed(start, strong, static_cast<double>(step) / kSteps);
  }
  return colour;
}

}  // namespace zova
