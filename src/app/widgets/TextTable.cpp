// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/widgets/TextTable.h"

#include <QAbstractTableModel>
#include <QAction>
#include <QClipboard>
#include <QGuiApplication>
#include <QHeaderView>
#include <QScopedValueRollback>
#include <algorithm>

#include "app/widgets/Controls.h"

namespace zova {

class TextModel final : public QAbstractTableModel {
 public:
  TextModel(std::vector<TextTable::Column> columns, TextTable::TextAt text, QObject* parent)
      : QAbstractTableModel(parent), m_columns(std::move(columns)), m_text(std::move(text)) {}

  [[nodiscard]] int rowCount(const QModelIndex& parent) const override { return parent.isValid() ? 0 : m_rows; }
  [[nodiscard]] int columnCount(const QModelIndex& parent) const override {
    return parent.isValid() ? 0 : static_cast<int>(m_columns.size());
  }
  [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override {
    const bool isNumber = m_columns[static_cast<std::size_t>(index.column())].IsNumber;
    switch (role) {
      case Qt::DisplayRole:
      case Qt::ToolTipRole: return ToQt(m_text(index.row(), index.column()));
      case Qt::TextAlignmentRole:
        return static_cast<int>(Qt::AlignVCenter | (isNumber ? Qt::AlignRight : Qt::AlignLeft));
      default: return {};
    }
  }
  [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override {
    if (role != Qt::DisplayRole || orientation != Qt::Horizontal) return {};
    return ToQt(m_columns[static_cast<std::size_t>(section)].Heading);
  }
  void SetRows(int rows) {
    beginResetModel();
    m_rows = rows;
    endResetModel();
  }

 private:
  std::vector<TextTable::Column> m_columns;
  TextTable::TextAt m_text;
  int m_rows = 0;
};

TextTable::TextTable(const char* name, std::vector<Column> columns, TextAt text)
    : m_model(new TextModel(std::move(columns), std::move(text), this)) {
  setObjectName(QString::fromLatin1(name));
  setModel(m_model);
  setSelectionBehavior(SelectRows);
  setTabKeyNavigation(false);
  setWordWrap(false);
  verticalHeader()->hide();
  verticalHeader()->setDefaultSectionSize(fontMetrics().height() * 3 / 2);
  horizontalHeader()->setHighlightSections(false);
  horizontalHeader()->setResizeContentsPrecision(200);
  horizontalHeader()->setStretchLastSection(true);
  setMinimumHeight(fontMetrics().height() * 6);
  auto* copy = new QAction(this);
  copy->setShortcut(QKeySequence::Copy);
  copy->setShortcutContext(Qt::WidgetShortcut);
  connect(copy, &QAction::triggered, this, &TextTable::Copy);
  addAction(copy);
}

void TextTable::Show(int rows, int revision) {
  if (revision == m_revision) return;
  m_revision = revision;
  const QScopedValueRollback<bool> filling(m_isFilling, true);
  const int row = std::min(CurrentRow(), rows - 1);
  m_model->SetRows(rows);
  const int longest = fontMetrics().averageCharWidth() * 40;
  for (int column = 0; column + 1 < m_model->columnCount({}); ++column) {
    setColumnWidth(column,
                   std::min(longest, std::max(sizeHintForColumn(column), horizontalHeader()->sectionSizeHint(column)) +
                                         fontMetrics().averageCharWidth()));
  }
  if (rows > 0) selectRow(std::max(row, 0));
}

std::vector<int> TextTable::ChosenRows() const {
  std::vector<int> rows;
  const QModelIndexList chosen = selectionModel()->selectedRows();
  rows.reserve(static_cast<std::size_t>(chosen.size()));
  for (const QModelIndex& index : chosen) rows.push_back(index.row());
  std::sort(rows.begin(), rows.end());
  return rows;
}

void TextTable::GoToRow(int row) {
  selectRow(row);
  scrollTo(m_model->index(row, 0));
}

void TextTable::selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) {
  QTableView::selectionChanged(selected, deselected);
  if (!m_isFilling) emit RowChosen();
}

void TextTable::Copy() {
  QString text;
  for (const int row : ChosenRows()) {
    for (int column = 0; column < m_model->columnCount({}); ++column) {
      if (column > 0) text += '\t';
      text += m_model->index(row, column).data().toString();
    }
    text += '\n';
  }
  QGuiApplication::clipboard()->setText(text);
}

}  // namespace zova
