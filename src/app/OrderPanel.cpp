// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/OrderPanel.h"

#include <QAbstractTableModel>
#include <QCoreApplication>
#include <QKeyEvent>
#include <QVBoxLayout>

#include "app/Controls.h"
#include "app/NumberBox.h"
#include "app/NumberGrid.h"

namespace zova {

// While it is empty the arrows move in the grid.
class OrderBox final : public NumberBox {
 public:
  explicit OrderBox(OrderEditor& order) : NumberBox("txtOrder"), m_order(order) {
    connect(this, &QLineEdit::textEdited, this, [this](const QString& text) { m_order.SetEntryText(FromQt(text)); });
  }

 protected:
  bool TakeKey(const QKeyEvent& press) override {
    const bool isEmpty = text().isEmpty();
    int rows = 0;
    switch (press.key()) {
      case Qt::Key_Return:
      case Qt::Key_Enter:
        if (!press.isAutoRepeat()) m_order.Enter();
        return true;
      case Qt::Key_Escape: m_order.SetEntryText({}); return true;  // it edits the box, and never cancels
      case Qt::Key_Tab: m_order.Click(m_order.CursorRow() + 1); return true;
      case Qt::Key_Backtab: m_order.Click(m_order.CursorRow() - 1); return true;
      case Qt::Key_Up: rows = -1; break;
      case Qt::Key_Down: rows = 1; break;
      case Qt::Key_PageUp: rows = -kPage; break;
      case Qt::Key_PageDown: rows = kPage; break;
      case Qt::Key_Home: rows = -m_order.Rows(); break;
      case Qt::Key_End: rows = m_order.Rows(); break;
      default: return NumberBox::TakeKey(press);
    }
    if (isEmpty) m_order.Move(rows);
    return isEmpty;
  }
  void PasteIntoGrid(const std::string& text) override { m_order.Paste(text); }
  [[nodiscard]] std::string CopyOfGrid() const override {
    std::string column;
    for (const std::int16_t position : m_order.Positions()) {
      column += (position == 0 ? std::string() : std::to_string(position)) + '\n';
    }
    return column;
  }

 private:
  OrderEditor& m_order;
};

class OrderModel final : public QAbstractTableModel {
 public:
  OrderModel(OrderEditor& order, QObject* parent) : QAbstractTableModel(parent), m_order(order) {}

  [[nodiscard]] int rowCount(const QModelIndex& parent) const override { return parent.isValid() ? 0 : m_rows; }
  [[nodiscard]] int columnCount(const QModelIndex& parent) const override { return parent.isValid() ? 0 : 2; }
  [[nodiscard]] Qt::ItemFlags flags(const QModelIndex& index) const override {
    return index.column() == 0 ? Qt::NoItemFlags : Qt::ItemIsEnabled;
  }
  [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override {
    // A name that does not fit is cut in the grid: its tip shows it.
    if (role == Qt::ToolTipRole ? index.column() != 0 : role != Qt::DisplayRole) return {};
    if (index.column() == 0) return ToQt(m_order.RowName(index.row()));
    const std::int16_t position = m_order.Position(index.row());
    return position == 0 ? QString() : QString::number(position);
  }
  [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override {
    if (role != Qt::DisplayRole || orientation != Qt::Horizontal) return {};
    return section == 0 ? ToQt(m_order.RowHeading()) : tr("New Order");
  }

  void Follow() {
    if (m_layouts != m_order.Layouts()) {
      beginResetModel();
      m_rows = m_order.Rows();
      m_layouts = m_order.Layouts();
      endResetModel();
    } else if (m_row < m_rows) {
      emit dataChanged(index(m_row, 1), index(m_row, 1));
    }
    m_row = m_order.CursorRow();
  }

 private:
  OrderEditor& m_order;
  int m_rows = 0;
  int m_layouts = 0;
  int m_row = 0;  // where a number was entered, the cursor stood before
};

OrderPanel::OrderPanel(MasterFlow& flow)
    : FlowPanel(flow, "fraOrder"),
      m_model(new OrderModel(flow.Order(), this)),
      m_grdOrder(new NumberGrid("grdOrder", [](int) { return false; })),
      m_txtOrder(new OrderBox(flow.Order())),
      m_cmdGoSerial(AddButton("cmdGoSerial", tr("Co&ntinue"), [this] { m_flow.GoSerial(); })),
      m_cmdGoCombine(AddButton("cmdGoCombine", tr("Co&ntinue"), [this] { m_flow.GoCombine(); })) {
  auto* rows = static_cast<QVBoxLayout*>(layout());
  rows->insertWidget(0, m_grdOrder, 1);
  auto* entry = new QHBoxLayout;
  rows->insertLayout(1, entry);
  QLabel* prompt = MakeLabel("lblOrder", tr("New Or&der:"), m_txtOrder);
  prompt->setWordWrap(false);
  entry->addWidget(prompt);
  entry->addWidget(m_txtOrder, 1);
  AddButton("cmdOrderReset", tr("&Reset"), [this] { m_flow.Order().Reset(); });
  m_cancel = AddButton("cmdOrderCancel", tr("&Cancel"), [this] { m_flow.CancelOrder(); });
  for (auto* button : findChildren<QPushButton*>()) button->setFocusPolicy(Qt::TabFocus);  // a click leaves it there
  m_cursor = m_txtOrder;
  m_grdOrder->setModel(m_model);
  m_grdOrder->setSelectionMode(QAbstractItemView::NoSelection);
  m_grdOrder->setAccessibleName(tr("New Order"));
  connect(m_txtOrder, &NumberBox::Acted, this, [this] { Act([] {}); });
  connect(m_grdOrder->selectionModel(), &QItemSelectionModel::currentChanged, this, [this](const QModelIndex& cell) {
    if (!cell.isValid() || cell.row() == m_flow.Order().CursorRow()) return;
    Act([&] { m_flow.Order().Click(cell.row()); });
  });
}

void OrderPanel::Refresh() {
  OrderEditor& order = m_flow.Order();
  m_model->Follow();
  m_grdOrder->setCurrentIndex(m_model->index(order.CursorRow(), 1));
  m_grdOrder->ScrollToCursor();
  ShowText(m_txtOrder, order.EntryText());
  const bool isSerial = order.CurrentUse() == OrderEditor::Use::SerialPositions;
  m_cmdGoSerial->setVisible(isSerial);
  m_cmdGoCombine->setVisible(!isSerial);
}

// Of the keys that a button has no use for, digits are meant for the box.
void OrderPanel::keyPressEvent(QKeyEvent* event) {
  const bool isDigit = event->key() >= Qt::Key_0 && event->key() <= Qt::Key_9;
  if (!isDigit || m_txtOrder->hasFocus()) return FlowPanel::keyPressEvent(event);
  m_txtOrder->setFocus();
  QCoreApplication::sendEvent(m_txtOrder, event);
}

}  // namespace zova
