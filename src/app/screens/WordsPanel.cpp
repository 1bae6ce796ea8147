// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/screens/WordsPanel.h"

#include <QCoreApplication>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QVBoxLayout>

#include "app/widgets/Controls.h"
#include "app/widgets/GridBox.h"
#include "app/widgets/GridTable.h"
#include "session/Session.h"

namespace zova {

WordsPanel::WordsPanel(Session& session)
    : Panel("fraWords"),
      m_session(session),
      m_grdWords(new GridTable("grdWords", session.Words().Cells())),
      m_txtWords(new GridBox("txtWords", session.Words().Cells())),
      m_lblWordsTold(MakeLabel("lblWordsTold", {})),
      m_content(new QWidget) {
  AddTitle("lblWordsTitle", "Word List");
  AddProjectName();
  m_grdWords->setAccessibleName("Words");
  auto* middle = new QWidget;
  auto* columns = new QHBoxLayout(middle);
  columns->setContentsMargins({});
  auto* rows = new QVBoxLayout(m_content);
  rows->setContentsMargins({});
  rows->addWidget(m_grdWords, 1);
  auto* entry = new QHBoxLayout;
  entry->addWidget(MakeLabel("lblWords", "&Entry:", m_txtWords));
  entry->addWidget(m_txtWords, 1);
  rows->addLayout(entry);
  rows->addWidget(m_lblWordsTold);
  constexpr int kFirst = 1000;  // in the middle of a wide window
  columns->addStretch(1);
  columns->addWidget(m_content, kFirst);
  columns->addStretch(1);
  AddContent(middle);
  AddButton("cmdWordsOpen", "Ope&n File...", [this] { m_session.Words().ChooseFile(); });
  AddButton("cmdWordsSave", "&Save", [this] { m_session.Words().Save(); });
  m_cancel = AddButton("cmdWordsCancel", "&Cancel", [this] { m_session.CloseWords(); });
  m_cursor = m_txtWords;
  m_buttonsReturn = true;
  connect(m_txtWords, &GridBox::Acted, this, [this] { ActAndReturn([] {}); });
  connect(m_txtWords, &GridBox::textEdited, m_grdWords, &GridTable::ShowTyping);
  connect(m_txtWords, &GridBox::textEdited, this, &WordsPanel::ShowState);
  connect(m_grdWords, &GridTable::Acted, this, [this] { ActAndReturn([] {}); });
}

void WordsPanel::ShowState() {
  if (m_session.Shown() != Screen::Words) return;
  m_grdWords->Refresh();
  m_content->setMaximumWidth(m_grdWords->maximumWidth());
  m_txtWords->Refresh();
  m_lblWordsTold->setText(ToQt(m_session.Words().Told()));
  m_cancel->setText(m_session.Words().HasUnsavedChanges() ? "&Cancel" : "&Close");
}

// Not Panel's, which would select the text.
void WordsPanel::PlaceCursor() { m_txtWords->setFocus(); }

// What is typed while a button has the focus goes to the box.
void WordsPanel::keyPressEvent(QKeyEvent* event) {
  const bool isCharacter = !event->text().isEmpty() && event->text().front().isPrint() &&
                           (event->modifiers() & ~(Qt::ShiftModifier | Qt::KeypadModifier)) == Qt::NoModifier;
  if (!isCharacter || m_txtWords->hasFocus()) return Panel::keyPressEvent(event);
  m_txtWords->setFocus();
  QCoreApplication::sendEvent(m_txtWords, event);
}

}  // namespace zova
