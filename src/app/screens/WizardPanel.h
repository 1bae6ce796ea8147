// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QGroupBox>
#include <QHBoxLayout>
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
  void Refresh() override;

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void showEvent(QShowEvent* event) override;

 private:
  void AddPages();
  void AddButtons(QVBoxLayout& rows);
  void PlaceCursor();
  [[nodiscard]] QPushButton* DefaultButton() const;

  Session& m_session;
  QGroupBox* m_fraParam;
  QStackedWidget* m_stack;
  std::vector<WizardPage*> m_pages;
  QLabel* m_lblCounter = nullptr;
  QPushButton* m_cmdBack1 = nullptr;
  QPushButton* m_cmdNext1 = nullptr;
  QPushButton* m_cmdEntered1 = nullptr;
  QPushButton* m_cmdCancel1 = nullptr;
  int m_cursorRevision = 0;
};

}  // namespace zova
