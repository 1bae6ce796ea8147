// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/screens/WizardPanel.h"

#include <QScrollArea>

#include "app/screens/WizardPages.h"
#include "app/widgets/Controls.h"

namespace zova {

WizardPanel::WizardPanel(Session& session)
    : Panel("pnlWizard", Named(new QGroupBox, "fraParam")),
      m_session(session),
      m_fraParam(static_cast<QGroupBox*>(Host())),
      m_stack(Named(new QStackedWidget, "stkPages")) {
  m_fraParam->setFlat(true);
  AddContent(m_stack);
  AddPages();
  AddButtons();
  Refresh();
}

void WizardPanel::AddPages() {
  for (WizardPage* page : MakeWizardPages(m_session.Wizard())) {
    page->Rows()->addStretch();  // the room below the rows stays empty unless a row stretches
    QScrollArea* area = MakeScrolling(page);
    area->setObjectName(QStringLiteral("scr") + page->objectName());
    // A page shows the frame's own background.
    area->viewport()->setAutoFillBackground(false);
    page->setAutoFillBackground(false);
    m_stack->addWidget(area);
    m_pages.push_back(page);
    AddTitle(page->Title());
    connect(page, &WizardPage::Acted, this, &Panel::Acted);
  }
}

void WizardPanel::AddButtons() {
  m_lblCounter = MakeLabel("lblCounter", {});
  m_lblCounter->setWordWrap(false);
  AddStatus(m_lblCounter);
  m_cmdBack1 = AddButton("cmdBack1", "<<&Back", [this] { m_session.Wizard().Back(); });
  m_cmdNext1 = AddButton("cmdNext1", "&Next >>", [this] { m_session.Wizard().Next(); });
  m_cmdEntered1 = AddButton("cmdEntered1", "&Done!", [this] { m_session.FinishWizard(); });
  m_cancel = AddButton("cmdCancel1", "&Cancel", [this] { m_session.CancelWizard(); });
  for (QPushButton* button : {m_cmdNext1, m_cmdEntered1}) MarkDefault(button, true);  // one of them is in sight
}

void WizardPanel::ShowState() {
  NewProjectWizard& wizard = m_session.Wizard();
  m_fraParam->setTitle(m_session.Shown() == Screen::Viewing ? "View Parameters" : "Create New Project");
  for (WizardPage* page : m_pages) {
    page->Refresh();
    page->Title()->setVisible(page == m_pages.at(static_cast<std::size_t>(wizard.Page() - 1)));
  }
  m_stack->setCurrentIndex(wizard.Page() - 1);
  m_lblCounter->setText(ToQt(wizard.Counter()));
  m_cmdBack1->setEnabled(wizard.CanGoBack());
  m_cmdNext1->setVisible(wizard.ShowsNext());
  m_cmdEntered1->setVisible(wizard.ShowsDone());
}

int WizardPanel::CursorRevision() const { return m_session.Wizard().CursorRevision(); }

void WizardPanel::PlaceCursor() {
  const NewProjectWizard& wizard = m_session.Wizard();
  QWidget* control = m_pages.at(static_cast<std::size_t>(wizard.Page() - 1))->ControlOf(wizard.Cursor());
  // While viewing, the lists of page 2 cannot be reached.
  PlaceCursorIn(control->isEnabled() ? control : DefaultButton());
}

QPushButton* WizardPanel::DefaultButton() const { return m_session.Wizard().ShowsDone() ? m_cmdEntered1 : m_cmdNext1; }

}  // namespace zova
