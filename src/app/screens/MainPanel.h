// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QGroupBox>
#include <QToolButton>
#include <vector>

#include "app/widgets/Controls.h"
#include "app/widgets/Menus.h"
#include "app/widgets/Panel.h"

class QGridLayout;

namespace zova {

/// A large button with a picture. Enter presses it like Space.
class PictureButton : public QToolButton {
  Q_OBJECT

 public:
  PictureButton(const char* name, const QString& caption, const char* picture);

 protected:
  void keyPressEvent(QKeyEvent* event) override;
};

/// The main screen: the open project, and picture buttons for the other screens.
class MainPanel : public Panel {
  Q_OBJECT

 public:
  MainPanel(const Session& session, RunCommand run);
  void Refresh() override;

 private:
  QWidget* MakeProjectGroup();
  QGroupBox* MakeLastMasterGroup();
  void AddPictures(QGridLayout& grid);

  const Session& m_session;
  RunCommand m_run;
  QLabel* m_currentProject = nullptr;
  QPushButton* m_open = nullptr;
  QGroupBox* m_lastMaster = nullptr;
  QLabel* m_lastMasterPath = nullptr;
};

}  // namespace zova
