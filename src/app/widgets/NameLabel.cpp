// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/widgets/NameLabel.h"

#include <QPainter>
#include <QTextLayout>
#include <cmath>

namespace zova {

NameLabel::NameLabel(const char* name) {
  setObjectName(QString::fromLatin1(name));
  setTextFormat(Qt::PlainText);
  setWordWrap(true);
}

QSize NameLabel::minimumSizeHint() const { return {1, fontMetrics().height()}; }

int NameLabel::heightForWidth(int width) const {
  QTextLayout layout;
  return static_cast<int>(std::ceil(LayOut(layout, width)));
}

double NameLabel::LayOut(QTextLayout& layout, int width) const {
  layout.setText(text().replace(u'\n', QChar::LineSeparator));
  layout.setFont(font());
  QTextOption option(alignment());
  option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
  layout.setTextOption(option);
  double height = 0;
  layout.beginLayout();
  for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
    line.setLineWidth(width);
    line.setPosition({0, height});
    height += line.height();
  }
  layout.endLayout();
  return height;
}

void NameLabel::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setPen(palette().color(foregroundRole()));
  QTextLayout layout;
  const double space = height() - LayOut(layout, width());
  layout.draw(&painter, {0, alignment().testFlag(Qt::AlignVCenter) && space > 0 ? space / 2 : 0});
}

}  // namespace zova
