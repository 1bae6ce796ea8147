// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <vector>

#include "app/widgets/Panel.h"

class QComboBox;
class QGridLayout;
class QLabel;
class QLineEdit;
class QPushButton;
class QTableView;
class QVBoxLayout;

namespace zova {

class Session;
class SubjectsModel;
class SubjectsScreen;

/// All subjects of the project: the table with its filter, the acts beside it, and below it what an act asks for.
class SubjectsPanel : public Panel {
  Q_OBJECT

 public:
  explicit SubjectsPanel(Session& session);

 protected:
  void ShowState() override;
  void PlaceCursor() override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  [[nodiscard]] QWidget* MakeTable();
  [[nodiscard]] QWidget* MakeActs();
  [[nodiscard]] QWidget* MakeQuestion();
  void AddTableKeys();
  void Open();
  void Copy();
  void FollowTable();
  void ShowQuestion();
  void ShowLevels();
  [[nodiscard]] bool IsAsking() const;
  [[nodiscard]] bool IsAskingText() const;

  Session& m_session;
  SubjectsScreen& m_rules;
  QLineEdit* m_txtSubjectFilter;
  QTableView* m_grdSubjects;
  SubjectsModel* m_model;
  QWidget* m_acts = nullptr;
  QWidget* m_fraSubjectQuestion = nullptr;
  QLabel* m_lblSubjectQuestion = nullptr;
  QLineEdit* m_txtSubjectName = nullptr;
  QGridLayout* m_levelRows = nullptr;
  std::vector<QLabel*> m_lblLevels;
  std::vector<QComboBox*> m_cboLevels;
  QLabel* m_lblSubjectsStatus;
  QPushButton* m_cmdSubjectOpen = nullptr;
  QPushButton* m_cmdSubjectLevels = nullptr;
  QPushButton* m_cmdSubjectRename = nullptr;
  QPushButton* m_cmdSubjectRemove = nullptr;
  QPushButton* m_cmdSubjectBack = nullptr;
  QPushButton* m_cmdSubjectCompare = nullptr;
  bool m_wasAsking = false;
  bool m_isFilling = false;  // the selection follows the rules
};

}  // namespace zova
