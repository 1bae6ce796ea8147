// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QFontMetricsF>
#include <QString>

namespace zova {

/// A text longer than `room` in lines of about equal length, parted at blanks where it has them.
QString Wrapped(const QString& text, const QFontMetricsF& metrics, double room);

}  // namespace zova
