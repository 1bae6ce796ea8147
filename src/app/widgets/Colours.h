// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QColor>
#include <QIcon>
#include <QPalette>
#include <QWidget>

namespace zova {

/// A picture of data/icons, which is compiled into the program; `name` is its file's, without ending.
QIcon NamedIcon(const char* name);
/// The same in the ink of a button's text, also of a disabled one.
QIcon InkedIcon(const char* name, const QPalette& palette);
/// The picture as it is for the rows of a list, but in one ink that is readable where a row is selected.
QIcon IconForRows(const QIcon& icon, const QWidget& list);
/// The contrast that icons, outlines and disabled texts need (WCAG 2.1).
inline constexpr double kReadable = 3;
/// `share` 0 is `one`, 1 is `other`.
QColor Mixed(const QColor& one, const QColor& other, double share);
/// `colour` moved towards `strong` until its contrast on `ground` is at least `ratio` (WCAG 2.1, relative luminance).
QColor WithContrast(QColor colour, const QColor& strong, const QColor& ground, double ratio);
/// From 1 to 21.
double Contrast(const QColor& one, const QColor& other);

}  // namespace zova
