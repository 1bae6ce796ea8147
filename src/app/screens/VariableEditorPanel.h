// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QPushButton>
#include <vector>

#include "app/screens/WizardPage.h"

namespace zova {

/// Page 5: the between-subject variables and their levels. The labels of the variable and of its levels get the focus
/// by Tab, Up, Down and a click; the focused label is highlighted.
class VariableEditorPanel : public WizardPage {
  Q_OBJECT

 public:
  explicit VariableEditorPanel(NewProjectWizard& wizard);
  void Refresh() override;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void hideEvent(QHideEvent* event) override;

 private:
  using Act = void (NewProjectWizard::*)();

  QPushButton* AddButton(QHBoxLayout& row, const char* name, const QString& caption, Act act);
  void AddLabels();
  void Do(Act act);
  void Highlight(int label);
  bool HandleKey(int label, QKeyEvent& press);
  void FollowHighlight();

  TextBox m_entry;
  QPushButton* m_cmdAddVar;
  QPushButton* m_cmdReview;
  QLabel* m_lblPlace;
  QFrame* m_frame = nullptr;      // round the labels
  std::vector<QLabel*> m_labels;  // lblVarName, then those of the levels: the index is the editor's level
  bool m_refreshing = false;
};

}  // namespace zova
