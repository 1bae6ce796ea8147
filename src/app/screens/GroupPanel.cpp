// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/screens/GroupPanel.h"

#include <QListWidget>
#include <QScrollArea>
#include <QSignalBlocker>
#include <QVBoxLayout>

#include "app/widgets/Controls.h"

namespace zova {

GroupPanel::GroupPanel(MasterFlow& flow)
    : FlowPanel(flow, "FraNomDet"),
      m_txtPerGroup(Named(new QLineEdit, "txtPerGroup")),
      m_lstVarName(Named(new QListWidget, "lstVarName")),
      m_lblGroupsPreview(MakeLabel("lblGroupsPreview", {})) {
  QVBoxLayout* rows = AddPage();
  rows->addWidget(MakeLabel("lblPerGroup", tr("&Subjects per group:"), m_txtPerGroup));
  rows->addWidget(m_txtPerGroup);
  rows->addWidget(MakeLabel("lblVarNameList", tr("&Variable that keeps the groups apart:"), m_lstVarName));
  rows->addWidget(m_lstVarName, 1);
  QScrollArea* preview = MakeScrolling(m_lblGroupsPreview);
  preview->setFocusPolicy(Qt::TabFocus);  // for scrolling by keyboard
  preview->setAccessibleName(tr("Groups"));
  m_lblGroupsPreview->setAlignment(Qt::AlignTop);
  for (QWidget* part : {static_cast<QWidget*>(m_lstVarName), static_cast<QWidget*>(preview)}) {
    part->setMinimumHeight(part->fontMetrics().lineSpacing() * 6);
  }
  rows->addWidget(preview, 1);
  m_default = AddButton("cmdCreateMasterGo", tr("Co&ntinue"), [this] { m_flow.GoGroups(); });
  m_cancel = AddButton("cmdGroupCancel", tr("&Cancel"), [this] { m_flow.CancelGroups(); });
  MarkDefault(m_default, true);
  m_cursor = m_txtPerGroup;
  const auto report = [this] {
    Refresh();
    emit Acted();
  };
  connect(m_txtPerGroup, &QLineEdit::textEdited, this, [this, report](const QString& text) {
    m_flow.Options().SetPerGroupText(FromQt(text));
    report();
  });
  // Queued after the key or click: all subjects may be read, and the choice may be reverted.
  connect(
      m_lstVarName, &QListWidget::currentRowChanged, this,
      [this, report](int row) {
        m_flow.ChooseVariable(row);
        report();
      },
      Qt::QueuedConnection);
}

void GroupPanel::Refresh() {
  if (m_flow.CurrentStage() != MasterFlow::Stage::GroupDetails) return;
  ShowText(m_txtPerGroup, m_flow.Options().PerGroupText());
  m_lblGroupsPreview->setText(ToQt(m_flow.GroupsPreview()));
  const QSignalBlocker quiet(m_lstVarName);
  const std::vector<std::string> choices = m_flow.Options().VariableChoices();
  if (choices != m_choices) {
    m_lstVarName->clear();
    for (const std::string& choice : m_choices = choices) m_lstVarName->addItem(ToQt(choice));
  }
  m_lstVarName->setCurrentRow(m_flow.Options().ChosenVariable());
}

}  // namespace zova
