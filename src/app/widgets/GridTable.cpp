// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/widgets/GridTable.h"

#include <QAbstractTableModel>
#include <QHeaderView>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>
#include <QStyledItemDelegate>
#include <algorithm>

#include "app/widgets/Colours.h"
#include "app/widgets/Controls.h"

namespace zova {

namespace {

// Of the highlight in a block, more on a dark ground.
constexpr double kTint = 0.2;
constexpr double kDarkTint = 0.4;
constexpr int kColumnWidth = 12;  // em: wider columns part the numbers of a line

class CellDelegate final : public QStyledItemDelegate {
 public:
  CellDelegate(QTableView& table, const TypedGrid& grid) : QStyledItemDelegate(&table), m_table(table), m_grid(grid) {}

  void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override {
    const int column = index.column();
    const bool isCursor = index == m_table.currentIndex();
    const bool isSelected = option.state.testFlag(QStyle::State_Selected);
    const bool isGreyed = column != 0 && !m_grid.IsUsed(column);
    const auto colour = [&](QPalette::ColorRole role) { return option.palette.color(QPalette::Active, role); };
    QColor ground = colour(column == 0 ? QPalette::Button : isGreyed ? QPalette::Window : QPalette::Base);
    const bool isDark = ground.lightness() < colour(QPalette::Text).lightness();
    if (isSelected && !isCursor) ground = Mixed(ground, colour(QPalette::Highlight), isDark ? kDarkTint : kTint);
    painter->fillRect(option.rect, ground);
    if (isCursor) {
      const double frame = std::max(2, option.fontMetrics.height() / 8);
      const QColor line = WithContrast(colour(QPalette::Highlight), colour(QPalette::Text), ground, 3.1);
      painter->setPen({line, frame, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin});
      painter->drawRect(QRectF(option.rect).adjusted(frame / 2, frame / 2, -frame / 2, -frame / 2));
    }
    QFont font = option.font;
    font.setBold(isCursor);
    painter->setFont(font);
    painter->setPen(colour(QPalette::Text));
    // What is being typed, already where it will stand.
    const bool isTyping = isCursor && !m_grid.EntryText().empty();
    const QString content = isTyping ? ToQt(m_grid.EntryText()) : index.data().toString();
    const QString text = painter->fontMetrics().elidedText(content, Qt::ElideRight, option.rect.width());
    painter->drawText(option.rect, Qt::AlignCenter, text);
  }

 private:
  QTableView& m_table;
  const TypedGrid& m_grid;
};

}  // namespace

class GridModel final : public QAbstractTableModel {
 public:
  GridModel(TypedGrid& grid, QObject* parent) : QAbstractTableModel(parent), m_grid(grid) {}

  [[nodiscard]] int rowCount(const QModelIndex& parent) const override { return parent.isValid() ? 0 : m_lines; }
  [[nodiscard]] int columnCount(const QModelIndex& parent) const override {
    return parent.isValid() ? 0 : static_cast<int>(m_columns.size());
  }
  [[nodiscard]] Qt::ItemFlags flags(const QModelIndex& index) const override {
    return index.column() == 0 ? Qt::ItemIsEnabled : Qt::ItemIsEnabled | Qt::ItemIsSelectable;
  }
  [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override {
    const bool isTip = role == Qt::ToolTipRole && m_columns[static_cast<std::size_t>(index.column())].ShowsTips;
    if (role != Qt::DisplayRole && !isTip) return {};
    return ToQt(m_grid.ShownText({index.row() + 1, index.column()}));
  }
  [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override {
    if (role != Qt::DisplayRole || orientation != Qt::Horizontal) return {};
    return ToQt(m_columns[static_cast<std::size_t>(section)].Heading);
  }

  void Follow() {
    const auto [firstLine, lastLine] = m_grid.FetchChangedLines();
    if (m_openingRevision != m_grid.OpeningRevision()) {
      beginResetModel();
      m_lines = m_grid.Lines();
      m_columns = m_grid.Columns();
      m_openingRevision = m_grid.OpeningRevision();
      endResetModel();
    } else if (firstLine <= lastLine) {
      emit dataChanged(index(firstLine - 1, 1), index(lastLine - 1, m_grid.LastColumn()));
    }
  }

 private:
  TypedGrid& m_grid;
  std::vector<GridColumn> m_columns;
  int m_lines = 0;
  int m_openingRevision = 0;
};

GridTable::GridTable(const char* name, TypedGrid& grid) : m_grid(grid), m_model(new GridModel(grid, this)) {
  setObjectName(QString::fromLatin1(name));
  setModel(m_model);
  setItemDelegate(new CellDelegate(*this, grid));
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

void GridTable::ShowTyping() {
  viewport()->update(visualRect(currentIndex()));
  ScrollToCursor();
}

void GridTable::Refresh() {
  m_model->Follow();
  setMaximumWidth(m_model->columnCount({}) * kColumnWidth * fontMetrics().height() +
                  verticalScrollBar()->sizeHint().width() + 2 * frameWidth());
  const GridBlock& block = m_grid.Selection();
  if (block != m_shownSelection || !selectionModel()->hasSelection()) {
    m_shownSelection = block;
    const QItemSelection cells(m_model->index(block.FirstLine - 1, block.FirstColumn),
                               m_model->index(block.LastLine - 1, block.LastColumn));
    selectionModel()->select(cells, QItemSelectionModel::ClearAndSelect);
  }
  const auto [line, column] = m_grid.Cursor();
  selectionModel()->setCurrentIndex(m_model->index(line - 1, column), QItemSelectionModel::NoUpdate);
  ShowTyping();
  if (m_jumpRevision == m_grid.JumpRevision()) return;
  m_jumpRevision = m_grid.JumpRevision();
  scrollTo(currentIndex(), PositionAtCenter);  // so that what a fault is compared with is in sight
}

void GridTable::resizeEvent(QResizeEvent* event) {
  QTableView::resizeEvent(event);
  ScrollToCursor();
}

void GridTable::mousePressEvent(QMouseEvent* event) {
  const QModelIndex pressed = indexAt(event->position().toPoint());
  m_dragging = event->button() == Qt::LeftButton && pressed.column() > 0;
  if (!m_dragging) return;
  const GridCell cell{pressed.row() + 1, pressed.column()};
  event->modifiers().testFlag(Qt::ShiftModifier) ? m_grid.SelectTo(cell) : m_grid.Click(cell);
  emit Acted();
}

// Received only while a button is held. Beyond the edge the next row is selected, so that dragging scrolls.
void GridTable::mouseMoveEvent(QMouseEvent* event) {
  if (!m_dragging) return;
  const QPoint place = event->position().toPoint();
  const int bottom = viewport()->height() - 1;
  const int row = rowAt(std::clamp(place.y(), 0, bottom));
  const int beyond = place.y() < 0 ? -1 : place.y() > bottom ? 1 : 0;
  const int column = columnAt(std::clamp(place.x(), 0, viewport()->width() - 1));
  m_grid.SelectTo({row < 0 ? m_grid.Lines() : row + beyond + 1, column});
  emit Acted();
}

void GridTable::mouseDoubleClickEvent(QMouseEvent* event) { mousePressEvent(event); }

}  // namespace zova
