// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/screens/SubjectsPanel.h"

#include <QAbstractTableModel>
#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QElapsedTimer>
#include <QGridLayout>
#include <QGuiApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScopedValueRollback>
#include <QTableView>
#include <QTimer>
#include <QVBoxLayout>
#include <algorithm>

#include "app/widgets/Controls.h"
#include "session/Session.h"

namespace zova {

// Asks the rules for each cell, but not between a change and the refresh that follows.
class SubjectsModel final : public QAbstractTableModel {
 public:
  SubjectsModel(const SubjectsScreen& rules, QObject* parent) : QAbstractTableModel(parent), m_rules(rules) {}

  [[nodiscard]] int rowCount(const QModelIndex& parent) const override { return parent.isValid() ? 0 : m_rows; }
  [[nodiscard]] int columnCount(const QModelIndex& parent) const override { return parent.isValid() ? 0 : m_columns; }
  [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override {
    const auto line = static_cast<std::size_t>(index.row());
    const auto column = static_cast<std::size_t>(index.column());
    const SubjectTable& table = m_rules.Table();
    if (m_revision != m_rules.Revision() || line >= table.LineCount()) return {};
    switch (role) {
      case Qt::DisplayRole:
      case Qt::ToolTipRole: return ToQt(table.Text(line, column));
      case Qt::TextAlignmentRole:
        return static_cast<int>(Qt::AlignVCenter | (table.IsNumber(column) ? Qt::AlignRight : Qt::AlignLeft));
      default: return {};
    }
  }
  [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override {
    const auto& headings = m_rules.Table().Headings();
    const auto column = static_cast<std::size_t>(section);
    if (orientation != Qt::Horizontal || column >= headings.size()) return {};
    return role == Qt::DisplayRole || role == Qt::ToolTipRole ? ToQt(headings[column]) : QVariant();
  }

  /// False when nothing has changed.
  bool Follow() {
    if (m_revision == m_rules.Revision()) return false;
    beginResetModel();
    m_revision = m_rules.Revision();
    m_rows = static_cast<int>(m_rules.Table().LineCount());
    m_columns = static_cast<int>(m_rules.Table().Headings().size());
    endResetModel();
    return true;
  }

 private:
  const SubjectsScreen& m_rules;
  int m_revision = -1;
  int m_rows = 0;
  int m_columns = 0;
};

namespace {

// Typed letters look for an identifier, whatever column the cursor is in; an equal one comes before those that begin
// so.
class SubjectsView final : public QTableView {
 public:
  explicit SubjectsView(const SubjectsScreen& rules) : m_rules(rules) {}

  void keyboardSearch(const QString& text) override {
    const bool goesOn = m_sinceKey.isValid() && m_sinceKey.elapsed() <= QApplication::keyboardInputInterval();
    m_typed = goesOn ? m_typed + text : text;
    m_sinceKey.start();
    if (m_typed.isEmpty()) return;  // Ctrl and a key
    const auto line = m_rules.Table().LineOfId(FromQt(m_typed));
    if (!line) return;
    const QModelIndex found = model()->index(static_cast<int>(*line), std::max(0, currentIndex().column()));
    selectionModel()->setCurrentIndex(found, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
  }

 private:
  const SubjectsScreen& m_rules;
  QString m_typed;
  QElapsedTimer m_sinceKey;
};

std::vector<std::size_t> ChosenLines(const QTableView& table) {
  std::vector<std::size_t> lines;
  for (const QItemSelectionRange& range : table.selectionModel()->selection()) {
    for (int row = range.top(); row <= range.bottom(); ++row) lines.push_back(static_cast<std::size_t>(row));
  }
  return lines;
}

}  // namespace

SubjectsPanel::SubjectsPanel(Session& session)
    : Panel("fraSubjects"),
      m_session(session),
      m_rules(session.SubjectList()),
      m_txtSubjectFilter(Named(new QLineEdit, "txtSubjectFilter")),
      m_grdSubjects(Named<QTableView>(new SubjectsView(m_rules), "grdSubjects")),
      m_model(new SubjectsModel(m_rules, this)),
      m_lblSubjectsStatus(MakeLabel("lblSubjectsStatus", {})) {
  AddTitle("lblSubjectsTitle", "Subjects");
  AddProjectName();
  auto* content = new QWidget;
  auto* columns = new QHBoxLayout(content);
  columns->setContentsMargins({});
  columns->addWidget(MakeTable(), 1);
  columns->addWidget(MakeActs());
  AddContent(content, 1);
  AddStatus(m_lblSubjectsStatus);
  AddButton("cmdSubjectCopy", "Cop&y", [this] { Copy(); });
  AddButton("cmdSubjectExport", "&Export List...", [this] { m_rules.Export(); });
  m_cancel = AddButton("cmdSubjectClose", "&Close", [this] { m_session.CloseSubjects(); });
  m_cursor = m_grdSubjects;
  connect(m_txtSubjectFilter, &QLineEdit::textEdited, this,
          [this](const QString& text) { Act([&] { m_rules.SetFilter(FromQt(text)); }); });
  ShowState();
}

QWidget* SubjectsPanel::MakeTable() {
  auto* side = new QWidget;
  auto* rows = new QVBoxLayout(side);
  rows->setContentsMargins({});
  auto* filter = new QHBoxLayout;
  QLabel* label = MakeLabel("lblSubjectFilter", "F&ilter:", m_txtSubjectFilter);
  label->setWordWrap(false);
  filter->addWidget(label);
  filter->addWidget(m_txtSubjectFilter, 1);
  m_txtSubjectFilter->setPlaceholderText("text, or column: text; ...");
  m_txtSubjectFilter->setClearButtonEnabled(true);
  rows->addLayout(filter);
  rows->addWidget(m_grdSubjects, 1);
  rows->addWidget(m_fraSubjectQuestion = MakeQuestion());
  m_grdSubjects->setModel(m_model);
  m_grdSubjects->setAccessibleName("Subjects");
  m_grdSubjects->setSelectionBehavior(QAbstractItemView::SelectRows);
  m_grdSubjects->setEditTriggers(QAbstractItemView::NoEditTriggers);
  m_grdSubjects->setTabKeyNavigation(false);
  m_grdSubjects->setWordWrap(false);
  m_grdSubjects->verticalHeader()->hide();
  m_grdSubjects->verticalHeader()->setDefaultSectionSize(fontMetrics().height() * 3 / 2);
  QHeaderView* header = m_grdSubjects->horizontalHeader();
  header->setHighlightSections(false);
  header->setSectionsClickable(true);
  header->setSortIndicatorShown(true);
  header->setResizeContentsPrecision(100);
  connect(header, &QHeaderView::sectionClicked, this,
          [this](int column) { Act([&] { m_rules.SortBy(static_cast<std::size_t>(column)); }); });
  connect(m_grdSubjects->selectionModel(), &QItemSelectionModel::selectionChanged, this, [this] {
    if (!m_isFilling) Act([this] { m_rules.Choose(ChosenLines(*m_grdSubjects)); });
  });
  // Not within the table's own event: it is filled again before the command ends.
  connect(m_grdSubjects, &QTableView::activated, this, [this] { QTimer::singleShot(0, this, &SubjectsPanel::Open); });
  AddTableKeys();
  return side;
}

void SubjectsPanel::AddTableKeys() {
  const auto add = [this](const QKeySequence& key, const std::function<void()>& act) {
    auto* action = new QAction(m_grdSubjects);
    action->setShortcut(key);
    action->setShortcutContext(Qt::WidgetShortcut);
    connect(action, &QAction::triggered, this, act);
    m_grdSubjects->addAction(action);
  };
  add(QKeySequence::Copy, [this] { Copy(); });
  add(Qt::Key_F2, [this] { m_cmdSubjectRename->click(); });
  add(Qt::Key_Delete, [this] { m_cmdSubjectRemove->click(); });
  add(Qt::CTRL | Qt::Key_S, [this] {
    const int column = m_grdSubjects->currentIndex().column();
    if (column >= 0) Act([&] { m_rules.SortBy(static_cast<std::size_t>(column)); });
  });
}

QWidget* SubjectsPanel::MakeActs() {
  auto* acts = new QWidget;
  auto* rows = new QVBoxLayout(acts);
  rows->setContentsMargins({});
  const auto add = [&](const char* name, const char* caption, std::function<void()> act) {
    QPushButton* button = MakeActButton(name, caption, std::move(act));
    rows->addWidget(button);
    return button;
  };
  m_cmdSubjectOpen = add("cmdSubjectOpen", "Ope&n", [this] { m_session.OpenChosenSubject(); });
  m_cmdSubjectLevels = add("cmdSubjectLevels", "Change Le&vels", [this] { m_rules.AskLevels(); });
  m_cmdSubjectRename = add("cmdSubjectRename", "&Rename", [this] { m_rules.AskName(); });
  m_cmdSubjectRemove = add("cmdSubjectRemove", "Re&move", [this] { m_rules.Remove(); });
  m_cmdSubjectBack = add("cmdSubjectBack", "&Bring Back", [this] { m_rules.BringBack(); });
  m_cmdSubjectCompare = add("cmdSubjectCompare", "&Settle", [this] { m_session.CompareChosenSubject(); });
  add("cmdSubjectSample", "Dra&w Sample", [this] { m_rules.AskSample(); });
  add("cmdCompareReport", "A&greement...", [this] { m_rules.SaveReport(); });
  rows->addStretch(1);
  return m_acts = acts;
}

QWidget* SubjectsPanel::MakeQuestion() {
  auto* question = Named(new QWidget, "fraSubjectQuestion");
  auto* rows = new QVBoxLayout(question);
  rows->setContentsMargins({});
  rows->addWidget(m_lblSubjectQuestion = MakeLabel("lblSubjectQuestion", {}));
  m_txtSubjectName = Named(new QLineEdit, "txtSubjectName");
  FitBox(m_txtSubjectName, 20);
  m_txtSubjectName->setAccessibleName("New identifier or percentage");
  connect(m_txtSubjectName, &QLineEdit::textEdited, this, [this](const QString& text) {
    m_rules.SetNewName(FromQt(text));
    ShowText(m_txtSubjectName, m_rules.NewName());
  });
  rows->addWidget(m_txtSubjectName);
  m_levelRows = new QGridLayout;
  rows->addLayout(m_levelRows);
  auto* buttons = new QHBoxLayout;
  buttons->addWidget(MakeActButton("cmdSubjectDone", "&Done!", [this] { m_rules.Answer(); }));
  buttons->addWidget(MakeActButton("cmdSubjectKeep", "Cance&l", [this] { m_rules.CancelQuestion(); }));
  buttons->addStretch(1);
  rows->addLayout(buttons);
  return question;
}

bool SubjectsPanel::IsAsking() const { return m_rules.Asked() != SubjectsScreen::Question::None; }

bool SubjectsPanel::IsAskingText() const {
  return m_rules.Asked() == SubjectsScreen::Question::Name || m_rules.Asked() == SubjectsScreen::Question::Sample;
}

void SubjectsPanel::Open() {
  Act([this] { m_session.OpenChosenSubject(); });
}

void SubjectsPanel::Copy() {
  Act([this] { QGuiApplication::clipboard()->setText(ToQt(m_rules.Copy())); });
}

void SubjectsPanel::PlaceCursor() {
  if (IsAskingText()) {
    PlaceCursorIn(m_txtSubjectName);
  } else if (m_rules.Asked() == SubjectsScreen::Question::Levels && !m_cboLevels.empty()) {
    PlaceCursorIn(m_cboLevels.front());
  } else {
    PlaceCursorIn(m_grdSubjects);
  }
}

// Of the keys that the control with the focus has no use for, Enter and Escape answer a question. Down leads from the
// filter to the table.
void SubjectsPanel::keyPressEvent(QKeyEvent* event) {
  const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  if (IsAsking() && isEnter) return Act([this] { m_rules.Answer(); });
  if (IsAsking() && event->key() == Qt::Key_Escape) return Act([this] { m_rules.CancelQuestion(); });
  const bool leavesFilter = isEnter || event->key() == Qt::Key_Down;
  if (leavesFilter && m_txtSubjectFilter->hasFocus()) return m_grdSubjects->setFocus();
  Panel::keyPressEvent(event);
}

void SubjectsPanel::FollowTable() {
  const int column = std::max(0, m_grdSubjects->currentIndex().column());
  const int columns = m_model->columnCount({});
  const QScopedValueRollback<bool> filling(m_isFilling, true);
  if (!m_model->Follow()) return;
  const std::vector<std::size_t> lines = m_rules.ChosenLines();
  SelectLines(*m_grdSubjects, lines);
  if (!lines.empty()) {
    const QModelIndex first = m_model->index(static_cast<int>(lines.front()), column);
    m_grdSubjects->selectionModel()->setCurrentIndex(first, QItemSelectionModel::NoUpdate);
    m_grdSubjects->scrollTo(first);
  }
  const SubjectTable& table = m_rules.Table();
  m_grdSubjects->horizontalHeader()->setSortIndicator(static_cast<int>(table.SortColumn()),
                                                      table.IsDescending() ? Qt::DescendingOrder : Qt::AscendingOrder);
  if (columns == m_model->columnCount({}) && m_grdSubjects->columnWidth(0) > 0 && table.RowCount() == 0) return;
  m_grdSubjects->resizeColumnsToContents();
}

void SubjectsPanel::ShowLevels() {
  const ProjectParameters* project = m_session.OpenedProject();
  const auto count = static_cast<std::size_t>(project ? project->VariableCount : 0);
  while (m_cboLevels.size() < count) {
    const std::size_t v = m_cboLevels.size();
    const std::string number = std::to_string(v + 1);
    auto* choices = Named(new QComboBox, ("cboSubjectLevel" + number).c_str());
    connect(choices, &QComboBox::activated, this, [this, v](int level) { m_rules.ChooseLevel(v, level); });
    QLabel* label = MakeLabel(("lblSubjectLevel" + number).c_str(), {}, choices);
    constexpr int kRows = 5;
    const int row = static_cast<int>(v) % kRows;
    const int column = static_cast<int>(v) / kRows * 2;
    m_levelRows->addWidget(label, row, column);
    m_levelRows->addWidget(choices, row, column + 1);
    m_lblLevels.push_back(label);
    m_cboLevels.push_back(choices);
  }
  for (std::size_t v = 0; v < m_cboLevels.size(); ++v) {
    const bool isShown = v < count && m_rules.Asked() == SubjectsScreen::Question::Levels;
    m_lblLevels[v]->setVisible(isShown);
    m_cboLevels[v]->setVisible(isShown);
    if (!isShown) continue;
    m_lblLevels[v]->setText(ToQt(project->VariableNames[v]).replace('&', "&&") + ":");
    QStringList names;
    for (const std::string& name : m_rules.LevelChoices(v)) names.append(ToQt(name));
    m_cboLevels[v]->clear();
    m_cboLevels[v]->addItems(names);
    m_cboLevels[v]->setCurrentIndex(m_rules.ChosenLevel(v));
  }
}

void SubjectsPanel::ShowQuestion() {
  const bool isAsking = IsAsking();
  m_lblSubjectQuestion->setText(ToQt(m_rules.QuestionText()));
  m_txtSubjectName->setVisible(IsAskingText());
  ShowText(m_txtSubjectName, m_rules.NewName());
  if (isAsking != m_wasAsking) ShowLevels();
  m_fraSubjectQuestion->setVisible(isAsking);
  m_acts->setEnabled(!isAsking);
  m_grdSubjects->setEnabled(!isAsking);
  m_txtSubjectFilter->setEnabled(!isAsking);
  if (isAsking == m_wasAsking) return;
  m_wasAsking = isAsking;
  if (isVisible()) PlaceCursor();
}

void SubjectsPanel::ShowState() {
  m_lblSubjectsStatus->setText(ToQt(m_rules.StatusLine()));
  ShowText(m_txtSubjectFilter, m_rules.Table().Filter());
  FollowTable();
  m_cmdSubjectOpen->setEnabled(m_rules.ToOpen() != nullptr);
  m_cmdSubjectLevels->setEnabled(m_rules.MayChangeLevels());
  m_cmdSubjectRename->setEnabled(m_rules.MayRename());
  m_cmdSubjectRemove->setEnabled(m_rules.MayRemove());
  m_cmdSubjectBack->setEnabled(m_rules.MayBringBack());
  m_cmdSubjectCompare->setEnabled(m_rules.ToCompare() != nullptr);
  ShowQuestion();
}

}  // namespace zova
