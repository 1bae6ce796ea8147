// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/screens/ImportPanel.h"

#include <QComboBox>
#include <QKeyEvent>
#include <QListWidget>
#include <QScrollArea>
#include <QSignalBlocker>
#include <QSplitter>
#include <QStackedWidget>
#include <QVBoxLayout>

#include "app/widgets/ChoiceForm.h"
#include "app/widgets/Controls.h"
#include "app/widgets/TextTable.h"
#include "session/Session.h"

namespace zova {

using Stage = ImportFlow::Stage;

namespace {

constexpr const char* kAllRows = "(all rows)";

}  // namespace

ImportPanel::ImportPanel(Session& session)
    : Panel("fraImport"),
      m_session(session),
      m_flow(session.Imports()),
      m_pages(Named(new QStackedWidget, "staImport")),
      m_lblImportTold(MakeLabel("lblImportTold", {})),
      m_lblProposal(MakeLabel("lblProposal", {})),
      m_lstImportVariables(Named(new QListWidget, "lstImportVariables")),
      m_lblTable(MakeLabel("lblTable", {})),
      m_howRead(new ChoiceForm("fraHowRead", [this](const std::string& name,
                                                    int answer) { Act([&] { m_flow.ChooseHowRead(name, answer); }); })),
      m_grdColumns(new TextTable("grdColumns", {{"Column"}, {"Used As"}, {"First Values"}},
                                 [this](int row, int column) {
                                   if (column == 0) return m_flow.ColumnName(row);
                                   return column == 1 ? m_uses[static_cast<std::size_t>(m_flow.ColumnUse(row))]
                                                      : m_flow.ColumnSample(row);
                                 })),
      m_cboColumnUse(Named(new QComboBox, "cboColumnUse")),
      m_cboFilter(Named(new QComboBox, "cboFilter")),
      m_txtFilterValue(Named(new QLineEdit, "txtFilterValue")),
      m_lblColumnNotes(MakeLabel("lblColumnNotes", {})),
      m_lblImportWords(MakeLabel("lblImportWords", {})),
      m_lblReview(MakeLabel("lblReview", {})),
      m_grdReview(new TextTable("grdReview",
                                {{"Response"}, {"Count", true}, {"Item"}, {"Word"}, {"Distance", true}, {"Subject"}},
                                [this](int row, int column) { return m_flow.Review().Text(row, column); })),
      m_txtReviewItem(Named(new QLineEdit, "txtReviewItem")),
      m_choices(new ChoiceForm("fraImportChoices", [this](const std::string& name,
                                                          int answer) { Act([&] { m_flow.Choose(name, answer); }); })),
      m_grdDryRun(new TextTable("grdDryRun",
                                {{"What"}, {"Count", true}, {"Row", true}, {"Column"}, {"Subject"}, {"Test"}, {"Text"}},
                                [this](int row, int column) { return m_flow.DryRunText(row, column); })) {
  AddTitle("lblImportTitle", "Import Recalls");
  AddProjectName();
  AddContent(m_pages, 1);
  for (QWidget* page : {MakeProjectPage(), MakeProposalPage(), MakeTablePage(), MakeReviewPage(), MakeDryRunPage()}) {
    m_pages->addWidget(page);
  }
  m_grdColumns->setAccessibleName("Columns");
  m_grdReview->setAccessibleName("Responses");
  m_grdDryRun->setAccessibleName("Dry Run");
  AddButtons();
}

void ImportPanel::DecideRows(const std::function<void(const std::vector<int>& rows)>& decide) {
  const std::vector<int> rows = m_grdReview->ChosenRows();
  if (rows.empty()) return;
  decide(rows);
  const auto next = m_flow.Review().NextOpen(rows.back());
  if (next) m_grdReview->GoToRow(*next);
}

void ImportPanel::Assign() {
  Act([this] {
    const std::string fault = m_flow.Review().Assign(m_grdReview->ChosenRows(), FromQt(m_txtReviewItem->text()));
    m_lblImportTold->setText(ToQt(fault));
    if (!fault.empty()) return m_txtReviewItem->selectAll();
    m_txtReviewItem->clear();
    if (const auto next = m_flow.Review().NextOpen(m_grdReview->CurrentRow())) m_grdReview->GoToRow(*next);
    m_grdReview->setFocus();
  });
}

// The letters of the buttons act without Alt in the table; a digit begins another item.
bool ImportPanel::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::KeyPress) return Panel::eventFilter(watched, event);
  const auto* press = static_cast<QKeyEvent*>(event);
  if (watched == m_txtReviewItem) {
    const bool isEnter = press->key() == Qt::Key_Return || press->key() == Qt::Key_Enter;
    if (!isEnter || m_txtReviewItem->text().isEmpty()) return Panel::eventFilter(watched, event);
    Assign();
    return true;
  }
  if (press->matches(QKeySequence::Undo)) return m_cmdReviewUndo->click(), true;
  if ((press->modifiers() & ~(Qt::KeypadModifier | Qt::ShiftModifier)) != 0) return Panel::eventFilter(watched, event);
  switch (press->key()) {
    case Qt::Key_K: return m_cmdReviewTake->click(), true;
    case Qt::Key_I: return findChild<QPushButton*>("cmdReviewIntrusion")->click(), true;
    case Qt::Key_S: return findChild<QPushButton*>("cmdReviewSkip")->click(), true;
    case Qt::Key_D: return m_cmdReviewNear->click(), true;
    case Qt::Key_U: return m_cmdReviewUndo->click(), true;
    default: break;
  }
  if (press->text().isEmpty() || !press->text().front().isDigit()) return Panel::eventFilter(watched, event);
  m_txtReviewItem->setText(press->text());
  m_txtReviewItem->setFocus();
  return true;
}

