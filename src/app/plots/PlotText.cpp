// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/plots/PlotText.h"

#include <cstdlib>

namespace zova {

QString Wrapped(const QString& text, const QFontMetricsF& metrics, double room) {
  if (metrics.horizontalAdvance(text) <= room || text.size() < 2) return text;
  qsizetype cut = -1;
  for (qsizetype blank = text.indexOf(' '); blank >= 0; blank = text.indexOf(' ', blank + 1)) {
    if (cut < 0 || std::abs(2 * blank - text.size()) < std::abs(2 * cut - text.size())) cut = blank;
  }
  if (cut >= 0) return Wrapped(text.left(cut), metrics, room) + '\n' + Wrapped(text.mid(cut + 1), metrics, room);
  qsizetype fitting = text.size() - 1;
  while (fitting > 1 && metrics.horizontalAdvance(text.left(fitting)) > room) --fitting;
  if (text.at(fitting).isLowSurrogate()) --fitting;
  return fitting < 1 ? text : text.left(fitting) + '\n' + Wrapped(text.mid(fitting), metrics, room);
}

}  // namespace zova
