// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/widgets/Panel.h"

class QGroupBox;
class QHBoxLayout;
class QLabel;
class QListView;
class QPushButton;
class QScrollArea;
class QTimer;

namespace zova {

class GridBox;
class GridTable;
class WordsModel;
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
  QHBoxLayout* MakeUndoButtons();
  void ShowPlace();
  void ShowWords();
  QListView* MakeWords();
  void FollowTimer();
  void FitSide();
  void ActOnTicks();

  SubjectFlow& m_subjects;
  GridTable* m_grdInput;
  GridBox* m_txtInput;
  WordsModel* m_words;
  QListView* m_lstWords;
  QLabel* m_lblEntryTitle = nullptr;
  QLabel* m_lblTUpdate;
  QLabel* m_lblRecalls;
  QLabel* m_lblWhere;
  QLabel* m_lblThisOne;
  QLabel* m_lblThisLevels;
  QLabel* m_lblFastHelp;
  QLabel* m_lblLimitNote;
  QPushButton* m_cmdDone = nullptr;
  QPushButton* m_cmdFinished = nullptr;
  QPushButton* m_cmdUndo = nullptr;
  QPushButton* m_cmdRedo = nullptr;
  QGroupBox* m_framinbump = nullptr;
  QWidget* m_entry = nullptr;
  QScrollArea* m_side;
  QTimer* m_tmrAutoSave;
  int m_timerStartRevision = 0;
  int m_waitingTicks = 0;
};

}  // namespace zova
