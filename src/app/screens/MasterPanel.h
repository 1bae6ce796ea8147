// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/widgets/FlowPanel.h"

class QCheckBox;
class QLabel;
class QLineEdit;

namespace zova {

class DriveDirectoryList;

/// The options of a master: its file, its measures and the additional masters.
class MasterPanel : public FlowPanel {
  Q_OBJECT

 public:
  explicit MasterPanel(MasterFlow& flow);
  void Refresh() override;

 private:
  void Connect();
  void ConnectBox(QCheckBox* box, bool MasterOptions::*option);

  QLabel* m_lblProjectName;
  QLabel* m_lblMasterStatus;
  QLineEdit* m_txtMasterDest;
  DriveDirectoryList* m_directories;
  QPushButton* m_cmdMeasures;
  QCheckBox* m_chkItemAnalysis;
  QCheckBox* m_chkCombine;
  QCheckBox* m_chkExportClean;
  QCheckBox* m_chkExportLong;
};

}  // namespace zova
