// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/widgets/Panel.h"

class QComboBox;
class QLabel;
class QLineEdit;
class QListWidget;
class QStackedWidget;

namespace zova {

class ChoiceForm;
class ImportFlow;
class Session;
class TextTable;

/// The screens of an import, a page each.
class ImportPanel : public Panel {
  Q_OBJECT

 public:
  explicit ImportPanel(Session& session);

 protected:
  void ShowState() override;
  [[nodiscard]] int CursorRevision() const override;
  void PlaceCursor() override;
  [[nodiscard]] QPushButton* DefaultButton() const override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  QWidget* MakeProjectPage();
  QWidget* MakeProposalPage();
  QWidget* MakeTablePage();
  QWidget* MakeReviewPage();
  QWidget* MakeDryRunPage();
  void AddButtons();
  void ShowProposal();
  void ShowTable();
  void ShowReview();
  void ShowDryRun();
  void FillFilter();
  void TakeFilter();
  void ShowUse();
  void DecideRows(const std::function<void(const std::vector<int>& rows)>& decide);
  void Assign();

  Session& m_session;
  ImportFlow& m_flow;
  QStackedWidget* m_pages;
  QLabel* m_lblImportTold;

  QPushButton* m_cmdImportNew = nullptr;
  QLabel* m_lblProposal;
  QListWidget* m_lstImportVariables;
  QLabel* m_lblTable;
  ChoiceForm* m_howRead;
  TextTable* m_grdColumns;
  QComboBox* m_cboColumnUse;
  QComboBox* m_cboFilter;
  QLineEdit* m_txtFilterValue;
  QLabel* m_lblColumnNotes;
  QLabel* m_lblImportWords;
  QPushButton* m_cmdImportWords = nullptr;
  QLabel* m_lblReview;
  TextTable* m_grdReview;
  QLineEdit* m_txtReviewItem;
  QPushButton* m_cmdReviewTake = nullptr;
  QPushButton* m_cmdReviewNear = nullptr;
  QPushButton* m_cmdReviewUndo = nullptr;
  ChoiceForm* m_choices;
  TextTable* m_grdDryRun;
  QPushButton* m_cmdImportReport = nullptr;
  QPushButton* m_cmdImportBack = nullptr;
  QPushButton* m_cmdImportNext = nullptr;
  QPushButton* m_cmdImportRun = nullptr;
  int m_proposalRevision = -1;
  std::vector<std::string> m_uses;
};

}  // namespace zova
