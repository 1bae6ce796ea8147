// SPDX-License-Identifier: GPL-3.0-or-later
//
// The controls of the import's pages.

#include <QComboBox>
#include <QListWidget>
#include <QScrollArea>
#include <QSplitter>
#include <QVBoxLayout>

#include "app/screens/ImportPanel.h"
#include "app/widgets/ChoiceForm.h"
#include "app/widgets/Controls.h"
#include "app/widgets/TextTable.h"
#include "session/Session.h"

namespace zova {

using Stage = ImportFlow::Stage;

namespace {

// Rows of controls without margins.
QVBoxLayout* RowsOf(QWidget* page) {
  auto* rows = new QVBoxLayout(page);
  rows->setContentsMargins({});
  rows->setSpacing(kLabelGap);
  return rows;
}

QSplitter* MakeSides(QWidget* choices, QWidget* table) {
  auto* sides = new QSplitter(Qt::Horizontal);
  sides->setChildrenCollapsible(false);
  QScrollArea* scrolling = MakeScrolling(choices);
  scrolling->setMinimumWidth(choices->fontMetrics().averageCharWidth() * 30);
  sides->addWidget(scrolling);
  sides->addWidget(table);
  sides->setStretchFactor(1, 1);
  sides->setSizes({choices->fontMetrics().averageCharWidth() * 38, choices->fontMetrics().averageCharWidth() * 80});
  return sides;
}

}  // namespace

QWidget* ImportPanel::MakeProjectPage() {
  auto* page = new QWidget;
  QVBoxLayout* rows = RowsOf(page);
  rows->addWidget(MakeLabel("lblImportProject",
                            "Recalls go into a project.  Open the one to which they belong, or let a new one be made "
                            "from the table."));
  AddQuestionGap(*rows);
  auto* open = MakeActButton("cmdImportOpen", "Open Existin&g Project", [this] { m_session.ImportIntoExisting(); });
  m_cmdImportNew = MakeActButton("cmdImportNew", "&New Project From a Table", [this] { m_flow.ChooseNew(); });
  rows->addWidget(open, 0, Qt::AlignLeft);
  AddQuestionGap(*rows);
  rows->addWidget(m_cmdImportNew, 0, Qt::AlignLeft);
  rows->addStretch();
  return page;
}

QWidget* ImportPanel::MakeProposalPage() {
  auto* page = new QWidget;
  QVBoxLayout* rows = RowsOf(page);
  rows->addWidget(m_lblProposal);
  AddQuestionGap(*rows);
  rows->addWidget(MakeLabel("lblImportVariables", "Columns that are &variables of the project:", m_lstImportVariables));
  rows->addWidget(m_lstImportVariables, 1);
  connect(m_lstImportVariables, &QListWidget::itemChanged, this, [this](const QListWidgetItem* item) {
    const auto offer = static_cast<std::size_t>(m_lstImportVariables->row(item));
    Act([&] { m_flow.SetVariable(offer, item->checkState() == Qt::Checked); });
  });
  return page;
}

QWidget* ImportPanel::MakeTablePage() {
  auto* page = new QWidget;
  QVBoxLayout* rows = RowsOf(page);
  rows->addWidget(m_lblTable);
  auto* columns = new QWidget;
  QVBoxLayout* columnRows = RowsOf(columns);
  columnRows->addWidget(MakeLabel("lblColumns", "Co&lumns of the table:", m_grdColumns));
  columnRows->addWidget(m_grdColumns, 1);
  m_grdColumns->setSelectionMode(QAbstractItemView::SingleSelection);
  auto* use = new QHBoxLayout;
  use->addWidget(MakeLabel("lblColumnUse", "Us&ed as:", m_cboColumnUse));
  use->addWidget(m_cboColumnUse, 1);
  columnRows->addLayout(use);
  auto* filter = new QHBoxLayout;
  filter->addWidget(MakeLabel("lblFilter", "Onl&y rows with", m_cboFilter));
  filter->addWidget(m_cboFilter, 1);
  filter->addWidget(MakeLabel("lblFilterValue", "&=", m_txtFilterValue));
  filter->addWidget(m_txtFilterValue, 1);
  m_txtFilterValue->setAccessibleName("Value of the rows");
  columnRows->addLayout(filter);
  columnRows->addWidget(m_lblColumnNotes);
  auto* words = new QHBoxLayout;
  words->addWidget(m_lblImportWords, 1);
  m_cmdImportWords = MakeActButton("cmdImportWords", "Open &Words...", [this] { m_flow.ChooseWords(); });
  words->addWidget(m_cmdImportWords);
  columnRows->addLayout(words);
  rows->addWidget(MakeSides(m_howRead, columns), 1);
  connect(m_grdColumns, &TextTable::RowChosen, this, &ImportPanel::ShowUse);
  connect(m_cboColumnUse, &QComboBox::activated, this,
          [this](int choice) { Act([&] { m_flow.ChooseUse(m_grdColumns->CurrentRow(), choice); }); });
  connect(m_cboFilter, &QComboBox::activated, this, [this] { TakeFilter(); });
  connect(m_txtFilterValue, &QLineEdit::editingFinished, this, [this] { TakeFilter(); });
  return page;
}

QWidget* ImportPanel::MakeReviewPage() {
  auto* page = new QWidget;
  QVBoxLayout* rows = RowsOf(page);
  rows->addWidget(m_lblReview);
  rows->addWidget(m_grdReview, 1);
  auto* acts = new QHBoxLayout;
  m_cmdReviewTake = MakeActButton(
      "cmdReviewTake", "Ta&ke Proposal",
      [this] { DecideRows([this](const auto& chosen) { m_flow.Review().TakeProposals(chosen); }); }, true);
  acts->addWidget(m_cmdReviewTake);
  acts->addWidget(MakeActButton(
      "cmdReviewIntrusion", "&Intrusion",
      [this] { DecideRows([this](const auto& chosen) { m_flow.Review().Decide(chosen, {Verdict::Intrusion}); }); },
      true));
  acts->addWidget(MakeActButton(
      "cmdReviewSkip", "&Skip",
      [this] { DecideRows([this](const auto& chosen) { m_flow.Review().Decide(chosen, {Verdict::Skip}); }); }, true));
  m_cmdReviewNear = MakeActButton("cmdReviewNear", "Take All of &Distance 1", [this] { m_flow.Review().TakeNear(); });
  acts->addWidget(m_cmdReviewNear);
  m_cmdReviewUndo = MakeActButton(
      "cmdReviewUndo", "&Undo", [this] { m_flow.Review().Undo(); }, true);
  acts->addWidget(m_cmdReviewUndo);
  acts->addStretch();
  rows->addLayout(acts);
  auto* other = new QHBoxLayout;
  QLabel* label = MakeLabel("lblReviewItem", "Another item or &word:", m_txtReviewItem);
  label->setWordWrap(false);
  other->addWidget(label);
  other->addWidget(m_txtReviewItem, 1);
  rows->addLayout(other);
  m_grdReview->installEventFilter(this);
  m_txtReviewItem->installEventFilter(this);
  connect(m_grdReview, &TextTable::RowChosen, this, [this] { ShowReview(); });
  return page;
}

QWidget* ImportPanel::MakeDryRunPage() {
  auto* table = new QWidget;
  QVBoxLayout* rows = RowsOf(table);
  rows->addWidget(MakeLabel("lblDryRun", "What the import would do:"));
  rows->addWidget(m_grdDryRun, 1);
  return MakeSides(m_choices, table);
}

void ImportPanel::AddButtons() {
  AddStatus(m_lblImportTold);
  m_cmdImportReport = AddButton("cmdImportReport", "Save &Report...", [this] { m_flow.SaveReport(); });
  m_cmdImportBack = AddButton("cmdImportBack", "<<&Back", [this] { m_flow.Back(); });
  m_cmdImportNext = AddButton("cmdImportNext", "Ne&xt >>", [this] {
    m_flow.CurrentStage() == Stage::Proposal ? m_session.DefineImported() : m_flow.Next();
  });
  m_cmdImportRun = AddButton("cmdImportRun", "I&mport", [this] { m_flow.Import(); });
  m_cancel = AddButton("cmdImportCancel", "&Cancel", [this] { m_flow.Cancel(); });
}

}  // namespace zova