void ImportPanel::ShowProposal() {
  m_lblProposal->setText(ToQt(m_flow.ProposalText()));
  if (m_proposalRevision == m_flow.Revision()) return;
  m_proposalRevision = m_flow.Revision();
  const QSignalBlocker quiet(m_lstImportVariables);
  m_lstImportVariables->clear();
  for (std::size_t offer = 0; offer < m_flow.Proposal().Variables.size(); ++offer) {
    const VariableOffer& variable = m_flow.Proposal().Variables[offer];
    QStringList levels;
    for (const std::string& level : variable.Levels) levels.append(ToQt(level));
    auto* item = new QListWidgetItem(ToQt(variable.Name) + ": " + levels.join(", "), m_lstImportVariables);
    item->setFlags(item->flags() | Qt::ItemIsUserCheckable);
    item->setCheckState(m_flow.IsVariable(offer) ? Qt::Checked : Qt::Unchecked);
  }
  m_lstImportVariables->setCurrentRow(0);  // which Space then ticks
}

void ImportPanel::FillFilter() {
  const RowFilter none;
  const auto& where = m_flow.Draft().Options.Table.Where;
  const RowFilter& filter = where.empty() ? none : where.front();
  QStringList columns = {kAllRows};
  for (int column = 0; column < m_flow.ColumnCount(); ++column) columns.append(ToQt(m_flow.ColumnName(column)));
  m_cboFilter->clear();
  m_cboFilter->addItems(columns);
  m_cboFilter->setCurrentIndex(where.empty() ? 0 : static_cast<int>(columns.indexOf(ToQt(filter.Column))));
  if (!m_txtFilterValue->hasFocus()) ShowText(m_txtFilterValue, filter.Value);
  m_txtFilterValue->setEnabled(m_cboFilter->currentIndex() > 0);
}

void ImportPanel::TakeFilter() {
  m_txtFilterValue->setEnabled(m_cboFilter->currentIndex() > 0);
  const std::string column = m_cboFilter->currentIndex() > 0 ? FromQt(m_cboFilter->currentText()) : std::string();
  const std::string value = FromQt(m_txtFilterValue->text());
  if (!column.empty() && value.empty()) return m_txtFilterValue->setFocus();
  const auto& where = m_flow.Draft().Options.Table.Where;
  if (column.empty() ? where.empty() : where == std::vector<RowFilter>{{column, value}}) return;
  Act([&] { m_flow.SetFilter(column, value); });
}

void ImportPanel::ShowUse() {
  if (m_flow.CurrentStage() != Stage::Table || m_grdColumns->CurrentRow() < 0) return;
  const QSignalBlocker quiet(m_cboColumnUse);
  m_cboColumnUse->setCurrentIndex(m_flow.ColumnUse(m_grdColumns->CurrentRow()));
}

