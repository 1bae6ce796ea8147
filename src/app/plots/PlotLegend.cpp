// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/plots/PlotLegend.h"

#include <algorithm>
#include <cmath>

namespace zova {

namespace {

// Over all items, since all columns are as wide as the widest item.
QSize LargestItem(const QCPLegend& legend) {
  QSize largest(1, 1);
  for (int index = 0; index < legend.itemCount(); ++index) {
    const QCPLayoutElement* item = legend.item(index);
    largest = largest.expandedTo(item->minimumOuterSizeHint());
  }
  return largest;
}

// Names are drawn slightly larger than measured, on paper more than on the screen.
QMargins ItemMargins(double fontSize) {
  const int beside = static_cast<int>(std::ceil(fontSize / 3));
  return {0, 1, beside, 2};
}

}  // namespace

PlotLegend::PlotLegend(QCustomPlot& plot) : m_plot(plot), m_side(new QCPLayoutGrid), m_below(new QCPLayoutGrid) {
  QCPLayoutGrid& layout = *plot.plotLayout();
  layout.addElement(0, 1, m_side);
  layout.addElement(1, 0, m_below);
  layout.setColumnStretchFactor(1, kLittle);
  layout.setRowStretchFactor(1, kLittle);
  m_side->addElement(1, 0, new QCPLayoutElement(&plot));
  m_below->addElement(0, 1, new QCPLayoutElement(&plot));
  m_side->addElement(0, 0, plot.legend);
  m_side->setRowStretchFactor(0, kLittle);
  plot.setAutoAddPlottableToLegend(false);
  plot.legend->setBorderPen(Qt::NoPen);
  plot.legend->setRowSpacing(0);
}

void PlotLegend::PlaceIn(QCPLayoutGrid& grid, int wrap) {
  QCPLegend& legend = *m_plot.legend;
  if (legend.layout() != &grid) grid.addElement(0, 0, &legend);
  legend.setWrap(wrap);
  legend.setFillOrder(QCPLegend::foRowsFirst, true);
}

void PlotLegend::Arrange(const QFont& font, double fontSize) {
  QCPLegend& legend = *m_plot.legend;
  m_font = font;
  if (QCPLayoutElement* rest = m_below->hasElement(1, 0) ? m_below->element(1, 0) : nullptr) m_below->remove(rest);
  legend.setFont(font);
  legend.setIconSize(static_cast<int>(fontSize * 3), static_cast<int>(fontSize));
  legend.setIconTextPadding(static_cast<int>(fontSize * 0.8));
  PlaceIn(*m_side, 0);  // a single column has no empty cells, which would count as items
  for (int index = 0; index < m_plot.graphCount(); ++index) {
    if (!m_plot.graph(index)->name().isEmpty()) m_plot.graph(index)->addToLegend();
  }
  for (int index = 0; index < legend.itemCount(); ++index) legend.item(index)->setMargins(ItemMargins(fontSize));
  const int count = legend.itemCount();
  legend.setVisible(count > 0);
  m_item = LargestItem(legend);
  const QSize room = m_plot.viewport().size();
  const QMargins margins = legend.margins();
  m_rows = 0;
  if (count * m_item.height() <= room.height() * 9 / 10 && m_item.width() <= room.width() / 3) {
    return;
  }
  const int spacing = legend.columnSpacing();
  m_columns = (room.width() - margins.left() - margins.right()) / (m_item.width() + spacing);
  m_columns = std::clamp(m_columns, 1, count);
  m_rows = (count + m_columns - 1) / m_columns;
  PlaceIn(*m_below, m_rows);
}

void PlotLegend::Fit(double height, const QString& rest) {
  if (!IsBelow() || Height() <= height) return;
  QCPLegend& legend = *m_plot.legend;
  const int fixed = Height() - m_rows * m_item.height();  // its margins
  const int line = m_item.height();                       // the line about names left out
  m_rows = std::max(1, (static_cast<int>(height) - fixed - line) / m_item.height());
  PlaceIn(*m_below, 0);
  const int count = legend.itemCount();
  const int kept = std::min(count, m_rows * m_columns);
  // Not removeItem, which would lay out the rest again each time.
  for (int index = count; index-- > kept;) static_cast<QCPLayout&>(legend).remove(legend.item(index));
  PlaceIn(*m_below, m_rows);
  if (kept == count) return;
  auto* text = new QCPTextElement(&m_plot, rest.arg(count - kept), m_font);
  text->setTextFlags(Qt::AlignLeft | Qt::AlignVCenter);
  text->setMargins({legend.margins().left(), 0, 0, 2});
  m_below->addElement(1, 0, text);
}

int PlotLegend::Height() const {
  const QCPLayoutElement* below = m_below;
  return IsBelow() ? below->minimumOuterSizeHint().height() : 0;
}

}  // namespace zova
