// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QStackedWidget>
#include <vector>

#include "app/screens/WizardPage.h"
#include "app/widgets/Panel.h"
#include "session/Session.h"

namespace zova {

/// The eight pages of a new or viewed project, and their buttons. Enter presses "Next >>", on the last page "Done!";
/// Escape presses "Cancel".
class WizardPanel : public Panel {
  Q_OBJECT

 public:
  explicit WizardPanel(Session& session);

 protected:
  void ShowState() override;
  [[nodiscard]] int CursorRevision() const override;
  void PlaceCursor() override;
  [[nodiscard]] QPushButton* DefaultButton() const override;

 private:
  void AddPages();
  QWidget* MakeOutline();
  void ShowOutline();
  void AddButtons();

  Session& m_session;
  QGroupBox* m_fraParam;
  QStackedWidget* m_stack;
  std::vector<WizardPage*> m_pages;
  std::vector<QLabel*> m_outline;
  QLabel* m_lblCounter = nullptr;
  QPushButton* m_cmdBack1 = nullptr;
  QPushButton* m_cmdNext1 = nullptr;
  QPushButton* m_cmdEntered1 = nullptr;
};

}  // namespace zova
