// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>

#include "app/widgets/Panel.h"
#include "session/MasterFlow.h"

class QHBoxLayout;
class QPushButton;
class QVBoxLayout;

namespace zova {

/// Base of the panels of a master: a page that scrolls in a small window above a row of buttons, Enter and Escape for
/// two of them, and a focus that returns to its place after every button.
class FlowPanel : public Panel {
  Q_OBJECT

 protected:
  FlowPanel(MasterFlow& flow, const char* name);
  /// The rows of the page.
  QVBoxLayout* AddPage();
  /// Adds a button below the page, in the order of the calls.
  QPushButton* AddButton(const char* name, const QString& caption, std::function<void()> act);
  void Act(const std::function<void()>& act);
  void PlaceCursor();

  void showEvent(QShowEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

  MasterFlow& m_flow;
  QWidget* m_cursor = nullptr;  // the control with the focus when the panel is shown
  QPushButton* m_default = nullptr;
  QPushButton* m_cancel = nullptr;

 private:
  QHBoxLayout* m_buttons;
};

}  // namespace zova
