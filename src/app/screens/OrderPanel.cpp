// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/screens/OrderPanel.h"

#include <QAbstractTableModel>
#include <QCoreApplication>
#include <QKeyEvent>
#include <QScrollArea>
#include <QVBoxLayout>

#include "app/widgets/Controls.h"
#include "app/widgets/NumberBox.h"
#include "app/widgets/NumberGrid.h"

namespace zova {

// While it is empty the arrows move in the grid.
class OrderBox final : public NumberBox {
 public:
  explicit OrderBox(OrderEditor& order) : NumberBox("txtOrder"), m_order(order) {}

 protected:
  bool TakeKey(const QKeyEvent& press) override {
    switch (press.key()) {
      case Qt::Key_Return:
      case Qt::Key_Enter:
        if (!press.isAutoRepeat()) m_order.Enter();
        return true;
      case Qt::Key_Escape: m_order.SetEntryText({}); return true;  // it edits the box, and never cancels
      case Qt::Key_Tab: m_order.Click(m_order.CursorRow() + 1); return true;
      case Qt::Key_Backtab: m_order.Click(m_order.CursorRow() - 1); return true;
      case Qt::Key_Up: return TakeMove(press, -1);
      case Qt::Key_Down: return TakeMove(press, 1);
      case Qt::Key_PageUp: return TakeMove(press, -kPage);
      case Qt::Key_PageDown: return TakeMove(press, kPage);
      case Qt::Key_Home: return text().isEmpty() && TakeMove(press, -m_order.RowCount());
      case Qt::Key_End: return text().isEmpty() && TakeMove(press, m_order.RowCount());
      case Qt::Key_Delete:
        if (!text().isEmpty()) return false;
        m_order.Delete();
        return true;
      default: return NumberBox::TakeKey(press);
    }
  }
  void PasteIntoGrid(const std::string& text) override { m_order.Paste(text); }
  [[nodiscard]] std::string CopyOfGrid() const override { return m_order.Copy(); }
  void UndoInGrid() override { m_order.Undo(); }
  void RedoInGrid() override { m_order.Redo(); }

 private:
  bool TakeMove(const QKeyEvent& press, int rows) {
    if (press.modifiers().testFlag(Qt::ShiftModifier)) {
      m_order.ExtendSelection(rows);
    } else {
      m_order.Move(rows);
    }
    return true;
  }

  OrderEditor& m_order;
};

class OrderModel final : public QAbstractTableModel {
 public:
  OrderModel(OrderEditor& order, QObject* parent) : QAbstractTableModel(parent), m_order(order) {}

  [[nodiscard]] int rowCount(const QModelIndex& parent) const override { return parent.isValid() ? 0 : m_rows; }
  [[nodiscard]] int columnCount(const QModelIndex& parent) const override { return parent.isValid() ? 0 : 2; }
  [[nodiscard]] Qt::ItemFlags flags(const QModelIndex& index) const override {
    return index.column() == 0 ? Qt::NoItemFlags : Qt::ItemIsEnabled | Qt::ItemIsSelectable;
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
    return section == 0 ? ToQt(m_order.RowHeading()) : "New Order";
  }

  // Which cells changed is not asked: the view draws those in sight alone.
  void Follow() {
    if (m_layouts != m_order.Layouts()) {
      beginResetModel();
      m_rows = m_order.RowCount();
      m_layouts = m_order.Layouts();
      endResetModel();
    } else if (m_changes != m_order.Changes() && m_rows > 0) {
      emit dataChanged(index(0, 1), index(m_rows - 1, 1));
    }
    m_changes = m_order.Changes();
  }

 private:
  OrderEditor& m_order;
  int m_rows = 0;
  int m_layouts = 0;
  int m_changes = 0;
};

class OrderTable final : public NumberGrid {
 public:
  explicit OrderTable(OrderEditor& order)
      : NumberGrid("grdOrder", [](int) { return false; }), m_order(order), m_model(new OrderModel(order, this)) {
    setModel(m_model);
    setAccessibleName("New Order");
  }

