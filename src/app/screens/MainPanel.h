// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QGroupBox>
#include <QToolButton>
#include <vector>

#include "app/widgets/Controls.h"
#include "app/widgets/Menus.h"
#include "app/widgets/Panel.h"

class QGridLayout;
class QListWidget;
class QTreeWidget;

namespace zova {

/// A large button with a picture. Enter presses it like Space.
class PictureButton : public QToolButton {
  Q_OBJECT

 public:
  PictureButton(const char* name, const QString& caption, const char* picture);

 protected:
  void keyPressEvent(QKeyEvent* event) override;
};

/// The main screen: the open project or those in Param, and picture buttons for the other screens.
class MainPanel : public Panel {
  Q_OBJECT

 public:
  MainPanel(const Session& session, RunCommand run);

 protected:
  void ShowState() override;

 private:
  QWidget* MakeProjectGroup();
  QGroupBox* MakeProjectsGroup();
  QGroupBox* MakeLastMasterGroup();
  void AddPictures(QGridLayout& grid);
  void CountLater();
  void ShowProjects();
  void ShowLastMaster();

  const Session& m_session;
  RunCommand m_run;
  QLabel* m_currentProject = nullptr;
  QLabel* m_facts = nullptr;
  QLabel* m_directory = nullptr;
  QLabel* m_projectNote = nullptr;
  QPushButton* m_open = nullptr;
  QGroupBox* m_projectsGroup = nullptr;
  QTreeWidget* m_projects = nullptr;
  QGroupBox* m_lastMaster = nullptr;
  QLabel* m_lastMasterPath = nullptr;
  QListWidget* m_lastFiles = nullptr;
  bool m_counts = false;  // a count is on its way
};

}  // namespace zova
