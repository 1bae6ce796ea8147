// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/widgets/EntryTable.h"

#include <QAbstractTableModel>

namespace zova {

namespace {

constexpr const char* kHeadings[] = {"Item #", "Recalled", "Minute", "Rating"};

}  // namespace

class EntryModel final : public QAbstractTableModel {
 public:
  EntryModel(EntryGrid& grid, QObject* parent) : QAbstractTableModel(parent), m_grid(grid) {}

  [[nodiscard]] int rowCount(const QModelIndex& parent) const override { return parent.isValid() ? 0 : m_lines; }
  [[nodiscard]] int columnCount(const QModelIndex& parent) const override {
    return parent.isValid() ? 0 : static_cast<int>(std::size(kHeadings));
  }
  [[nodiscard]] Qt::ItemFlags flags(const QModelIndex& index) const override {
    return index.column() == 0 ? Qt::ItemIsEnabled : Qt::ItemIsEnabled | Qt::ItemIsSelectable;
  }
  [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override {
    if (role != Qt::DisplayRole) return {};
    const int shown = index.column() == 0 ? index.row() + 1 : m_grid.Value(index.row() + 1, index.column());
    return shown == 0 ? QString() : QString::number(shown);
  }
  [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override {
    if (role != Qt::DisplayRole || orientation != Qt::Horizontal) return {};
    return QString::fromLatin1(kHeadings[section]);
  }

  void Follow() {
    const EntryGrid::ChangedLines changed = m_grid.TakeChangedLines();
    if (m_grid.Lines() != m_lines) {
      beginResetModel();
      m_lines = m_grid.Lines();
      endResetModel();
    } else if (changed.FirstLine <= changed.LastLine) {
      emit dataChanged(index(changed.FirstLine - 1, kItemColumn), index(changed.LastLine - 1, kRatingColumn));
    }
  }

 private:
  EntryGrid& m_grid;
  int m_lines = 0;
};

EntryTable::EntryTable(EntryGrid& grid)
    : NumberGrid("grdInput", [&grid](int column) { return !grid.IsUsed(column); }),
      m_grid(grid),
      m_model(new EntryModel(grid, this)) {
  setModel(m_model);
}

void EntryTable::Refresh() {
  m_model->Follow();
  const auto indexOf = [this](int line, int column) { return m_model->index(line - 1, column); };
  const EntryBlock& block = m_grid.Selection();
  if (block != m_shownSelection || !selectionModel()->hasSelection()) {
    m_shownSelection = block;
    const QItemSelection cells(indexOf(block.FirstLine, block.FirstColumn), indexOf(block.LastLine, block.LastColumn));
    selectionModel()->select(cells, QItemSelectionModel::ClearAndSelect);
  }
  const QModelIndex cursor = indexOf(m_grid.Cursor().Line, m_grid.Cursor().Column);
  selectionModel()->setCurrentIndex(cursor, QItemSelectionModel::NoUpdate);
  ScrollToCursor();
}

void EntryTable::PressCell(int row, int column, bool extends) {
  const EntryCell cell{row + 1, column};
  if (extends) {
    m_grid.SelectTo(cell);
  } else {
    m_grid.Click(cell);
  }
}

void EntryTable::DragTo(int row, int column) { m_grid.SelectTo({row + 1, column}); }

}  // namespace zova
