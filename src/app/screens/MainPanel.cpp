// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/screens/MainPanel.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QListWidget>
#include <QScrollArea>
#include <QTimer>
#include <QTreeWidget>
#include <QVBoxLayout>
#include <algorithm>

#include "app/widgets/Colours.h"
#include "app/widgets/Controls.h"
#include "app/widgets/NameLabel.h"
#include "session/QuickHelp.h"

namespace zova {
namespace {

constexpr int kPicturesInRow = 4;
constexpr int kPictureWidth = 170;
constexpr int kLinesInList = 6;

struct Picture {
  const char* Name;
  const char* Caption;
  const char* Icon;
  SessionCommand Command;
};
constexpr Picture kPictures[] = {
    {"cmdPicEnter", "&Enter Subjects", "enter", &Session::EnterSubjects},
    {"cmdPicMaster", "Create New &Master", "master", &Session::CreateNewMaster},
    {"cmdPicMeans", "E&xamine Means", "means", &Session::ExamineMeans},
    {"cmdPicSubjects", "&Subjects", "subjects", &Session::ShowSubjects},
    {"cmdPicCreate", "Create &New Project", "create", &Session::CreateNewProject},
    {"cmdPicUnfinished", "&Unfinished Business", "unfinished", &Session::UnfinishedBusiness},
    {"cmdPicHelp", "He&lp", "help", &Session::ShowTopics},
};

// As high as its lines, within bounds, so that nothing below it is pushed out of sight.
void FitLines(QAbstractItemView& list, int lines, int headings) {
  const int height = list.fontMetrics().height() + 6;
  list.setFixedHeight((std::clamp(lines, 1, kLinesInList) + headings) * height + 2 * list.frameWidth());
}

QString QuickHelpOf(const char* name) { return ToQt(std::string(QuickHelp(name))); }

}  // namespace

PictureButton::PictureButton(const char* name, const QString& caption, const char* picture) {
  setObjectName(name);
  setText(caption);
  setIcon(NamedIcon(picture));
  setToolButtonStyle(Qt::ToolButtonTextUnderIcon);
  setFocusPolicy(Qt::StrongFocus);
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
  setMaximumWidth(kPictureWidth);
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
  column->setSpacing(12);
  column->addWidget(MakeProjectGroup());
  auto* grid = new QGridLayout;
  AddPictures(*grid);
  column->addLayout(grid);
  column->addWidget(m_projectsGroup = MakeProjectsGroup());
  column->addWidget(m_lastMaster = MakeLastMasterGroup());
  column->addStretch(1);
  for (QWidget* group : {static_cast<QWidget*>(m_projectsGroup), static_cast<QWidget*>(m_lastMaster)}) {
    group->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Maximum);  // the rest of the page stays below
  }
  page->setMaximumWidth(kPicturesInRow * (kPictureWidth + grid->spacing()));
  QScrollArea* area = Named(MakeScrolling(page), "scrMain");
  area->setAlignment(Qt::AlignHCenter);
  AddContent(area);
  AddStatus(MakeLabel("lblQuickHelp", "Right click something for fast help about it"));
}

QWidget* MainPanel::MakeProjectGroup() {
  auto* group = Named(new QGroupBox("Current Project"), "fraCurrentProject");
  m_currentProject = new NameLabel("lblCurrentProject");
  m_open = MakeButton("cmdOpen", {});
  m_open->setIcon(NamedIcon("open"));
  m_open->setIconSize(QSize(1, 1) * m_open->fontMetrics().height() * 3 / 2);
  m_open->setToolTip(QuickHelpOf("cmdOpen"));
  connect(m_open, &QPushButton::clicked, this, [this] { m_run(&Session::OpenExistingProject); });
  m_facts = MakeLabel("lblProjectFacts", {});
  m_directory = MakeLabel("lblProjectDirectory", {});
  m_directory->setTextInteractionFlags(Qt::TextSelectableByMouse);
  m_projectNote = MakeLabel("lblProjectNote", {});
  Enlarge(*m_currentProject, 1.25);
  auto* row = new QHBoxLayout(group);
  row->setContentsMargins({});
  auto* rows = new QVBoxLayout;
  rows->setSpacing(4);
  for (QLabel* label : {m_currentProject, m_facts, m_directory, m_projectNote}) rows->addWidget(label);
  row->addLayout(rows, 1);
  row->addWidget(m_open, 0, Qt::AlignTop);
  return group;
}