  void Refresh() {
    m_model->Follow();
    const auto [first, last] = m_order.Selection();
    selectionModel()->select(QItemSelection(m_model->index(first, 1), m_model->index(last, 1)),
                             QItemSelectionModel::ClearAndSelect);
    selectionModel()->setCurrentIndex(m_model->index(m_order.CursorRow(), 1), QItemSelectionModel::NoUpdate);
    ScrollToCursor();
  }

 protected:
  void PressCell(int row, int, bool extends) override {
    if (extends) {
      m_order.SelectTo(row);
    } else {
      m_order.Click(row);
    }
  }
  void DragTo(int row, int) override { m_order.SelectTo(row); }

 private:
  OrderEditor& m_order;
  OrderModel* m_model;
};

OrderPanel::OrderPanel(MasterFlow& flow)
    : Panel("fraOrder"),
      m_flow(flow),
      m_lblOrderTitle(AddTitle("lblOrderTitle")),
      m_grdOrder(new OrderTable(flow.Order())),
      m_lblOrderPlan(MakeLabel("lblOrderPlan", {})),
      m_plan(MakeScrolling(m_lblOrderPlan)),
      m_txtOrder(new OrderBox(flow.Order())) {
  Arrange();
  AddButton("cmdOrderReset", "&Reset", [this] { m_flow.Order().Reset(); });
  m_cmdGoSerial = AddButton("cmdGoSerial", "Co&ntinue", [this] { m_flow.GoSerial(); });
  m_cmdGoCombine = AddButton("cmdGoCombine", "Co&ntinue", [this] { m_flow.GoCombine(); });
  m_cancel = AddButton("cmdOrderCancel", "&Cancel", [this] { m_flow.CancelOrder(); });
  m_cursor = m_txtOrder;
  m_buttonsReturn = true;
  connect(m_txtOrder, &NumberBox::Acted, this, [this] { ActAndReturn([] {}); });
  connect(m_txtOrder, &QLineEdit::textEdited, this,
          [this](const QString& text) { Act([&] { m_flow.Order().SetEntryText(FromQt(text)); }); });
  connect(m_grdOrder, &NumberGrid::Acted, this, [this] { ActAndReturn([] {}); });
}

void OrderPanel::Arrange() {
  AddProjectName();
  m_lblOrderPlan->setAlignment(Qt::AlignTop);
  m_plan->setFocusPolicy(Qt::TabFocus);  // to be scrolled from the keyboard
  m_plan->setAccessibleName("Groups");
  m_plan->setFixedHeight(m_plan->fontMetrics().lineSpacing() * 3);
  QLabel* prompt = MakeLabel("lblOrder", "New Or&der:", m_txtOrder);
  prompt->setWordWrap(false);
  auto* content = new QWidget;
  auto* rows = new QVBoxLayout(content);
  rows->setContentsMargins({});
  rows->addWidget(m_grdOrder, 1);
  rows->addWidget(m_plan);
  auto* entry = new QHBoxLayout;
  entry->addWidget(prompt);
  entry->addWidget(m_txtOrder, 1);
  rows->addLayout(entry);
  AddContent(content);
}

void OrderPanel::ShowState() {
  const OrderEditor& order = m_flow.Order();
  ShowProjectName(m_flow.ProjectName());
  m_lblOrderTitle->setText(ToQt(order.Title()));
  m_grdOrder->Refresh();
  ShowText(m_txtOrder, order.EntryText());
  const bool isSerial = order.CurrentUse() == OrderEditor::Use::SerialPositions;
  m_plan->setVisible(!isSerial);
  m_lblOrderPlan->setText(ToQt(m_flow.OrderPreview()));
  m_cmdGoSerial->setVisible(isSerial);
  m_cmdGoCombine->setVisible(!isSerial);
}

// Of the keys that a button has no use for, digits are meant for the box.
void OrderPanel::keyPressEvent(QKeyEvent* event) {
  const bool isDigit = event->key() >= Qt::Key_0 && event->key() <= Qt::Key_9;
  if (!isDigit || m_txtOrder->hasFocus()) return Panel::keyPressEvent(event);
  m_txtOrder->setFocus();
  QCoreApplication::sendEvent(m_txtOrder, event);
}

}  // namespace zova
