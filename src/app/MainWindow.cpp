// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/MainWindow.h"

#include <QApplication>
#include <QCloseEvent>
#include <QMenuBar>
#include <QScopedValueRollback>
#include <QScreen>
#include <QShortcut>
#include <QStackedWidget>

#include "app/screens/ComparePanel.h"
#include "app/screens/CopyingPanel.h"
#include "app/screens/EntryPanel.h"
#include "app/screens/GroupPanel.h"
#include "app/screens/IdentificationPanel.h"
#include "app/screens/ImportPanel.h"
#include "app/screens/LocationPanel.h"
#include "app/screens/MainPanel.h"
#include "app/screens/MasterPanel.h"
#include "app/screens/MeansPanel.h"
#include "app/screens/MeasurePanel.h"
#include "app/screens/OrderPanel.h"
#include "app/screens/SubjectsPanel.h"
#include "app/screens/WizardPanel.h"
#include "app/screens/WordsPanel.h"
#include "app/widgets/Controls.h"

namespace zova {

namespace {

constexpr const char* kPlaceSection = "Window";
constexpr const char* kPlaceKey = "Geometry";

// Shown behind the final messages of a master.
class BlankPanel final : public Panel {
 public:
  BlankPanel() : Panel("fraMastersDone") {}

 protected:
  void ShowState() override {}
};

}  // namespace

MainWindow::MainWindow(Session& session, QtProgress& progress)
    : m_session(session),
      m_menus(*menuBar(), session, [this](const auto& act) { Run(act); }),
      m_panels(Named(new QStackedWidget, "staPanels")),
      m_main(Add(new MainPanel(session, [this](const auto& act) { Run(act); }))),
      m_wizard(Add(new WizardPanel(session))),
      m_location(Add(new LocationPanel(session.Location()))),
      m_identification(Add(new IdentificationPanel(session.Subjects()))),
      m_entry(Add(new EntryPanel(session.Subjects()))),
      m_masterOptions(Add(new MasterPanel(session.Masters(), progress))),
      m_measures(Add(new MeasurePanel(session.Masters(), [this] { Run(&Session::ShowMeasuresHelp); }))),
      m_order(Add(new OrderPanel(session.Masters()))),
      m_groups(Add(new GroupPanel(session.Masters()))),
      m_blank(Add(new BlankPanel)),
      m_means(Add(new MeansPanel(session))),
      m_words(Add(new WordsPanel(session))),
      m_subjects(Add(new SubjectsPanel(session))),
      m_compare(Add(new ComparePanel(session))),
      m_import(Add(new ImportPanel(session))) {
  Add(new CopyingPanel(progress));
  setObjectName("frmZova");
  setCentralWidget(m_panels);
  m_session.SetObserver([this] { Refresh(); });
  connect(new QShortcut(Qt::Key_F1, this), &QShortcut::activated, this, [this] { Run(&Session::ShowScreenHelp); });
  Refresh();
  // Minus the title bar, so that the lower edge is visible on a small screen.
  const QSize free = screen()->availableSize() - QSize(0, 2 * fontMetrics().height() + 8);
  setMinimumSize(QSize(640, 480).boundedTo(free));
  resize(QSize(1024, 768).expandedTo(sizeHint()).boundedTo(free));
}

Panel* MainWindow::Add(Panel* panel) {
  m_panels->addWidget(panel);
  connect(panel, &Panel::Acted, this, &MainWindow::Refresh);
  return panel;
}

Panel* MainWindow::PanelOf(Screen screen) const {
  switch (screen) {
    case Screen::Main: return m_main;
    case Screen::Wizard:
    case Screen::Viewing: return m_wizard;
    case Screen::Location: return m_location;
    case Screen::Identification: return m_identification;
    case Screen::Entry: return m_entry;
    case Screen::Masters: return PanelOf(m_session.Masters().CurrentStage());
    case Screen::Means: return m_means;
    case Screen::Words: return m_words;
    case Screen::Subjects: return m_subjects;
    case Screen::Compare: return m_compare;
    case Screen::Import: return m_import;
  }
  return m_main;
}

Panel* MainWindow::PanelOf(MasterFlow::Stage stage) const {
  switch (stage) {
    case MasterFlow::Stage::Closed: break;
    case MasterFlow::Stage::Options:
    case MasterFlow::Stage::Writing: return m_masterOptions;
    case MasterFlow::Stage::Measures: return m_measures;
    case MasterFlow::Stage::OrderOfItems:
    case MasterFlow::Stage::OrderOfGroups: return m_order;
    case MasterFlow::Stage::GroupDetails: return m_groups;
    case MasterFlow::Stage::Finished: return m_blank;
  }
  return m_main;
}

void MainWindow::KeepPlace(SettingsStore& settings) {
  m_settings = &settings;
  try {
    restoreGeometry(QByteArray::fromBase64(QByteArray::fromStdString(settings.Get(kPlaceSection, kPlaceKey))));
  } catch (const FileError&) {
    // The session reports settings that cannot be read.
  }
}

// A place that is lost is no error.
void MainWindow::StorePlace() {
  if (m_settings == nullptr) return;
  try {
    m_settings->Set(kPlaceSection, kPlaceKey, saveGeometry().toBase64(QByteArray::OmitTrailingEquals).toStdString());
  } catch (const FileError&) {
  }
}

void MainWindow::Start(const std::string& projectFile) {
  Run([&](Session& session) { session.Start(projectFile); });
}

// A message box processes events while a command waits for its answer.
bool MainWindow::IsBusy() const { return m_running || QApplication::activeModalWidget() != nullptr; }

void MainWindow::Run(const std::function<void(Session&)>& act) {
  if (IsBusy()) return;
  {
    const QScopedValueRollback<bool> running(m_running, true);
    act(m_session);
  }
  Refresh();
}

// The panels keep the last project's name when it is closed: none of them comes up without one.
void MainWindow::ShowProject() {
  const bool isOpen = m_session.OpenedProject() != nullptr;
  setWindowTitle(isOpen ? ToQt(m_session.ProjectCaption() + " - ZOVA") : "ZOVA");
  if (!isOpen || m_shownProject == m_session.ProjectCaption()) return;
  m_shownProject = m_session.ProjectCaption();
  for (Panel* panel : m_panels->findChildren<Panel*>()) panel->ShowProjectName(m_shownProject);
}

void MainWindow::Refresh() {
  m_menus.Refresh();
  ShowProject();
  Panel* panel = PanelOf(m_session.Shown());
  if (panel == m_panels->currentWidget()) {
    panel->Refresh();
  } else {
    m_panels->setCurrentWidget(panel);  // which refreshes it as it comes up
  }
  if (!m_session.HasEnded()) return;
  StorePlace();
  emit Ended();
}

void MainWindow::closeEvent(QCloseEvent* event) {
  event->ignore();  // also when the session ends by an exception
  bool mayGo = m_session.HasEnded();
  if (!mayGo && !IsBusy()) {
    const QScopedValueRollback<bool> running(m_running, true);
    mayGo = m_session.Close();
  }
  Refresh();  // which ends the program
  event->setAccepted(mayGo);
}

}  // namespace zova
