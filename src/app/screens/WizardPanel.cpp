// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/screens/WizardPanel.h"

#include <QApplication>
#include <QFontInfo>
#include <QHBoxLayout>
#include <QScrollArea>
#include <QScrollBar>

#include "app/screens/WizardPages.h"
#include "app/widgets/Controls.h"

namespace zova {

WizardPanel::WizardPanel(Session& session)
    : Panel("pnlWizard", Named(new QGroupBox, "fraParam")),
      m_session(session),
      m_fraParam(static_cast<QGroupBox*>(Host())),
      m_stack(Named(new QStackedWidget, "stkPages")) {
  m_fraParam->setFlat(true);
  AddPages();
  auto* content = new QWidget;
  auto* columns = new QHBoxLayout(content);
  columns->setContentsMargins({});
  columns->addWidget(MakeOutline());
  columns->addWidget(m_stack, 1);
  AddContent(content, 1);
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

// The eight pages, each with its answer in short; the current one is bold.
QWidget* WizardPanel::MakeOutline() {
  auto* outline = new QWidget;
  auto* rows = new QVBoxLayout(outline);
  rows->setContentsMargins(0, 0, rows->spacing(), 0);
  for (std::size_t page = 1; page <= m_pages.size(); ++page) {
    QLabel* label = MakeLabel("", {});
    label->setObjectName(QStringLiteral("lblOutline%1").arg(page));
    m_outline.push_back(label);
    rows->addWidget(label);
  }
  rows->addStretch();
  constexpr int kEms = 15;
  outline->setFixedWidth(kEms * QFontInfo(outline->font()).pixelSize());
  QScrollArea* area = Named(MakeScrolling(outline), "scrOutline");
  area->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  area->setFixedWidth(outline->width() + area->verticalScrollBar()->sizeHint().width());
  area->viewport()->setAutoFillBackground(false);
  outline->setAutoFillBackground(false);
  return area;
}

void WizardPanel::ShowOutline() {
  const NewProjectWizard& wizard = m_session.Wizard();
  for (std::size_t index = 0; index < m_outline.size(); ++index) {
    const int page = static_cast<int>(index) + 1;
    QLabel* label = m_outline[index];
    QString title = m_pages[index]->Title()->text();
    if (title.endsWith('.')) title.chop(1);
    QString answer = ToQt(wizard.Answer(page));
    answer.replace(QStringLiteral(":\\"), QStringLiteral(":\u2060\\"));  // no line ends behind a drive
    const QFontMetrics metrics(label->font());
    const QString shown = metrics.elidedText(answer, Qt::ElideMiddle, 2 * label->width() - metrics.height());
    label->setText(answer.isEmpty() ? title : WithIsolatedLines(title + ": " + shown));
    label->setToolTip(shown == answer ? QString() : answer);
    QFont font;
    font.setBold(page == wizard.Page());
    label->setFont(font);
  }
}

void WizardPanel::AddButtons() {
  m_lblCounter = MakeLabel("lblCounter", {});
  m_lblCounter->setWordWrap(false);
  AddStatus(m_lblCounter);
  m_cmdBack1 = AddButton("cmdBack1", "<<&Back", [this] { m_session.Wizard().Back(); });
  m_cmdNext1 = AddButton("cmdNext1", "&Next >>", [this] { m_session.Wizard().Next(); });
  m_cmdEntered1 = AddButton("cmdEntered1", "&Done!", [this] { m_session.FinishWizard(); });
  m_cancel = AddButton("cmdCancel1", "Cance&l", [this] { m_session.CancelWizard(); });
  MarkDefault(m_cmdEntered1, true);
  MarkDefault(m_cmdNext1, true);
  // Enter in the box of the variables names a level and does not go on.
  const auto* variable = findChild<QLineEdit*>("txtVariable");
  // Bound to the button alone: the focus moves once more while the panel is destroyed.
  connect(qApp, &QApplication::focusChanged, m_cmdNext1,
          [button = m_cmdNext1, variable, &wizard = m_session.Wizard()](const QWidget*, const QWidget* now) {
            MarkDefault(button, now != variable || wizard.IsViewing());
          });
}

void WizardPanel::ShowState() {
  NewProjectWizard& wizard = m_session.Wizard();
  m_fraParam->setTitle(m_session.Shown() == Screen::Viewing ? "View Parameters" : "Create New Project");
  for (WizardPage* page : m_pages) {
    page->Refresh();
    page->Title()->setVisible(page == m_pages.at(static_cast<std::size_t>(wizard.Page() - 1)));
  }
  m_stack->setCurrentIndex(wizard.Page() - 1);
  ShowOutline();
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
