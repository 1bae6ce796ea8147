// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/screens/MeansPanel.h"

#include <QAction>
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLineEdit>
#include <QListWidget>
#include <QScrollArea>
#include <QSplitter>
#include <QTableView>
#include <algorithm>

#include "app/plots/PlotFile.h"
#include "app/plots/PlotView.h"
#include "app/screens/MeansModel.h"
#include "app/screens/PlotOptionsDialog.h"
#include "app/widgets/Controls.h"
#include "session/Session.h"

namespace zova {

namespace {

// Its headings can have the cursor, but they are no choice: the one that is there stays.
class MeasureList final : public QListWidget {
 protected:
  QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex& index, const QEvent* event) const override {
    const bool isHeading = index.isValid() && (index.flags() & Qt::ItemIsSelectable) == 0;
    return isHeading ? QItemSelectionModel::NoUpdate : QListWidget::selectionCommand(index, event);
  }
};

}  // namespace

MeansPanel::MeansPanel(Session& session)
    : Panel("fraMeans"),
      m_session(session),
      m_rules(session.Means()),
      m_lblMeansFile(MakeLabel("lblMeansFile", {})),
      m_lblMeansNote(MakeLabel("lblMeansNote", {})),
      m_lblMeansStatus(MakeLabel("lblMeansStatus", {})),
      m_txtFilter(Named(new QLineEdit, "txtFilter")),
      m_lstMeasures(Named(new MeasureList, "lstMeasures")),
      m_lstMeansVariables(Named(new QListWidget, "lstMeansVariables")),
      m_chkMeansLeaveOut(Named(new QCheckBox("&Leave out values that could not be computed"), "chkMeansLeaveOut")),
      m_chkMeansMore(Named(new QCheckBox("More Stat&istics"), "chkMeansMore")),
      m_cboPlot(Named(new QComboBox, "cboPlot")),
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
          [this] { Act([this] { m_rules.ChooseVariables(ChosenVariables()); }); });
  connect(m_chkMeansLeaveOut, &QCheckBox::clicked, this,
          [this](bool checked) { Act([this, checked] { m_rules.SetLeavesOut(checked); }); });
  connect(m_chkMeansMore, &QCheckBox::clicked, this,
          [this](bool checked) { Act([this, checked] { m_rules.SetMore(checked); }); });
  connect(m_cboPlot, &QComboBox::activated, this,
          [this](int index) { Act([this, index] { m_rules.SetPlotShown(static_cast<PlotShown>(index)); }); });
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
  results->addWidget(MakePlot());
  results->setStretchFactor(0, 2);
  results->setStretchFactor(1, 3);
  results->setSizes({fontMetrics().height() * 10, fontMetrics().height() * 20});
  return results;
}

QWidget* MeansPanel::MakePlot() {
  auto* plot = new QWidget;
  auto* plotRows = new QVBoxLayout(plot);
  plotRows->setContentsMargins({});
  for (const char* shown : {"Means", "Raster"}) m_cboPlot->addItem(shown);
  for (const char* bars : {"95 % Confidence Interval", "Standard Error", "95 % Within Subjects", "None"}) {
    m_cboBars->addItem(bars);
  }
  m_cboBars->setMinimumWidth(fontMetrics().averageCharWidth() * 16);  // of a small window
  auto* choices = new QHBoxLayout;
  choices->addWidget(MakeLabel("lblPlot", "&Kind:", m_cboPlot));
  choices->addWidget(m_cboPlot);
  choices->addWidget(MakeLabel("lblBars", "Bars &Drawn:", m_cboBars));
  choices->addWidget(m_cboBars);
  choices->addStretch();
  m_cmdPlotOptions = MakeButton("cmdPlotOptions", "Plot Optio&ns...");
  connect(m_cmdPlotOptions, &QPushButton::clicked, this, &MeansPanel::AskPlotOptions);
  choices->addWidget(m_cmdPlotOptions);
  plotRows->addLayout(choices);
  plotRows->addWidget(MakeScrolling(m_plotMeans), 1);
  plotRows->addWidget(m_lblPlotNote);
  return plot;
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

void MeansPanel::AskPlotOptions() {
  const auto answer = [this](const PlotAnswers& answers) {
    bool isDone = false;
    Act([&] { isDone = m_rules.Answer(answers); });
    return isDone;
  };
  PlotOptionsDialog dialog(
      m_rules.Answers(), m_rules.Shown(), answer, [this] { m_session.ShowPlotHelp(); }, this);
  dialog.exec();
}

void MeansPanel::SavePlot() {
  const auto target = m_rules.AskPlotFile(PlotFormats());
  if (!target) return;
  Act([&] { m_rules.SavePlot(*target, RenderPicture(m_rules.Picture(), target->Format).toStdString()); });
}

void MeansPanel::SaveReport() {
  const auto path = m_rules.AskReportFile();
  if (!path) return;
  Act([&] { m_session.SaveReport(*path, DrawnFigure); });
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
  const bool isRaster = m_rules.Shown() == PlotShown::Raster;
  m_cboPlot->setCurrentIndex(static_cast<int>(m_rules.Shown()));
  m_cboPlot->setEnabled(m_rules.CanRaster());
  m_cboBars->setCurrentIndex(static_cast<int>(m_rules.Bars()));
  m_cboBars->setEnabled(!isRaster);
  m_cmdPlotOptions->setEnabled(m_rules.HasPlot());
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
