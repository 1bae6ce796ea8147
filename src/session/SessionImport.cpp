// SPDX-License-Identifier: GPL-3.0-or-later

#include "project/ProjectOpening.h"
#include "session/Session.h"

namespace zova {

void Session::ImportRecalls() {
  if (!Menus().Import) return;
  if (!m_project) return m_imports.OpenWithoutProject();
  if (OpenFirst()) m_imports.Open(*m_project);
}

void Session::ImportIntoExisting() {
  if (m_imports.CurrentStage() != ImportFlow::Stage::Project) return;
  m_imports.Cancel();
  if (OpenFirst()) m_imports.Open(*m_project);
}

void Session::DefineImported() {
  if (m_imports.CurrentStage() != ImportFlow::Stage::Proposal) return;
  m_wizard.Start(m_param.Path(), m_imports.TakeProposal());
  Show(Screen::Wizard);
}

// New subjects may be there, which the main screen counts.
void Session::FollowImport() {
  Show(m_imports.CurrentStage() == ImportFlow::Stage::Closed ? Screen::Main : Screen::Import);
}

// False when the user stays.
bool Session::LeavesImport() {
  if (m_screen != Screen::Import) return true;
  m_imports.Cancel();
  return m_screen != Screen::Import;
}

}  // namespace zova
