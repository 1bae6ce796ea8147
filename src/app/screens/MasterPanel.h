// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/widgets/Panel.h"
#include "session/MasterFlow.h"

class QCheckBox;
class QLabel;
class QLineEdit;

namespace zova {

class DriveDirectoryList;
class ProgressPanel;
class QtProgress;

/// Where a master is asked for: its file, its measures and the masters beside it. During the writing the progress
/// replaces the questions and buttons.
class MasterPanel : public Panel {
  Q_OBJECT

 public:
  MasterPanel(MasterFlow& flow, QtProgress& progress);

 protected:
  void ShowState() override;
  [[nodiscard]] int CursorRevision() const override;

 private:
  void Connect();
  void ConnectBox(QCheckBox* box, bool MasterOptions::*option);

  MasterFlow& m_flow;
  ProgressPanel* m_progress;
  QWidget* m_questions = nullptr;
  QLabel* m_lblMasterStatus;
  QLineEdit* m_txtMasterDest;
  DriveDirectoryList* m_directories;
  QPushButton* m_cmdMeasures;
  QCheckBox* m_chkItemAnalysis;
  QCheckBox* m_chkCombine;
  QCheckBox* m_chkExportClean;
  QCheckBox* m_chkExportLong;
  QCheckBox* m_chkFurther;
};

}  // namespace zova
