// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/widgets/NumberGrid.h"

#include <QHeaderView>
#include <QMouseEvent>
#include <QPainter>
#include <QStyledItemDelegate>
#include <algorithm>

namespace zova {

namespace {

class CellDelegate final : public QStyledItemDelegate {
 public:
  CellDelegate(QTableView& table, std::function<bool(int)> isGreyed)
      : QStyledItemDelegate(&table), m_table(table), m_isGreyed(std::move(isGreyed)) {}

  void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override {
    const int column = index.column();
    const bool isCursor = index == m_table.currentIndex();
    const bool isSelected = option.state.testFlag(QStyle::State_Selected);
    const bool isGreyed = column != 0 && m_isGreyed(column);
    auto ground = column == 0 ? QPalette::Button : isGreyed ? QPalette::Window : QPalette::Base;
    if (isSelected) ground = QPalette::Highlight;
    painter->fillRect(option.rect, option.palette.brush(QPalette::Active, ground));
    if (isCursor) {  // in a frame of the text's own colour, which no other cell has
      const double frame = std::max(3, option.fontMetrics.height() / 6);
      const QBrush ink = option.palette.brush(QPalette::Active, QPalette::Text);
      painter->setPen({ink, frame, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin});
      painter->drawRect(QRectF(option.rect).adjusted(frame / 2, frame / 2, -frame / 2, -frame / 2));
    }
    QFont font = option.font;
    font.setBold(isCursor);
    painter->setFont(font);
    painter->setPen(option.palette.color(QPalette::Active, isSelected ? QPalette::HighlightedText : QPalette::Text));
    const QString text =
        painter->fontMetrics().elidedText(index.data().toString(), Qt::ElideRight, option.rect.width());
    painter->drawText(option.rect, Qt::AlignCenter, text);
  }

 private:
  QTableView& m_table;
  std::function<bool(int)> m_isGreyed;
};

}  // namespace

NumberGrid::NumberGrid(const char* name, const std::function<bool(int)>& isGreyed) {
  setObjectName(QString::fromLatin1(name));
  setItemDelegate(new CellDelegate(*this, isGreyed));
  setFocusPolicy(Qt::NoFocus);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  verticalHeader()->hide();
  verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  verticalHeader()->setMinimumSectionSize(1);
  verticalHeader()->setDefaultSectionSize(fontMetrics().height() * 3 / 2);
  horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
  horizontalHeader()->setSectionsClickable(false);
  horizontalHeader()->setHighlightSections(false);
  setMinimumSize(fontMetrics().averageCharWidth() * 40, fontMetrics().height() * 8);
}

void NumberGrid::resizeEvent(QResizeEvent* event) {
  QTableView::resizeEvent(event);
  ScrollToCursor();
}

void NumberGrid::mousePressEvent(QMouseEvent* event) {
  const QModelIndex pressed = indexAt(event->position().toPoint());
  m_dragging = event->button() == Qt::LeftButton && pressed.column() > 0;
  if (!m_dragging) return;
  PressCell(pressed.row(), pressed.column(), event->modifiers().testFlag(Qt::ShiftModifier));
  emit Acted();
}

// Comes only while a button is held. Beyond the edge it goes to the next row, so that dragging scrolls.
void NumberGrid::mouseMoveEvent(QMouseEvent* event) {
  if (!m_dragging) return;
  const QPoint place = event->position().toPoint();
  const int bottom = viewport()->height() - 1;
  const int row = rowAt(std::clamp(place.y(), 0, bottom));
  const int beyond = place.y() < 0 ? -1 : place.y() > bottom ? 1 : 0;
  const int column = columnAt(std::clamp(place.x(), 0, viewport()->width() - 1));
  DragTo(row < 0 ? model()->rowCount() - 1 : row + beyond, column);
  emit Acted();
}

void NumberGrid::mouseDoubleClickEvent(QMouseEvent* event) { mousePressEvent(event); }

}  // namespace zova
