// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QProxyStyle>

namespace zova {

/// The application's own touches on the style of the system: flat group boxes with a bold title, a frame that shows
/// which list has the focus, check boxes and disabled texts with a contrast of 3 : 1 or more, and its own icons.
class Style final : public QProxyStyle {
  Q_OBJECT

 public:
  using QProxyStyle::polish;
  using QProxyStyle::unpolish;

  void polish(QPalette& palette) override;
  void polish(QWidget* widget) override;
  void unpolish(QWidget* widget) override;
  bool eventFilter(QObject* watched, QEvent* event) override;
  int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                QStyleHintReturn* result) const override;
  QIcon standardIcon(StandardPixmap picture, const QStyleOption* option, const QWidget* widget) const override;
  QPixmap standardPixmap(StandardPixmap picture, const QStyleOption* option, const QWidget* widget) const override;
  void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
  void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                          const QWidget* widget) const override;
  QRect subControlRect(ComplexControl control, const QStyleOptionComplex* option, SubControl part,
                       const QWidget* widget) const override;
};

}  // namespace zova
