// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/screens/WizardPanel.h"

#include <QKeyEvent>
#include <QScrollArea>
#include <QShowEvent>

#include "app/screens/WizardPages.h"
#include "app/widgets/Controls.h"

namespace zova {

WizardPanel::WizardPanel(Session& session)
    : m_session(session), m_fraParam(Named(new QGroupBox(this), "fraParam")), m_stack(new QStackedWidget) {
  setObjectName("pnlWizard");
  auto* whole = new QVBoxLayout(this);
  whole->addWidget(m_fraParam);
  auto* rows = new QVBoxLayout(m_fraParam);
  rows->addWidget(Named(m_stack, "stkPages"), 1);
  AddPages();
  AddButtons(*rows);
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
    connect(page, &Panel::Acted, this, &Panel::Acted);
  }
}

void WizardPanel::AddButtons(QVBoxLayout& rows) {
  m_lblCounter = MakeLabel("lblCounter", {});
  m_lblCounter->setWordWrap(false);
  auto* row = new QHBoxLayout;
  rows.addLayout(row);
  row->addWidget(m_lblCounter);
  row->addStretch();
  m_cmdBack1 = AddButton(*row, "cmdBack1", "<<&Back", *this, [this] { m_session.Wizard().Back(); });
  m_cmdNext1 = AddButton(*row, "cmdNext1", "&Next >>", *this, [this] { m_session.Wizard().Next(); });
  m_cmdEntered1 = AddButton(*row, "cmdEntered1", "&Done!", *this, [this] { m_session.FinishWizard(); });
  m_cmdCancel1 = AddButton(*row, "cmdCancel1", "&Cancel", *this, [this] { m_session.CancelWizard(); });
  for (QPushButton* button : {m_cmdNext1, m_cmdEntered1}) MarkDefault(button, true);  // one of them is visible
}

void WizardPanel::Refresh() {
  NewProjectWizard& wizard = m_session.Wizard();
  m_fraParam->setTitle(m_session.Shown() == Screen::Viewing ? "View Parameters" : "Create New Project");
  for (WizardPage* page : m_pages) page->Refresh();
  m_stack->setCurrentIndex(wizard.Page() - 1);
  m_lblCounter->setText(ToQt(wizard.Counter()));
  m_cmdBack1->setEnabled(wizard.CanGoBack());
  m_cmdNext1->setVisible(wizard.ShowsNext());
  m_cmdEntered1->setVisible(wizard.ShowsDone());
  if (isVisible() && m_cursorRevision != wizard.CursorRevision()) PlaceCursor();
}

void WizardPanel::PlaceCursor() {
  const NewProjectWizard& wizard = m_session.Wizard();
  m_cursorRevision = wizard.CursorRevision();
  QWidget* control = m_pages.at(static_cast<std::size_t>(wizard.Page() - 1))->ControlOf(wizard.Cursor());
  // While viewing, the lists of page 2 cannot be reached.
  PlaceCursorIn(control->isEnabled() ? control : DefaultButton());
}

QPushButton* WizardPanel::DefaultButton() const { return m_session.Wizard().ShowsDone() ? m_cmdEntered1 : m_cmdNext1; }

void WizardPanel::keyPressEvent(QKeyEvent* event) {
  if ((event->modifiers() & ~Qt::KeypadModifier) != Qt::NoModifier) return Panel::keyPressEvent(event);
  switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
      if (!event->isAutoRepeat()) DefaultButton()->click();
      return;
    case Qt::Key_Escape: return m_cmdCancel1->click();
    default: Panel::keyPressEvent(event);
  }
}

void WizardPanel::showEvent(QShowEvent* event) {
  Panel::showEvent(event);
  if (event->spontaneous()) return;
  Refresh();
  PlaceCursor();
}

}  // namespace zova
