// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/screens/IdentificationPanel.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QScrollArea>
#include <QVBoxLayout>

#include "app/widgets/Controls.h"
#include "session/SubjectFlow.h"

namespace zova {

IdentificationPanel::IdentificationPanel(SubjectFlow& subjects)
    : m_subjects(subjects),
      m_rules(subjects.Identification()),
      m_txtSub(Named(new QLineEdit, "txtSub")),
      m_txtInfo(Named(new QLineEdit, "txtInfo")) {
  setObjectName(QStringLiteral("fraSubInfo"));
  auto* rows = new QVBoxLayout(this);
  rows->addWidget(MakeScrolling(MakePage()), 1);
  auto* row = new QHBoxLayout;
  rows->addLayout(row);
  AddText(*row, "lblInfCtr", &SubjectIdentification::Counter);
  row->addStretch();
  m_cmdBrowse = AddButton(*row, "cmdBrowse", tr("B&rowse"), *this, [this] { m_subjects.BrowseSubject(); });
  m_cmdOK = AddButton(*row, "cmdOK", tr("O&K"), *this, [this] { m_subjects.LoadTypedSubject(); });
  m_cmdBack = AddButton(*row, "cmdBack", tr("<<&Back"), *this, [this] { m_rules.Back(); });
  m_cmdNext = AddButton(*row, "cmdNext", tr("&Next >>"), *this, [this] { m_rules.Next(); });
  m_cmdEntered = AddButton(*row, "cmdEntered", tr("&Done!"), *this, [this] { m_subjects.FinishIdentification(); });
  m_cmdCancel = AddButton(*row, "cmdCancel", tr("&Cancel"), *this, [this] { m_subjects.CancelIdentification(); });
  connect(m_txtSub, &QLineEdit::textEdited, this, [this](const QString& text) {
    m_rules.SetSubjectText(FromQt(text));
    // The dropped characters were just inserted before the cursor.
    const auto fromEnd = text.size() - m_txtSub->cursorPosition();
    ShowText(m_txtSub, m_rules.SubjectText());
    m_txtSub->setCursorPosition(static_cast<int>(m_txtSub->text().size() - fromEnd));
  });
  connect(m_txtInfo, &QLineEdit::textEdited, this, [this](const QString& text) { m_rules.SetLevelText(FromQt(text)); });
}

QWidget* IdentificationPanel::MakePage() {
  auto* page = new QWidget;
  auto* rows = new QVBoxLayout(page);
  QFont bold;  // only the weight is set; the rest comes from the window
  bold.setBold(true);
  AddText(*rows, "lblSubInfo", &SubjectIdentification::Heading)->setFont(bold);
  rows->addWidget(m_lblProjectName = MakeLabel("lblProjectName", {}));
  AddText(*rows, "lblSnmbr2", &SubjectIdentification::Instruction);
  rows->addWidget(MakeLabel("lblSnmbr", tr("Please enter the &subject identifier:"), m_txtSub));
  rows->addWidget(m_txtSub);
  rows->addWidget(MakeLabel("lblSubNote",
                            tr("NOTE: Cannot be blank nor can the ID be greater than 20                 characters.")));
  auto* row = new QHBoxLayout(m_level = new QWidget);
  row->setContentsMargins({});
  QLabel* prompt = MakeLabel("lblInfo", tr("Please enter variable &level here -------------->"), m_txtInfo);
  prompt->setWordWrap(false);
  row->addWidget(prompt);
  row->addWidget(m_txtInfo);
  rows->addWidget(m_level);
  AddText(*rows, "lblVars", &SubjectIdentification::LevelsList);
  rows->addStretch();
  return page;
}

QLabel* IdentificationPanel::AddText(QBoxLayout& rows, const char* name, Getter text) {
  QLabel* label = MakeLabel(name, {});
  rows.addWidget(label);
  m_texts.emplace_back(label, text);
  return label;
}

void IdentificationPanel::Refresh() {
  for (const auto& [label, text] : m_texts) {
    label->setText(ToQt((m_rules.*text)()));
    label->setVisible(!label->text().isEmpty());
  }
  m_lblProjectName->setText(tr("Project: ") + ToQt(m_subjects.ProjectName()));
  ShowText(m_txtSub, m_rules.SubjectText());
  ShowText(m_txtInfo, m_rules.LevelText());
  const bool asksIdentifier = m_rules.AsksIdentifier();
  m_txtSub->setEnabled(asksIdentifier);  // visible also while levels are entered
  m_level->setVisible(!asksIdentifier);
  m_cmdBack->setEnabled(m_rules.CanGoBack());
  m_cmdNext->setEnabled(m_rules.CanGoNext());
  m_cmdEntered->setEnabled(m_rules.CanFinish());
  const bool isExisting = m_rules.LooksForExisting();
  for (QPushButton* button : {m_cmdBrowse, m_cmdOK}) button->setVisible(isExisting);
  for (QPushButton* button : {m_cmdBack, m_cmdNext, m_cmdEntered}) button->setVisible(!isExisting);
  for (QPushButton* button : {m_cmdOK, m_cmdNext, m_cmdEntered}) MarkDefault(button, button == DefaultButton());
  if (isVisible() && m_cursorRevision != m_rules.CursorRevision()) PlaceCursor();
}

void IdentificationPanel::PlaceCursor() {
  m_cursorRevision = m_rules.CursorRevision();
  PlaceCursorIn(m_rules.Cursor() == SubjectIdentification::Box::Subject ? m_txtSub : m_txtInfo);
}

QPushButton* IdentificationPanel::DefaultButton() const {
  if (m_rules.LooksForExisting()) return m_cmdOK;
  return m_rules.CanFinish() ? m_cmdEntered : m_cmdNext;
}

void IdentificationPanel::showEvent(QShowEvent* event) {
  Panel::showEvent(event);
  if (event->spontaneous()) return;
  Refresh();
  PlaceCursor();
}

void IdentificationPanel::keyPressEvent(QKeyEvent* event) {
  switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
      if (!event->isAutoRepeat()) DefaultButton()->click();
      return;
    case Qt::Key_Escape: return m_cmdCancel->click();
    default: Panel::keyPressEvent(event);
  }
}

}  // namespace zova
