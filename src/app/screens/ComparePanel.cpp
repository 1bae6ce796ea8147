// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/screens/ComparePanel.h"

#include <QAbstractTableModel>
#include <QAction>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScopedValueRollback>
#include <QTableView>
#include <QVBoxLayout>
#include <array>

#include "app/widgets/Controls.h"
#include "session/Session.h"

namespace zova {

// A difference is bold and has signs of its own, so that it does not depend on colours.
class CompareModel final : public QAbstractTableModel {
 public:
  CompareModel(const EntrySettlement& rules, QObject* parent) : QAbstractTableModel(parent), m_rules(rules) {}

  [[nodiscard]] int rowCount(const QModelIndex& parent) const override { return parent.isValid() ? 0 : m_rows; }
  [[nodiscard]] int columnCount(const QModelIndex& parent) const override { return parent.isValid() ? 0 : 5; }
  [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override {
    const auto line = static_cast<std::size_t>(index.row());
    if (m_revision != m_rules.Revision() || line >= m_rules.LineCount()) return {};
    if (role == Qt::FontRole) {
      QFont font;
      font.setBold(m_rules.IsDifferent(line));
      return font;
    }
    if (role != Qt::DisplayRole) return {};
    switch (index.column()) {
      case 0: return ToQt(m_rules.Place(line));
      case 1: return ToQt(m_rules.Text(line, EntrySettlement::Side::First));
      case 2: return !m_rules.IsDifferent(line) ? QString() : QString(m_rules.IsDecided(line) ? u'\u2713' : u'\u2260');
      case 3: return ToQt(m_rules.Text(line, EntrySettlement::Side::Second));
      default: return ToQt(m_rules.Text(line, EntrySettlement::Side::Result));
    }
  }
  [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override {
    constexpr std::array kHeadings = {"Place", "First Entry", "", "Second Entry", "Result"};
    if (role != Qt::DisplayRole || orientation != Qt::Horizontal) return {};
    return kHeadings[static_cast<std::size_t>(section)];
  }
  void Follow() {
    beginResetModel();
    m_revision = m_rules.Revision();
    m_rows = static_cast<int>(m_rules.LineCount());
    endResetModel();
  }

 private:
  const EntrySettlement& m_rules;
  int m_revision = -1;
  int m_rows = 0;
};

ComparePanel::ComparePanel(Session& session)
    : Panel("fraCompare"),
      m_rules(session.Settlement()),
      m_grdCompare(Named(new QTableView, "grdCompare")),
      m_model(new CompareModel(m_rules, this)),
      m_txtCompare(Named(new QLineEdit, "txtCompare")),
      m_lblCompareSubject(MakeLabel("lblCompareSubject", {})),
      m_lblCompareStatus(MakeLabel("lblCompareStatus", {})) {
  AddTitle("lblCompareTitle", "Differences");
  AddProjectName();
  AddContent(m_lblCompareSubject);
  m_grdCompare->setModel(m_model);
  m_grdCompare->setAccessibleName("Both entries and the result");
  m_grdCompare->setSelectionBehavior(QAbstractItemView::SelectRows);
  m_grdCompare->setSelectionMode(QAbstractItemView::SingleSelection);
  m_grdCompare->setEditTriggers(QAbstractItemView::NoEditTriggers);
  m_grdCompare->setTabKeyNavigation(false);
  m_grdCompare->verticalHeader()->hide();
  m_grdCompare->verticalHeader()->setDefaultSectionSize(fontMetrics().height() * 3 / 2);
  m_grdCompare->horizontalHeader()->setHighlightSections(false);
  m_grdCompare->horizontalHeader()->setStretchLastSection(true);
  AddContent(m_grdCompare, 1);
  auto* row = new QWidget;
  auto* columns = new QHBoxLayout(row);
  columns->setContentsMargins({});
  QLabel* label = MakeLabel("lblCompare", "&Result:", m_txtCompare);
  label->setWordWrap(false);
  columns->addWidget(label);
  columns->addWidget(m_txtCompare, 1);
  m_cmdTakeFirst = MakeActButton(
      "cmdTakeFirst", "Take F&irst (1)", [this] { m_rules.TakeFirst(); }, /*repeats=*/true);
  m_cmdTakeSecond = MakeActButton(
      "cmdTakeSecond", "Take &Second (2)", [this] { m_rules.TakeSecond(); }, /*repeats=*/true);
  m_cmdNextDifference = MakeActButton(
      "cmdNextDifference", "&Next Difference", [this] { m_rules.GoToNext(); }, /*repeats=*/true);
  m_cmdCompareUndo = MakeActButton(
      "cmdCompareUndo", "&Undo", [this] { m_rules.Undo(); }, /*repeats=*/true);
  for (QPushButton* button : {m_cmdTakeFirst, m_cmdTakeSecond, m_cmdNextDifference, m_cmdCompareUndo}) {
    columns->addWidget(button);
  }
  AddContent(row);
  AddStatus(m_lblCompareStatus);
  AddButton("cmdCompareDone", "&Done!", [&session] { session.SettleComparison(); });
  m_cancel = AddButton("cmdCompareClose", "&Close", [&session] { session.CloseComparison(); });
  m_cursor = m_grdCompare;
  m_buttonsReturn = true;
  connect(m_grdCompare->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
          [this](const QModelIndex& index) {
            if (!m_isFilling && index.isValid()) Act([&] { m_rules.GoTo(static_cast<std::size_t>(index.row())); });
          });
  AddTableKeys();
  ShowState();
}

void ComparePanel::AddTableKeys() {
  const auto add = [this](const QKeySequence& key, const std::function<void()>& act) {
    auto* action = new QAction(m_grdCompare);
    action->setShortcut(key);
    action->setShortcutContext(Qt::WidgetShortcut);
    connect(action, &QAction::triggered, this, [this, act] { Act(act); });
    m_grdCompare->addAction(action);
  };
  add(Qt::Key_1, [this] { m_rules.TakeFirst(); });
  add(Qt::Key_2, [this] { m_rules.TakeSecond(); });
  add(Qt::Key_Space, [this] { m_rules.GoToNext(); });
  add(QKeySequence::Undo, [this] { m_rules.Undo(); });
}

// Enter leads from the table to the box, and from the box, with its result, back.
void ComparePanel::keyPressEvent(QKeyEvent* event) {
  const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  if (isEnter && m_txtCompare->hasFocus()) {
    bool isTaken = false;
    Act([&] { isTaken = m_rules.Type(FromQt(m_txtCompare->text())); });
    return isTaken ? m_grdCompare->setFocus() : PlaceCursorIn(m_txtCompare);
  }
  if (isEnter && m_grdCompare->hasFocus()) return PlaceCursorIn(m_txtCompare);
  if (event->key() == Qt::Key_Escape && m_txtCompare->hasFocus()) return m_grdCompare->setFocus();
  Panel::keyPressEvent(event);
}

void ComparePanel::ShowState() {
  m_lblCompareSubject->setText(ToQt(m_rules.SubjectCaption()));
  m_lblCompareStatus->setText(ToQt(m_rules.StatusLine()));
  m_cmdCompareUndo->setEnabled(m_rules.CanUndo());
  if (m_revision == m_rules.Revision()) return;
  m_revision = m_rules.Revision();
  const QScopedValueRollback<bool> filling(m_isFilling, true);
  m_model->Follow();
  m_grdCompare->resizeColumnsToContents();
  const auto line = static_cast<int>(m_rules.Current());
  m_grdCompare->selectRow(line);
  m_grdCompare->scrollTo(m_model->index(line, 0), QAbstractItemView::PositionAtCenter);
  const bool hasLine = m_rules.Current() < m_rules.LineCount();
  m_txtCompare->setText(hasLine ? ToQt(m_rules.TypedText(m_rules.Current())) : QString());
}

}  // namespace zova
