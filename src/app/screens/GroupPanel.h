// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/widgets/Panel.h"
#include "session/MasterFlow.h"

class QLabel;
class QLineEdit;
class QListWidget;

namespace zova {

/// How subjects are put together as nominal groups, and what that gives.
class GroupPanel : public Panel {
  Q_OBJECT

 public:
  explicit GroupPanel(MasterFlow& flow);

 protected:
  void ShowState() override;

 private:
  MasterFlow& m_flow;
  QLineEdit* m_txtPerGroup;
  QListWidget* m_lstVarName;
  std::vector<std::string> m_choices;  // in the list
  QLabel* m_lblGroupsPreview;
};

}  // namespace zova
