// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/widgets/Colours.h"

#include <QPainter>
#include <QPixmap>
#include <QStyle>
#include <QStyleOptionViewItem>
#include <algorithm>
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

// What the style draws behind the icon of a selected row. Native ones need not take the palette's Highlight: that of
// Windows draws a pale selection, with the list's own text.
QColor GroundOfSelection(const QWidget& list, QStyle::State active) {
  QPixmap nothing(kIconSize, kIconSize);
  nothing.fill(Qt::transparent);
  QStyleOptionViewItem row;
  row.initFrom(&list);
  row.rect = QRect(0, 0, 4 * kIconSize, kIconSize);
  row.state = QStyle::State_Enabled | QStyle::State_Selected | active;
  row.palette.setCurrentColorGroup(active ? QPalette::Active : QPalette::Inactive);
  row.features = QStyleOptionViewItem::HasDecoration;
  row.icon = QIcon(nothing);
  row.decorationSize = nothing.size();
  row.showDecorationSelected = list.style()->styleHint(QStyle::SH_ItemView_ShowDecorationSelected, nullptr, &list) != 0;
  QImage picture(row.rect.size(), QImage::Format_RGB32);
  picture.fill(list.palette().color(QPalette::Base));
  QPainter painter(&picture);
  list.style()->drawControl(QStyle::CE_ItemViewItem, &row, &painter, &list);
  return picture.pixelColor(list.style()->subElementRect(QStyle::SE_ItemViewItemDecoration, &row, &list).center());
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

QIcon IconForRows(const QIcon& icon, const QWidget& list) {
  const QColor grounds[] = {GroundOfSelection(list, QStyle::State_Active), GroundOfSelection(list, QStyle::State_None)};
  const auto contrast = [&grounds](const QColor& ink) {
    return std::min(Contrast(ink, grounds[0]), Contrast(ink, grounds[1]));
  };
  QColor ink = list.palette().color(QPalette::Active, QPalette::HighlightedText);
  const QColor text = list.palette().color(QPalette::Active, QPalette::Text);
  if (contrast(ink) < kReadable && contrast(text) > contrast(ink)) ink = text;
  QIcon both;
  both.addPixmap(icon.pixmap(kIconSize, kIconSize), QIcon::Normal);
  both.addPixmap(Inked(icon, ink), QIcon::Selected);
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
