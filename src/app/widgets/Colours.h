// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QColor>

namespace zova {

/// `share` 0 is `one`, 1 is `other`.
QColor Mixed(const QColor& one, const QColor& other, double share);
/// `colour` moved towards `strong` until its contrast on `ground` is at least `ratio` (WCAG 2.1, relative luminance).
QColor WithContrast(QColor colour, const QColor& strong, const QColor& ground, double ratio);
/// From 1 to 21.
double Contrast(const QColor& one, const QColor& other);

}  // namespace zova
