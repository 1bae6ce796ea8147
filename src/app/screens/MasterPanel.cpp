// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/screens/MasterPanel.h"

#include <QCheckBox>
#include <QComboBox>
#include <QListWidget>
#include <QScrollArea>
#include <QVBoxLayout>

#include "app/screens/ProgressPanel.h"
#include "app/widgets/Controls.h"
#include "app/widgets/DriveDirectoryList.h"

namespace zova {

MasterPanel::MasterPanel(MasterFlow& flow, QtProgress& progress)
    : Panel("FraSaveMaster"),
      m_flow(flow),
      m_progress(new ProgressPanel(progress)),
      m_lblMasterStatus(MakeLabel("lblMasterStatus", {})),
      m_txtMasterDest(Named(new QLineEdit, "txtMasterDest")),
      m_directories(new DriveDirectoryList(flow.Options().Browser(), "drvMasterDest", "dirMasterDest")),
      m_cmdMeasures(MakeButton("cmdMeasures", "To change the default &measures selected for this study click here")),
      m_chkItemAnalysis(Named(new QCheckBox("&Serial Position Analysis"), "chkItemAnalysis")),
      m_chkCombine(Named(new QCheckBox("Com&bine Scores Into Groups"), "chkCombine")),
      m_chkExportClean(Named(new QCheckBox("&Wide CSV of All Measures"), "chkExportClean")),
      m_chkExportLong(Named(new QCheckBox("CSV of All &Recalls"), "chkExportLong")),
      m_chkFurther(Named(new QCheckBox("F&urther Measures"), "chkFurther")) {
  AddTitle("lblMasterTitle", "Create New Master");
  AddProjectName();
  AddContent(m_progress);
  QVBoxLayout* rows = AddPage();
  m_questions = findChild<QScrollArea*>();  // the page with its bars
  rows->addWidget(MakeLabel("lblmeasures", "Choose Measures", m_cmdMeasures));
  rows->addWidget(m_cmdMeasures, 0, Qt::AlignLeft);
  AddQuestionGap(*rows);
  rows->addWidget(MakeLabel("lblItemAnal", "Serial Position Master", m_chkItemAnalysis));
  rows->addWidget(
      MakeLabel("lblItemAnalInst", "For an additional serial postion analysis please select the box below. "));
  rows->addWidget(m_chkItemAnalysis, 0, Qt::AlignLeft);
  rows->addWidget(m_chkCombine, 0, Qt::AlignLeft);
  AddQuestionGap(*rows);
  rows->addWidget(MakeLabel("lblExports", "Files for Other Programs", m_chkExportClean));
  auto* exports = new QHBoxLayout;  // in one row, so that all of the page is in sight at 800 x 600
  exports->addWidget(m_chkExportClean);
  exports->addWidget(m_chkFurther);
  exports->addWidget(m_chkExportLong);
  exports->addStretch();
  rows->addLayout(exports);
  AddQuestionGap(*rows);
  rows->addWidget(MakeLabel("lblDestination", "&Destination Directory", m_txtMasterDest));
  rows->addWidget(m_directories, 1);
  rows->addWidget(m_txtMasterDest);
  rows->addWidget(MakeLabel("lblMasterRows", "The rows always go to the master in the primary directory."));
  AddStatus(m_lblMasterStatus);
  for (const char* heading : {"lblDestination", "lblmeasures", "lblItemAnal", "lblExports"}) {
    MakeBold(findChild<QLabel*>(heading));
  }
  findChild<QComboBox*>("drvMasterDest")->setAccessibleName("Destination Drive");
  findChild<QListWidget*>("dirMasterDest")->setAccessibleName("Destination Directory");
  m_txtMasterDest->setAccessibleName("Master File");
  SetDefault(AddButton("cmdCreateMaster", "Co&ntinue", [this] { m_flow.Continue(); }));
  m_cancel = AddButton("cmdMastCancel", "&Cancel", [this] { m_flow.CancelOptions(); });
  m_buttonsReturn = true;
  m_cursor = m_default;  // a key struck by mistake then changes no path
  Connect();
}

void MasterPanel::Connect() {
  connect(m_txtMasterDest, &QLineEdit::textEdited, this,
          [this](const QString& text) { Act([&] { m_flow.Options().SetDestination(FromQt(text)); }); });
  connect(m_directories, &DriveDirectoryList::Acted, this,
          [this] { Act([this] { m_flow.Options().FollowBrowser(); }); });
  ActAtOnce(m_cmdMeasures);
  connect(m_cmdMeasures, &QPushButton::clicked, this, [this] { ActAndReturn([this] { m_flow.OpenMeasures(); }); });
  ConnectBox(m_chkItemAnalysis, &MasterOptions::ChkItemAnalysis);
  ConnectBox(m_chkCombine, &MasterOptions::ChkCombine);
  ConnectBox(m_chkExportClean, &MasterOptions::ChkExportClean);
  ConnectBox(m_chkExportLong, &MasterOptions::ChkExportLong);
  ConnectBox(m_chkFurther, &MasterOptions::ChkFurther);
}

void MasterPanel::ConnectBox(QCheckBox* box, bool MasterOptions::*option) {
  ActAtOnce(box);
  connect(box, &QCheckBox::clicked, this,
          [this, option](bool checked) { Act([&] { m_flow.Options().*option = checked; }); });
}

void MasterPanel::ShowState() {
  const MasterOptions& options = m_flow.Options();
  const bool isWriting = m_flow.CurrentStage() == MasterFlow::Stage::Writing;
  m_progress->setVisible(isWriting);
  m_progress->ShowProgress();  // before a box of the run, say
  for (QWidget* part : {m_questions, static_cast<QWidget*>(m_default), static_cast<QWidget*>(m_cancel)}) {
    part->setVisible(!isWriting);
  }
  m_lblMasterStatus->setText(ToQt(m_flow.StatusLine()));
  ShowText(m_txtMasterDest, options.Destination());
  m_directories->Refresh();
  m_chkItemAnalysis->setChecked(options.ChkItemAnalysis);
  m_chkCombine->setChecked(options.ChkCombine);
  m_chkExportClean->setChecked(options.ChkExportClean);
  m_chkExportLong->setChecked(options.ChkExportLong);
  m_chkFurther->setEnabled(options.ChkExportClean);
  m_chkFurther->setChecked(options.ChkFurther);
}

// The cursor comes back after the writing.
int MasterPanel::CursorRevision() const { return m_flow.CurrentStage() == MasterFlow::Stage::Writing ? 1 : 0; }

}  // namespace zova