QGroupBox* MainPanel::MakeProjectsGroup() {
  auto* group = Named(new QGroupBox("Projects"), "fraProjects");
  m_projects = Named(new QTreeWidget, "lstProjects");
  m_projects->setAccessibleName("Projects");
  m_projects->setHeaderLabels({"Title", "Tests x Items", "Subjects"});
  m_projects->setRootIsDecorated(false);
  m_projects->setUniformRowHeights(true);
  m_projects->setAllColumnsShowFocus(true);
  m_projects->header()->setStretchLastSection(false);
  m_projects->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
  m_projects->header()->setSectionResizeMode(0, QHeaderView::Stretch);
  const auto open = [this](const QTreeWidgetItem* item) {
    const std::string path = FromQt(item->data(0, Qt::UserRole).toString());
    // Not within the list's own event: the list is filled again before the command ends.
    QTimer::singleShot(0, this, [this, path] { m_run([&](Session& session) { session.OpenProject(path); }); });
  };
  connect(m_projects, &QTreeWidget::itemActivated, this, open);
  auto* rows = new QVBoxLayout(group);
  rows->setContentsMargins({});
  rows->addWidget(m_projects);
  return group;
}

QGroupBox* MainPanel::MakeLastMasterGroup() {
  auto* group = Named(new QGroupBox("Last Master"), "fraLastMaster");
  m_lastMasterPath = new NameLabel("lblLastMaster");
  m_lastMasterPath->setTextInteractionFlags(Qt::TextSelectableByMouse);
  QPushButton* open = MakeButton("cmdLastMaster", "Open Fol&der");
  connect(open, &QPushButton::clicked, this, [this] { m_run(&Session::OpenLastMasterFolder); });
  m_lastFiles = Named(new QListWidget, "lstLastFiles");
  m_lastFiles->setAccessibleName("Files of the last run");
  auto* row = new QHBoxLayout;
  row->addWidget(m_lastMasterPath, 1);
  row->addWidget(open);
  auto* rows = new QVBoxLayout(group);
  rows->setContentsMargins({});
  rows->addLayout(row);
  rows->addWidget(m_lastFiles);
  return group;
}

void MainPanel::AddPictures(QGridLayout& grid) {
  int place = 0;
  for (const Picture& picture : kPictures) {
    auto* button = new PictureButton(picture.Name, picture.Caption, picture.Icon);
    button->setToolTip(QuickHelpOf(picture.Name));
    connect(button, &PictureButton::clicked, this, [this, command = picture.Command] { m_run(command); });
    grid.addWidget(button, place / kPicturesInRow, place % kPicturesInRow);
    grid.setColumnStretch(place % kPicturesInRow, 1);
    ++place;
  }
}

// Counting takes a moment on a slow drive: the screen is shown before.
void MainPanel::CountLater() {
  if (m_counts || !isVisible()) return;
  m_counts = true;
  QTimer::singleShot(0, this, [this] {
    m_counts = false;
    if (isVisible() && m_session.CountsAreOld()) m_run(&Session::CountProjects);
  });
}

void MainPanel::ShowProjects() {
  const std::vector<ListedProject>& projects = m_session.Projects();
  m_projectsGroup->setVisible(!projects.empty());
  QList<QTreeWidgetItem*> items;
  for (const ListedProject& project : projects) {
    auto* item = new QTreeWidgetItem({ToQt(project.Title), ToQt(project.Shape), ToQt(project.Subjects)});
    item->setData(0, Qt::UserRole, ToQt(project.Path));
    for (const int number : {1, 2}) item->setTextAlignment(number, Qt::AlignRight | Qt::AlignVCenter);
    items.append(item);
  }
  m_projects->clear();
  m_projects->addTopLevelItems(items);
  if (!items.empty()) m_projects->setCurrentItem(items.front());
  FitLines(*m_projects, static_cast<int>(items.size()), 1);
}

void MainPanel::ShowLastMaster() {
  m_lastMaster->setVisible(!m_session.LastMaster().empty());
  m_lastMasterPath->setText(ToQt(m_session.LastMaster()));
  const std::vector<std::string>& files = m_session.LastFiles();
  m_lastFiles->setVisible(files.size() > 1);
  m_lastFiles->clear();
  for (const std::string& file : files) m_lastFiles->addItem(ToQt(file));
  FitLines(*m_lastFiles, m_lastFiles->count(), 0);
}

void MainPanel::ShowState() {
  m_currentProject->setText(ToQt(m_session.ProjectCaption()));
  // "Project" is in both captions; its j is free, the letters of the menus are not.
  m_open->setText(ToQt(m_session.OpenCaption()).replace("ject", "&ject"));
  const ProjectParameters* project = m_session.OpenedProject();
  m_facts->setText(ToQt(m_session.ProjectFacts()));
  m_facts->setVisible(project != nullptr);
  m_directory->setText(project ? ToQt(project->PrimaryDir) : QString());
  m_directory->setVisible(project != nullptr);
  m_projectNote->setText(ToQt(m_session.ProjectNote()));
  m_projectNote->setVisible(!m_projectNote->text().isEmpty());
  ShowProjects();
  ShowLastMaster();
  if (m_session.CountsAreOld()) CountLater();
}

}  // namespace zova
