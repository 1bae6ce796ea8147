// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/widgets/FlowPanel.h"

class QLabel;
class QLineEdit;
class QListWidget;

namespace zova {

/// How subjects form nominal groups, with a preview.
class GroupPanel : public FlowPanel {
  Q_OBJECT

 public:
  explicit GroupPanel(MasterFlow& flow);
  void Refresh() override;

 private:
  QLineEdit* m_txtPerGroup;
  QListWidget* m_lstVarName;
  std::vector<std::string> m_choices;  // in the list
  QLabel* m_lblGroupsPreview;
};

}  // namespace zova
