// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/widgets/Panel.h"

class QLabel;

namespace zova {

class GridBox;
class GridTable;
class Session;

/// The screen for the project's word list. The focus comes back to its box.
class WordsPanel : public Panel {
  Q_OBJECT

 public:
  explicit WordsPanel(Session& session);

 protected:
  void ShowState() override;
  void PlaceCursor() override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  Session& m_session;
  GridTable* m_grdWords;
  GridBox* m_txtWords;
  QLabel* m_lblWordsTold;
  QWidget* m_content;
};

}  // namespace zova