void ImportPanel::ShowTable() {
  m_lblTable->setText(ToQt(m_flow.TableLine()));
  m_howRead->Show(m_flow.HowRead());
  const std::vector<std::string> uses = m_flow.Uses();
  if (uses != m_uses) {
    m_uses = uses;
    m_cboColumnUse->clear();
    for (const std::string& use : m_uses) m_cboColumnUse->addItem(ToQt(use));
  }
  m_grdColumns->Show(m_flow.ColumnCount(), m_flow.Revision());
  const QString notes = ToQt(m_flow.ColumnNotes());
  m_lblColumnNotes->setText(notes);
  m_lblColumnNotes->setVisible(!notes.isEmpty());
  m_lblImportWords->setText(ToQt(m_flow.WordsLine()));
  for (QWidget* control : {static_cast<QWidget*>(m_lblImportWords), static_cast<QWidget*>(m_cmdImportWords)}) {
    control->setVisible(m_flow.IsNew());
  }
  FillFilter();
  ShowUse();
}

void ImportPanel::ShowReview() {
  if (m_flow.CurrentStage() != Stage::Review) return;
  ImportReview& review = m_flow.Review();
  m_lblReview->setText(ToQt(m_flow.ReviewLine()));
  m_grdReview->Show(review.RowCount(), review.Revision());
  const int row = m_grdReview->CurrentRow();
  m_cmdReviewTake->setEnabled(row >= 0 && review.HasProposal(row));
  m_cmdReviewNear->setEnabled(review.NearCount() > 0);
  m_cmdReviewUndo->setEnabled(review.CanUndo());
}

void ImportPanel::ShowDryRun() {
  m_choices->Show(m_flow.Choices());
  m_grdDryRun->Show(m_flow.DryRunRows(), m_flow.Revision());
}

void ImportPanel::ShowState() {
  const Stage stage = m_flow.CurrentStage();
  if (stage == Stage::Closed) {  // the tables' rows are gone
    m_grdColumns->Show(0, m_flow.Revision());
    m_grdDryRun->Show(0, m_flow.Revision());
  }
  if (stage == Stage::Closed || stage == Stage::Writing) return;
  m_pages->setCurrentIndex(static_cast<int>(stage) - static_cast<int>(Stage::Project));
  m_lblImportTold->setText(ToQt(stage == Stage::DryRun ? m_flow.DryRunLine() : m_flow.TableTold()));
  m_cmdImportReport->setVisible(stage == Stage::DryRun);
  m_cmdImportRun->setVisible(stage == Stage::DryRun);
  m_cmdImportRun->setEnabled(m_flow.MayImport());
  m_cmdImportBack->setVisible(m_flow.CanGoBack());
  m_cmdImportNext->setVisible(stage != Stage::Project && stage != Stage::DryRun);
  m_cmdImportNext->setEnabled(stage == Stage::Proposal || m_flow.CanGoNext());
  for (QPushButton* button : {m_cmdImportNext, m_cmdImportRun, m_cmdImportNew}) {
    MarkDefault(button, button == DefaultButton());
  }
  switch (stage) {
    case Stage::Proposal: return ShowProposal();
    case Stage::Table: return ShowTable();
    case Stage::Review: return ShowReview();
    case Stage::DryRun: return ShowDryRun();
    default: return;
  }
}

QPushButton* ImportPanel::DefaultButton() const {
  switch (m_flow.CurrentStage()) {
    case Stage::Project: return nullptr;
    case Stage::DryRun: return m_cmdImportRun;
    default: return m_cmdImportNext;
  }
}

int ImportPanel::CursorRevision() const { return static_cast<int>(m_flow.CurrentStage()); }

void ImportPanel::PlaceCursor() {
  switch (m_flow.CurrentStage()) {
    case Stage::Project: m_cursor = findChild<QPushButton*>("cmdImportOpen"); break;
    case Stage::Proposal: m_cursor = m_lstImportVariables; break;
    case Stage::Table: m_cursor = m_grdColumns; break;
    case Stage::Review: m_cursor = m_grdReview; break;
    default: m_cursor = m_grdDryRun; break;
  }
  Panel::PlaceCursor();
}

}  // namespace zova
