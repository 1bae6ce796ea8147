// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/widgets/Panel.h"

class QLabel;
class QLineEdit;
class QPushButton;
class QTableView;

namespace zova {

class CompareModel;
class EntrySettlement;
class Session;

/// The differences between two entries of a subject: both side by side, and the result.
class ComparePanel : public Panel {
  Q_OBJECT

 public:
  explicit ComparePanel(Session& session);

 protected:
  void ShowState() override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void AddTableKeys();

  EntrySettlement& m_rules;
  QTableView* m_grdCompare;
  CompareModel* m_model;
  QLineEdit* m_txtCompare;
  QLabel* m_lblCompareSubject;
  QLabel* m_lblCompareStatus;
  QPushButton* m_cmdTakeFirst = nullptr;
  QPushButton* m_cmdTakeSecond = nullptr;
  QPushButton* m_cmdNextDifference = nullptr;
  QPushButton* m_cmdCompareUndo = nullptr;
  int m_revision = -1;
  bool m_isFilling = false;  // the selection follows the rules
};

}  // namespace zova
