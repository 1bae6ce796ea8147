// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/screens/GroupPanel.h"

#include <QListWidget>
#include <QScrollArea>
#include <QSignalBlocker>
#include <QVBoxLayout>

#include "app/widgets/Controls.h"

namespace zova {

GroupPanel::GroupPanel(MasterFlow& flow)
    : Panel("FraNomDet"),
      m_flow(flow),
      m_txtPerGroup(Named(new QLineEdit, "txtPerGroup")),
      m_lstVarName(Named(new QListWidget, "lstVarName")),
      m_lblGroupsPreview(MakeLabel("lblGroupsPreview", {})) {
  AddTitle("lblGroupsTitle", "Nominal Groups");
  AddProjectName();
  QVBoxLayout* rows = AddPage();
  rows->addWidget(MakeLabel("lblPerGroup", "&Subjects per group:", m_txtPerGroup));
  FitBox(m_txtPerGroup, 4);
  rows->addWidget(m_txtPerGroup);
  AddQuestionGap(*rows);
  rows->addWidget(MakeLabel("lblVarNameList", "&Variable that keeps the groups apart:", m_lstVarName));
  rows->addWidget(m_lstVarName, 1);
  QScrollArea* preview = MakeScrolling(m_lblGroupsPreview);
  preview->setFocusPolicy(Qt::TabFocus);  // to be scrolled from the keyboard
  preview->setObjectName("scrGroupsPreview");
  preview->setAccessibleName("Groups");
  m_lblGroupsPreview->setAlignment(Qt::AlignTop);
  for (QWidget* part : {static_cast<QWidget*>(m_lstVarName), static_cast<QWidget*>(preview)}) {
    part->setMinimumHeight(part->fontMetrics().lineSpacing() * 6);
  }
  AddQuestionGap(*rows);
  rows->addWidget(preview, 1);
  SetDefault(AddButton("cmdCreateMasterGo", "Co&ntinue", [this] { m_flow.GoGroups(); }));
  m_cancel = AddButton("cmdGroupCancel", "&Cancel", [this] { m_flow.CancelGroups(); });
  m_cursor = m_txtPerGroup;
  m_buttonsReturn = true;
  connect(m_txtPerGroup, &QLineEdit::textEdited, this,
          [this](const QString& text) { Act([&] { m_flow.Options().SetPerGroupText(FromQt(text)); }); });
  // After the key or click that chose it: all subjects may be read, and the choice go back.
  connect(
      m_lstVarName, &QListWidget::currentRowChanged, this,
      [this](int row) { Act([&] { m_flow.ChooseVariable(row); }); }, Qt::QueuedConnection);
}

void GroupPanel::ShowState() {
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
