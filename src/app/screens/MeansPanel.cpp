// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/screens/MeansPanel.h"

#include <QAction>
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QFont>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QItemSelectionModel>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListWidget>
#include <QMouseEvent>
#include <QScrollArea>
#include <QSignalBlocker>
#include <QSplitter>
#include <QTableView>
#include <algorithm>

#include "app/plots/PlotView.h"
#include "app/screens/MeansModel.h"
#include "app/widgets/Controls.h"
#include "session/Session.h"

namespace zova {

namespace {

std::vector<std::size_t> ChosenRows(const QListWidget& list) {
  std::vector<std::size_t> rows;
  for (int row = 0; row < list.count(); ++row) {
    if (list.item(row)->isSelected()) rows.push_back(static_cast<std::size_t>(row));
  }
  return rows;
}

void Choose(QListWidget& list, const std::vector<std::size_t>& rows) {
  if (ChosenRows(list) == rows) return;
  const QSignalBlocker quiet(&list);
  SelectLines(list, rows);
}

// Home: the first line in sight; End: the last one.
void GoToEnd(QListWidget& list, Qt::Key key, QItemSelectionModel::SelectionFlags choice) {
  const int count = list.count();
  for (int step = 0; step < count; ++step) {
    const int row = key == Qt::Key_Home ? step : count - 1 - step;
    if (!list.item(row)->isHidden()) return list.setCurrentRow(row, choice);
  }
}

void Fill(QListWidget& list, const std::vector<std::string>& texts) {
  const QSignalBlocker quiet(&list);
  list.clear();
  for (const std::string& text : texts) list.addItem(ToQt(text));
  list.setCurrentRow(0, QItemSelectionModel::NoUpdate);
}

}  // namespace

MeansPanel::MeansPanel(Session& session)
    : Panel("fraMeans"),
      m_session(session),
      m_rules(session.Means()),
      m_lblMeansFile(MakeLabel("lblMeansFile", {})),
      m_lblMeansNote(MakeLabel("lblMeansNote", {})),
      m_lblMeansStatus(MakeLabel("lblMeansStatus", {})),
      m_txtFilter(Named(new QLineEdit, "txtFilter")),
      m_lstMeasures(Named(new QListWidget, "lstMeasures")),
      m_lstMeansVariables(Named(new QListWidget, "lstMeansVariables")),
      m_chkMeansLeaveOut(Named(new QCheckBox("&Leave out values that could not be computed"), "chkMeansLeaveOut")),
      m_chkMeansMore(Named(new QCheckBox("More Stat&istics"), "chkMeansMore")),
      m_cboBars(Named(new QComboBox, "cboBars")),
      m_grdMeans(Named(new QTableView, "grdMeans")),
      m_model(new MeansModel(m_rules, this)),
      m_plotMeans(new PlotView("plotMeans")),
      m_lblMeansEffects(MakeLabel("lblMeansEffects", {})),
      m_lblPlotNote(MakeLabel("lblPlotNote", {})) {
  AddTitle("lblMeansTitle", "Examine Means");
  AddProjectName();
  // Outside of what scrolls: text that wraps would make the scrolling page as high as it would like to be.
  for (QLabel* line : {m_lblMeansFile, m_lblMeansNote}) AddContent(line);
  auto* sides = Named(new QSplitter(Qt::Horizontal), "splMeans");
  sides->setChildrenCollapsible(false);
  sides->addWidget(MakeChoices());
  sides->addWidget(MakeResults());
  sides->setStretchFactor(1, 1);
  sides->setSizes({fontMetrics().averageCharWidth() * 36, fontMetrics().averageCharWidth() * 100});
  AddContent(MakeScrolling(sides), 1);
  AddButtons();
  m_cursor = m_lstMeasures;
  connect(m_lstMeasures, &QListWidget::itemSelectionChanged, this,
          [this] { Act([this] { m_rules.ChooseMeasures(ChosenMeasures()); }); });
  connect(m_lstMeasures, &QListWidget::itemDoubleClicked, this,
          [this] { Act([this] { m_rules.ChooseWholeSeries(); }); });
  connect(m_lstMeansVariables, &QListWidget::itemSelectionChanged, this,
          [this] { Act([this] { m_rules.ChooseVariables(ChosenRows(*m_lstMeansVariables)); }); });
  connect(m_chkMeansLeaveOut, &QCheckBox::clicked, this,
          [this](bool checked) { Act([this, checked] { m_rules.SetLeavesOut(checked); }); });
  connect(m_chkMeansMore, &QCheckBox::clicked, this,
          [this](bool checked) { Act([this, checked] { m_rules.SetMore(checked); }); });
  connect(m_cboBars, &QComboBox::activated, this,
          [this](int index) { Act([this, index] { m_rules.SetBars(static_cast<PlotBars>(index)); }); });
}

QWidget* MeansPanel::MakeChoices() {
  auto* choices = new QWidget;
  auto* rows = new QVBoxLayout(choices);
  rows->setContentsMargins({});
  m_lstMeasures->setSelectionMode(QAbstractItemView::ExtendedSelection);
  m_lstMeansVariables->setSelectionMode(QAbstractItemView::MultiSelection);
  for (QListWidget* list : {m_lstMeasures, m_lstMeansVariables}) {
    list->setUniformItemSizes(true);
    list->setTextElideMode(Qt::ElideNone);  // the distinguishing part is at the end
    list->setMinimumSize(list->fontMetrics().averageCharWidth() * 26, list->fontMetrics().lineSpacing() * 5);
  }
  rows->addWidget(MakeLabel("lblMeasures", "&Measures:", m_lstMeasures));
  rows->addWidget(m_txtFilter);
  rows->addWidget(m_lstMeasures, 3);
  m_lstMeasures->installEventFilter(this);
  m_lstMeasures->viewport()->installEventFilter(this);
  m_txtFilter->setPlaceholderText("Filter");
  m_txtFilter->setAccessibleName("Filter");
  m_txtFilter->setClearButtonEnabled(true);
  connect(m_txtFilter, &QLineEdit::textChanged, this, &MeansPanel::ShowFiltered);
  m_cmdMeansFamily = MakeActButton("cmdMeansFamily", "&Whole Series", [this] { m_rules.ChooseWholeSeries(); });
  rows->addWidget(m_cmdMeansFamily);
  rows->addWidget(MakeLabel("lblMeansVariables", "&Variables:", m_lstMeansVariables));
  rows->addWidget(m_lstMeansVariables, 1);
  return choices;
}

QWidget* MeansPanel::MakeResults() {
  auto* results = Named(new QSplitter(Qt::Vertical), "splMeansResults");
  results->setChildrenCollapsible(false);
  auto* table = new QWidget;
  auto* rows = new QVBoxLayout(table);
  rows->setContentsMargins({});
  auto* choices = new QHBoxLayout;
  choices->addWidget(m_chkMeansLeaveOut);
  choices->addWidget(m_chkMeansMore);
  choices->addStretch();
  rows->addLayout(choices);
  rows->addWidget(m_grdMeans, 1);
  m_grdMeans->setModel(m_model);
  m_grdMeans->setAccessibleName("Means");
  m_grdMeans->setTabKeyNavigation(false);
  m_grdMeans->verticalHeader()->hide();
  m_grdMeans->verticalHeader()->setDefaultSectionSize(fontMetrics().height() * 3 / 2);
  m_grdMeans->horizontalHeader()->setHighlightSections(false);
  m_grdMeans->horizontalHeader()->setTextElideMode(Qt::ElideRight);
  m_grdMeans->horizontalHeader()->setResizeContentsPrecision(100);
  m_grdMeans->setMinimumHeight(fontMetrics().height() * 7);
  auto* copy = new QAction(m_grdMeans);
  copy->setShortcut(QKeySequence::Copy);
  copy->setShortcutContext(Qt::WidgetShortcut);
  connect(copy, &QAction::triggered, this, [this] { Copy(); });
  m_grdMeans->addAction(copy);
  rows->addWidget(m_lblMeansEffects);
  results->addWidget(table);
  auto* plot = new QWidget;
  auto* plotRows = new QVBoxLayout(plot);
  plotRows->setContentsMargins({});
  for (const char* bars : {"95 % Confidence Interval", "Standard Error", "95 % Within Subjects", "None"}) {
    m_cboBars->addItem(bars);
  }
  auto* bars = new QHBoxLayout;
  bars->addWidget(MakeLabel("lblBars", "Bars &Drawn:", m_cboBars));
  bars->addWidget(m_cboBars);
  bars->addStretch();
  plotRows->addLayout(bars);
  plotRows->addWidget(m_plotMeans, 1);
  plotRows->addWidget(m_lblPlotNote);
  results->addWidget(plot);
  results->setStretchFactor(0, 2);
  results->setStretchFactor(1, 3);
  return results;
}

void MeansPanel::AddButtons() {
  AddStatus(m_lblMeansStatus);
  AddButton("cmdMeansOpen", "Open Maste&r...", [this] { m_rules.ChooseMaster(); });
  m_cmdMeansCopy = AddButton("cmdMeansCopy", "Cop&y Table", [this] { Copy(); });
  m_cmdMeansSave = AddButton("cmdMeansSave", "Save Ta&ble...", [this] { m_rules.SaveTable(); });
  m_cmdPlotSave = AddButton("cmdPlotSave", "Sav&e Plot...", [this] { SavePlot(); });
  m_cmdReport = AddButton("cmdReport", "&Save Report...", [this] { SaveReport(); });
  m_cancel = AddButton("cmdMeansClose", "&Close", [this] { m_session.CloseMeans(); });
}

void MeansPanel::Copy() {
  Act([this] { QGuiApplication::clipboard()->setText(ToQt(m_rules.CopyTable())); });
}

void MeansPanel::SavePlot() {
  const auto target = m_rules.AskPlotFile(PlotFormats());
  if (!target) return;
  Act([&] { m_rules.SavePlot(*target, RenderPicture(m_rules.Picture(), target->Format).toStdString()); });
}

void MeansPanel::SaveReport() {
  const auto path = m_rules.AskReportFile();
  if (!path) return;
  Act([&] { m_session.SaveReport(*path, DrawnSvg); });
}

void MeansPanel::FillLists() {
  m_layoutRevision = m_rules.LayoutRevision();
  Fill(*m_lstMeasures, m_rules.Measures());
  AddHeadings();
  Fill(*m_lstMeansVariables, m_rules.Variables());
  const QSignalBlocker quiet(m_txtFilter);
  m_txtFilter->clear();
  ShowFiltered();
}

void MeansPanel::AddHeadings() {
  const QSignalBlocker quiet(m_lstMeasures);
  m_headings.clear();
  m_furtherTitle = nullptr;
  QFont bold;
  bold.setBold(true);
  for (const MeasureGroup& group : m_rules.FurtherGroups()) {
    auto* line = new QListWidgetItem;
    line->setFlags(Qt::ItemIsEnabled);  // the cursor can go there, but it is no measure
    line->setFont(bold);
    const int row = RowOf(group.First) - 1;
    if (m_furtherTitle == nullptr) {
      m_furtherTitle = new QListWidgetItem("Further measures");
      m_furtherTitle->setFlags(Qt::NoItemFlags);
      m_lstMeasures->insertItem(row - 1, m_furtherTitle);
    }
    m_lstMeasures->insertItem(row, line);
    m_headings.push_back({line, true});
  }
}

int MeansPanel::RowOf(std::size_t measure) const {
  const std::vector<MeasureGroup>& groups = m_rules.FurtherGroups();
  int row = static_cast<int>(measure) + (!groups.empty() && measure >= groups.front().First ? 1 : 0);  // the title
  for (const MeasureGroup& group : groups) row += measure >= group.First ? 1 : 0;
  return row;
}

std::vector<std::size_t> MeansPanel::ChosenMeasures() const {
  std::vector<std::size_t> measures;
  for (std::size_t measure = 0; measure < m_rules.Measures().size(); ++measure) {
    if (m_lstMeasures->item(RowOf(measure))->isSelected()) measures.push_back(measure);
  }
  return measures;
}

bool MeansPanel::Fold(const QListWidgetItem* line) {
  const auto heading =
      std::find_if(m_headings.begin(), m_headings.end(), [line](const Heading& known) { return known.Line == line; });
  if (heading == m_headings.end()) return false;
  heading->IsFolded = !heading->IsFolded;
  HideFiltered();
  return true;
}

// What is hidden stays chosen. The filter finds measures in folded groups, too.
void MeansPanel::HideFiltered() {
  const QString filter = m_txtFilter->text();
  const auto hide = [&](std::size_t measure, bool isFolded) {
    QListWidgetItem* item = m_lstMeasures->item(RowOf(measure));
    item->setHidden(filter.isEmpty() ? isFolded : !item->text().contains(filter, Qt::CaseInsensitive));
  };
  const std::vector<MeasureGroup>& groups = m_rules.FurtherGroups();
  const std::size_t further = groups.empty() ? m_rules.Measures().size() : groups.front().First;
  for (std::size_t measure = 0; measure < further; ++measure) hide(measure, false);
  if (m_furtherTitle != nullptr) m_furtherTitle->setHidden(!filter.isEmpty());
  for (std::size_t k = 0; k < groups.size(); ++k) {
    const auto& [line, isFolded] = m_headings[k];
    line->setHidden(!filter.isEmpty());
    line->setText((isFolded ? "\u25b8 " : "\u25be ") + ToQt(groups[k].Heading));
    for (std::size_t i = 0; i < groups[k].Count; ++i) hide(groups[k].First + i, isFolded);
  }
}

void MeansPanel::ShowFiltered() {
  HideFiltered();
  GoToEnd(*m_lstMeasures, Qt::Key_Home, QItemSelectionModel::NoUpdate);
}

// Qt's own keys would go to a line that is filtered out, and a click on a heading would drop the choice.
bool MeansPanel::eventFilter(QObject* watched, QEvent* event) {
  if (watched == m_lstMeasures->viewport()) {
    const bool isPress = event->type() == QEvent::MouseButtonPress || event->type() == QEvent::MouseButtonDblClick;
    return isPress && Fold(m_lstMeasures->itemAt(static_cast<QMouseEvent*>(event)->pos()));
  }
  if (event->type() != QEvent::KeyPress) return Panel::eventFilter(watched, event);
  const auto* press = static_cast<QKeyEvent*>(event);
  constexpr int kFoldingKeys[] = {Qt::Key_Space, Qt::Key_Return, Qt::Key_Enter, Qt::Key_Left, Qt::Key_Right};
  const bool folds =
      std::find(std::begin(kFoldingKeys), std::end(kFoldingKeys), press->key()) != std::end(kFoldingKeys);
  if (folds && Fold(m_lstMeasures->currentItem())) return true;
  const bool isEnd = press->key() == Qt::Key_Home || press->key() == Qt::Key_End;
  if (!isEnd || press->modifiers() != Qt::NoModifier) return false;
  GoToEnd(*m_lstMeasures, static_cast<Qt::Key>(press->key()), QItemSelectionModel::ClearAndSelect);
  return true;
}

void MeansPanel::ShowChosen() {
  std::vector<std::size_t> variables = m_rules.ChosenVariables();
  std::sort(variables.begin(), variables.end());
  std::vector<std::size_t> rows;
  for (const std::size_t measure : m_rules.ChosenMeasures()) rows.push_back(static_cast<std::size_t>(RowOf(measure)));
  Choose(*m_lstMeasures, rows);
  Choose(*m_lstMeansVariables, variables);
}

void MeansPanel::ShowState() {
  m_lblMeansFile->setText(ToQt(m_rules.FileLine()));
  m_lblMeansNote->setText(ToQt(m_rules.NoteLine()));
  m_lblMeansStatus->setText(ToQt(m_rules.StatusLine()));
  m_lblMeansNote->setVisible(!m_lblMeansNote->text().isEmpty());
  if (m_layoutRevision != m_rules.LayoutRevision()) FillLists();
  ShowChosen();
  m_chkMeansLeaveOut->setEnabled(m_rules.CanLeaveOut());
  m_chkMeansLeaveOut->setChecked(m_rules.LeavesOut());
  m_chkMeansMore->setChecked(m_rules.HasMore());
  m_cboBars->setCurrentIndex(static_cast<int>(m_rules.Bars()));
  m_lblMeansEffects->setText(ToQt(m_rules.EffectLines()));
  m_lblMeansEffects->setVisible(!m_rules.EffectLines().empty());
  m_cmdMeansFamily->setEnabled(!m_rules.ChosenMeasures().empty());
  const bool hasTable = m_rules.RowCount() > 0;
  m_cmdMeansCopy->setEnabled(hasTable);
  m_cmdMeansSave->setEnabled(hasTable);
  m_cmdPlotSave->setEnabled(m_rules.HasPlot());
  m_cmdReport->setEnabled(m_rules.CanReport());
  if (!m_model->Follow()) return;
  // What is hidden has no width.
  for (int column = 0; column < m_model->columnCount({}); ++column) m_grdMeans->setColumnHidden(column, false);
  m_grdMeans->resizeColumnsToContents();
  constexpr int kEms = 14;
  const int widest = kEms * fontMetrics().height();
  for (int column = 0; column < m_model->columnCount({}); ++column) {
    m_grdMeans->setColumnWidth(column, std::min(m_grdMeans->columnWidth(column), widest));
    const bool isUncomputed = column + 1 == m_model->columnCount({});
    m_grdMeans->setColumnHidden(column, isUncomputed && !m_rules.ShowsUncomputed());
  }
  m_plotMeans->ShowPicture(m_rules.Picture());
  // An empty plot shows its own explanation.
  m_lblPlotNote->setText(m_rules.HasPlot() ? ToQt(m_rules.Picture().Note) : QString());
  m_lblPlotNote->setVisible(!m_lblPlotNote->text().isEmpty());
}

}  // namespace zova
