// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/widgets/Panel.h"

class QGroupBox;
class QLabel;
class QPushButton;
class QScrollArea;
class QTimer;

namespace zova {

class GridBox;
class GridTable;
class SubjectFlow;

/// The screen for a subject's recalls. After every key and click the focus returns to the box.
class EntryPanel : public Panel {
  Q_OBJECT

 public:
  explicit EntryPanel(SubjectFlow& subjects);

 protected:
  void ShowState() override;
  void PlaceCursor() override;
  void keyPressEvent(QKeyEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  QScrollArea* MakeSide();
  QWidget* MakeEntry();
  void FollowTimer();
  void FitSide();
  void ActOnTicks();

  SubjectFlow& m_subjects;
  GridTable* m_grdInput;
  GridBox* m_txtInput;
  QLabel* m_lblTUpdate;
  QLabel* m_lblThisOne;
  QLabel* m_lblLimitNote;
  QPushButton* m_cmdDone = nullptr;
  QGroupBox* m_framinbump = nullptr;
  QScrollArea* m_side;
  QTimer* m_tmrAutoSave;
  int m_timerStartRevision = 0;
  int m_waitingTicks = 0;
};

}  // namespace zova
