// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/screens/MasterPanel.h"

#include <QCheckBox>
#include <QComboBox>
#include <QListWidget>
#include <QVBoxLayout>

#include "app/widgets/Controls.h"
#include "app/widgets/DriveDirectoryList.h"

namespace zova {

MasterPanel::MasterPanel(MasterFlow& flow)
    : FlowPanel(flow, "FraSaveMaster"),
      m_lblProjectName(MakeLabel("lblProjectName", {})),
      m_lblMasterStatus(MakeLabel("lblMasterStatus", {})),
      m_txtMasterDest(Named(new QLineEdit, "txtMasterDest")),
      m_directories(new DriveDirectoryList(flow.Options().Browser(), "drvMasterDest", "dirMasterDest")),
      m_cmdMeasures(
          MakeButton("cmdMeasures", tr("To change the default &measures selected for this study click here"))),
      m_chkItemAnalysis(Named(new QCheckBox(tr("&Serial Position Analysis")), "chkItemAnalysis")),
      m_chkCombine(Named(new QCheckBox(tr("Com&bine Scores Into Groups")), "chkCombine")),
      m_chkExportClean(Named(new QCheckBox(tr("&Wide CSV of All Measures")), "chkExportClean")),
      m_chkExportLong(Named(new QCheckBox(tr("CSV of All &Recalls")), "chkExportLong")) {
  QVBoxLayout* rows = AddPage();
  rows->addWidget(m_lblProjectName);
  rows->addWidget(MakeLabel("lblDestination", tr("&Destination Directory"), m_txtMasterDest));
  rows->addWidget(m_directories, 1);
  rows->addWidget(m_txtMasterDest);
  rows->addWidget(MakeLabel("lblMasterRows", tr("The rows always go to the master in the primary directory.")));
  rows->addWidget(MakeLabel("lblmeasures", tr("Choose Measures"), m_cmdMeasures));
  rows->addWidget(m_cmdMeasures, 0, Qt::AlignLeft);
  rows->addWidget(
      MakeLabel("lblItemAnalInst", tr("For an additional serial postion analysis please select the box below. ")));
  rows->addWidget(MakeLabel("lblItemAnal", tr("Serial Position Master"), m_chkItemAnalysis));
  rows->addWidget(m_chkItemAnalysis, 0, Qt::AlignLeft);
  rows->addWidget(m_chkCombine, 0, Qt::AlignLeft);
  rows->addWidget(MakeLabel("lblExports", tr("Files for Other Programs"), m_chkExportClean));
  auto* exports = new QHBoxLayout;  // in one row, so that the whole page is visible at 800 x 600
  exports->addWidget(m_chkExportClean);
  exports->addWidget(m_chkExportLong);
  exports->addStretch();
  rows->addLayout(exports);
  rows->addWidget(m_lblMasterStatus);
  QFont bold;  // only its weight is set: the rest comes from the window
  bold.setBold(true);
  for (const char* heading : {"lblDestination", "lblmeasures", "lblItemAnal", "lblExports"}) {
    findChild<QLabel*>(heading)->setFont(bold);
  }
  findChild<QComboBox*>("drvMasterDest")->setAccessibleName(tr("Destination Drive"));
  findChild<QListWidget*>("dirMasterDest")->setAccessibleName(tr("Destination Directory"));
  m_txtMasterDest->setAccessibleName(tr("Master File"));
  m_cancel = AddButton("cmdMastCancel", tr("&Cancel"), [this] { m_flow.CancelOptions(); });
  m_default = AddButton("cmdCreateMaster", tr("Co&ntinue"), [this] { m_flow.Continue(); });
  MarkDefault(m_default, true);
  m_cursor = m_default;  // so that a key pressed by mistake changes no path
  Connect();
}

void MasterPanel::Connect() {
  connect(m_txtMasterDest, &QLineEdit::textEdited, this, [this](const QString& text) {
    m_flow.Options().SetDestination(FromQt(text));
    emit Acted();
  });
  connect(m_directories, &DriveDirectoryList::Acted, this, [this] {
    m_flow.Options().FollowBrowser();
    Refresh();
    emit Acted();
  });
  ActAtOnce(m_cmdMeasures);
  connect(m_cmdMeasures, &QPushButton::clicked, this, [this] { Act([this] { m_flow.OpenMeasures(); }); });
  ConnectBox(m_chkItemAnalysis, &MasterOptions::ChkItemAnalysis);
  ConnectBox(m_chkCombine, &MasterOptions::ChkCombine);
  ConnectBox(m_chkExportClean, &MasterOptions::ChkExportClean);
  ConnectBox(m_chkExportLong, &MasterOptions::ChkExportLong);
}

void MasterPanel::ConnectBox(QCheckBox* box, bool MasterOptions::*option) {
  ActAtOnce(box);
  connect(box, &QCheckBox::clicked, this, [this, option](bool checked) {
    m_flow.Options().*option = checked;
    emit Acted();
  });
}

void MasterPanel::Refresh() {
  const MasterOptions& options = m_flow.Options();
  m_lblProjectName->setText(ToQt(m_flow.ProjectLine()));
  m_lblMasterStatus->setText(ToQt(m_flow.StatusLine()));
  m_lblMasterStatus->setVisible(!m_flow.StatusLine().empty());
  ShowText(m_txtMasterDest, options.Destination());
  m_directories->Refresh();
  m_chkItemAnalysis->setChecked(options.ChkItemAnalysis);
  m_chkCombine->setChecked(options.ChkCombine);
  m_chkExportClean->setChecked(options.ChkExportClean);
  m_chkExportLong->setChecked(options.ChkExportLong);
}

}  // namespace zova
