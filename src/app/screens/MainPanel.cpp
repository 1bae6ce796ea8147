// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/screens/MainPanel.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QIcon>
#include <QKeyEvent>
#include <QScrollArea>
#include <QVBoxLayout>

#include "app/widgets/Controls.h"
#include "session/QuickHelp.h"

namespace zova {
namespace {

constexpr int kPicturesInRow = 3;

struct Picture {
  const char* Name;
  const char* Caption;
  const char* File;
  SessionCommand Command;
};
constexpr Picture kPictures[] = {
    {"cmdPicEnter", "&Enter Subjects", ":/icons/enter.svg", &Session::EnterSubjects},
    {"cmdPicMaster", "Create New &Master", ":/icons/master.svg", &Session::CreateNewMaster},
    {"cmdPicMeans", "E&xamine Means", ":/icons/means.svg", &Session::ExamineMeans},
    {"cmdPicUnfinished", "&Unfinished Business", ":/icons/unfinished.svg", &Session::UnfinishedBusiness},
    {"cmdPicHelp", "He&lp", ":/icons/help.svg", &Session::ShowTopics},
};

QString QuickHelpOf(const char* name) { return ToQt(std::string(QuickHelp(name))); }

}  // namespace

PictureButton::PictureButton(const char* name, const QString& caption, const char* picture) {
  setObjectName(name);
  setText(caption);
  setIcon(QIcon(picture));
  setToolButtonStyle(Qt::ToolButtonTextUnderIcon);
  setFocusPolicy(Qt::StrongFocus);
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
  setIconSize(QSize(1, 1) * fontMetrics().height() * 4);
}

void PictureButton::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
    click();
  } else {
    QToolButton::keyPressEvent(event);
  }
}

MainPanel::MainPanel(const Session& session, RunCommand run)
    : Panel("fraMain"), m_session(session), m_run(std::move(run)) {
  auto* page = new QWidget;
  auto* column = new QVBoxLayout(page);
  column->setContentsMargins({});
  column->addWidget(MakeProjectGroup());
  auto* grid = new QGridLayout;
  AddPictures(*grid);
  column->addLayout(grid);
  m_lastMaster = MakeLastMasterGroup();
  column->addWidget(m_lastMaster);
  column->addStretch();
  AddContent(Named(MakeScrolling(page), "scrMain"));
  AddStatus(MakeLabel("lblQuickHelp", "Right click something for fast help about it"));
}

QWidget* MainPanel::MakeProjectGroup() {
  auto* group = Named(new QGroupBox("Current Project"), "fraCurrentProject");
  m_currentProject = MakeLabel("lblCurrentProject", {});
  m_open = MakeButton("cmdOpen", {});
  m_open->setIcon(QIcon(":/icons/open.svg"));
  m_open->setIconSize(QSize(1, 1) * m_open->fontMetrics().height() * 3 / 2);
  m_open->setToolTip(QuickHelpOf("cmdOpen"));
  connect(m_open, &QPushButton::clicked, this, [this] { m_run(&Session::OpenExistingProject); });
  m_projectNote = MakeLabel("lblProjectNote", {});
  auto* rows = new QVBoxLayout(group);
  auto* row = new QHBoxLayout;
  rows->addLayout(row);
  rows->addWidget(m_projectNote);
  row->addWidget(m_currentProject, 1);
  row->addWidget(m_open);
  return group;
}

QGroupBox* MainPanel::MakeLastMasterGroup() {
  auto* group = Named(new QGroupBox("Last Master"), "fraLastMaster");
  m_lastMasterPath = MakeLabel("lblLastMaster", {});
  m_lastMasterPath->setTextInteractionFlags(Qt::TextSelectableByMouse);
  QPushButton* open = MakeButton("cmdLastMaster", "Open Fol&der");
  connect(open, &QPushButton::clicked, this, [this] { m_run(&Session::OpenLastMasterFolder); });
  auto* row = new QHBoxLayout(group);
  row->addWidget(m_lastMasterPath, 1);
  row->addWidget(open);
  return group;
}

void MainPanel::AddPictures(QGridLayout& grid) {
  int place = 0;
  for (const Picture& picture : kPictures) {
    auto* button = new PictureButton(picture.Name, picture.Caption, picture.File);
    button->setToolTip(QuickHelpOf(picture.Name));
    connect(button, &PictureButton::clicked, this, [this, command = picture.Command] { m_run(command); });
    grid.addWidget(button, place / kPicturesInRow, place % kPicturesInRow);
    grid.setColumnStretch(place % kPicturesInRow, 1);
    ++place;
  }
}

void MainPanel::ShowState() {
  m_currentProject->setText(ToQt(m_session.ProjectCaption()));
  // "Project" is in both captions; its j is free, the letters of the menus are not.
  m_open->setText(ToQt(m_session.OpenCaption()).replace("ject", "&ject"));
  m_projectNote->setText(ToQt(m_session.ProjectNote()));
  m_projectNote->setVisible(!m_projectNote->text().isEmpty());
  m_lastMaster->setVisible(!m_session.LastMaster().empty());
  m_lastMasterPath->setText(ToQt(m_session.LastMaster()));
}

}  // namespace zova
