// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>

#include "app/widgets/Panel.h"
#include "session/MasterFlow.h"

class QHBoxLayout;
class QPushButton;
class QVBoxLayout;

namespace zova {

/// What the panels of a master have in common: a page that scrolls in a small window above a row of buttons, Enter and
/// Escape that press two of them, and the cursor that comes back to its place after every button.
class FlowPanel : public Panel {
  Q_OBJECT

 protected:
  FlowPanel(MasterFlow& flow, const char* name);
  /// The rows of the page.
  QVBoxLayout* AddPage();
  /// Below the page, in the order of the calls.
  QPushButton* AddButton(const char* name, const QString& caption, std::function<void()> act);
  void Act(const std::function<void()>& act);
  void PlaceCursor();

  void showEvent(QShowEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

  MasterFlow& m_flow;
  QWidget* m_cursor = nullptr;  // the control that has the cursor when the panel comes up
  QPushButton* m_default = nullptr;
  QPushButton* m_cancel = nullptr;

 private:
  QHBoxLayout* m_buttons;
};

}  // namespace zova
