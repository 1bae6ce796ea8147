// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/MainWindow.h"

#include <QAbstractButton>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QRegularExpression>
#include <QStackedWidget>
#include <QTableView>
#include <QTest>
#include <QTimer>
#include <QTreeWidget>
#include <new>
#include <set>
#include <utility>

#include "app/desktop/Application.h"
#include "app/desktop/QuickHelpFilter.h"
#include "app/screens/ProgressPanel.h"
#include "app/widgets/Controls.h"
#include "app/widgets/Panel.h"
#include "session/SessionFixture.h"

namespace zova::testing {
namespace {

class MainWindowTest : public SessionTest {
 protected:
  MainWindowTest() {
    m_scratch.Put(kExample, FormatProject(ExampleProject("C:\\ZOVA"), kCurrentMarker));
    Settings.Values[kSetting] = "C:\\Param";
    Dialogs.Answers = {kExample};
    QObject::connect(&m_window, &MainWindow::Ended, [this] { m_hasEnded = true; });
    m_window.show();
    m_window.Start();
  }
  QAction* Entry(const char* name) { return m_window.findChild<QAction*>(name); }
  QAbstractButton* Button(const char* name) { return m_window.findChild<QAbstractButton*>(name); }

  QtProgress m_shownProgress;
  MainWindow m_window{Make(), m_shownProgress};
  bool m_hasEnded = false;
};

TEST_F(MainWindowTest, CopyingTakesItsCancelAndNothingElse) {
  m_window.activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&m_window));
  const auto* panel = m_window.findChild<QWidget*>("fraCopying");
  QWidget* main = m_window.findChild<QWidget*>("fraMain");
  EXPECT_TRUE(m_shownProgress.ShowCopying(0, 4, true));
  EXPECT_TRUE(panel->isVisible());
  // The window gets what the user does in an event loop of its own: the next step's.
  QTimer::singleShot(
      0, [&] { m_window.close(), QTest::keyClick(m_window.windowHandle(), Qt::Key_O, Qt::ControlModifier); });
  QTest::qSleep(60);
  EXPECT_TRUE(m_shownProgress.ShowCopying(1, 4, true));
  EXPECT_FALSE(m_hasEnded);
  EXPECT_EQ(std::exchange(Dialogs.Answers, {}).size(), 1) << "nothing was opened";
  QTimer::singleShot(0, [&] { QTest::mouseClick(Button("cmdCopyCancel"), Qt::LeftButton); });
  QTest::qSleep(60);
  EXPECT_FALSE(m_shownProgress.ShowCopying(2, 4, true));
  EXPECT_EQ(m_window.findChild<QLabel*>("lblCopying")->text(), "2 of 4 files");
  m_shownProgress.EndCopying();
  EXPECT_TRUE(main->isVisible());
  EXPECT_TRUE(m_shownProgress.ShowCopying(0, 2, true)) << "the next copying begins again";
  QTimer::singleShot(0, [&] { QTest::keyClick(m_window.windowHandle(), Qt::Key_Escape); });
  QTest::qSleep(60);
  EXPECT_FALSE(m_shownProgress.ShowCopying(1, 2, true));
  m_shownProgress.EndCopying();
}

// Keys that clash do nothing, and silently. Of the wizard's pages one is in sight.
std::multiset<QString> AccessKeys(const QWidget& panel, const QWidget* page, const QList<QWidget*>& pages) {
  std::multiset<QString> keys;
  for (const QWidget* widget : panel.findChildren<QWidget*>()) {
    const auto hides = [&](const QWidget* other) { return other && other != page && other->isAncestorOf(widget); };
    if (std::any_of(pages.begin(), pages.end(), hides)) continue;
    if (widget->objectName() == "cmdGoCombine") continue;  // in the place of cmdGoSerial
    const auto* label = qobject_cast<const QLabel*>(widget);
    if (label && label->buddy()) keys.insert(QKeySequence::mnemonic(label->text()).toString());
    if (const auto* button = qobject_cast<const QAbstractButton*>(widget)) keys.insert(button->shortcut().toString());
  }
  return keys;
}

TEST_F(MainWindowTest, NoAccessKeyStandsTwiceOnAScreen) {
  for (const bool isOpen : {false, true}) {
    if (isOpen) Entry("mnuOpen")->trigger();
    int screens = 0;
    for (const QObject* child : m_window.findChild<QWidget*>("staPanels")->children()) {
      const auto* panel = qobject_cast<const Panel*>(child);
      if (!panel) continue;
      QList<QWidget*> pages = panel->findChildren<QWidget*>(QRegularExpression("^FraPrmScr"));
      if (const auto* import = panel->findChild<QStackedWidget*>("staImport")) {
        for (int page = 0; page < import->count(); ++page) pages.append(import->widget(page));
      }
      if (pages.isEmpty()) pages.append(nullptr);
      for (const QWidget* page : pages) {
        auto keys = AccessKeys(*panel, page, pages);
        for (const QAction* menu : m_window.menuBar()->actions()) {
          keys.insert(QKeySequence::mnemonic(menu->text()).toString());
        }
        keys.erase("");
        const QString name = (page ? page : panel)->objectName();
        for (const QString& key : keys)
          EXPECT_EQ(keys.count(key), 1U) << key.toStdString() << " on " << name.toStdString();
        screens += keys.size() > 8 ? 1 : 0;
        EXPECT_TRUE(name != "fraMain" || keys.size() == 15U) << "a picture has none";
      }
    }
    EXPECT_EQ(screens, 25);
  }
}

TEST_F(MainWindowTest, EntriesAndPanelFollowTheSession) {
  EXPECT_TRUE(!Entry("mnuView")->isEnabled());
  for (const auto key : {Qt::Key_Enter, Qt::Key_Space}) {
    Help.Shown.clear();
    QTest::keyClick(Button("cmdPicHelp"), key);
    EXPECT_EQ(Help.Shown, "C:\\ZOVA\\ZOVA2.hlp#") << key;
  }
  QTest::mouseClick(Button("cmdOpen"), Qt::LeftButton);
  EXPECT_EQ(Button("cmdOpen")->text().remove('&'), "Change Project");
  const auto names = m_window.findChildren<QLabel*>("lblProjectName");
  EXPECT_EQ(names.size(), 11);
  for (const QLabel* name : names) EXPECT_EQ(name->text(), "Project: Example");
  EXPECT_TRUE(Entry("mnuSkip")->isEnabled());
  Entry("mnuautosave")->trigger();
  EXPECT_FALSE(Entry("mnuautosave")->isChecked());
  EXPECT_FALSE(m_session->Chosen().Autosave);
  Entry("mnuView")->trigger();
  EXPECT_TRUE(m_window.findChild<QWidget*>("fraParam")->isVisible());
  m_window.activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&m_window));
  QTest::keyClick(m_window.findChild<QWidget*>("txtExp"), Qt::Key_F1);
  EXPECT_EQ(Help.Shown, "C:\\ZOVA\\ZOVA2.hlp#viewing");
  EXPECT_FALSE(Entry("mnuOpen")->isEnabled());
  EXPECT_TRUE(Entry("mnuTopics")->isEnabled());
}

TEST_F(MainWindowTest, KeepsItsPlaceAndNamesItsProject) {
  EXPECT_EQ(m_window.windowTitle(), "ZOVA");
  Entry("mnuOpen")->trigger();
  EXPECT_EQ(m_window.windowTitle(), "Example - ZOVA");
  m_window.KeepPlace(Settings);
  m_window.resize(700, 510);
  Settings.Failures = 1;
  Settings.Values["Window/Geometry"] = "no place";
  EXPECT_TRUE(m_window.close()) << "a place that cannot be stored is no error";
  EXPECT_EQ(Settings.Values["Window/Geometry"], "no place");
  m_window.Refresh();
  MainWindow next(*m_session, m_shownProgress);
  next.KeepPlace(Settings);
  EXPECT_EQ(next.size(), QSize(700, 510));
}

TEST_F(MainWindowTest, ControlsHaveTheirSentenceAsWhatsThis) {
  QuickHelpFilter filter(*m_session);
  qApp->installEventFilter(&filter);
  const auto sentence = [this](const char* name) { return m_window.findChild<QWidget*>(name)->whatsThis(); };
  Entry("mnuOpen")->trigger();
  Entry("mnuView")->trigger();
  const QString viewing = sentence("cmdCancel1");
  EXPECT_EQ(sentence("txtExp"), ToQt(std::string(m_session->QuickHelpOf("txtExp"))));
  m_session->CancelWizard();
  Entry("mnuCreate")->trigger();
  EXPECT_FALSE(viewing.isEmpty());
  EXPECT_NE(sentence("cmdCancel1"), viewing);
}

TEST_F(MainWindowTest, AWordListIsTypedAndItsLossIsAskedFor) {
  m_window.activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&m_window));
  Entry("mnuWords")->trigger();  // opens the project first
  const auto* told = m_window.findChild<QLabel*>("lblWordsTold");
  auto* box = m_window.findChild<QLineEdit*>("txtWords");
  for (const char* word : {"7up", "ice cream"}) {
    QTest::keyClicks(box, word);
    QTest::keyClick(box, Qt::Key_Return);
  }
  EXPECT_EQ(told->text(), "2 of 66 items have a word.");
  EXPECT_EQ(m_window.findChild<QTableView*>("grdWords")->model()->index(1, 1).data().toString(), "ice cream");
  EXPECT_FALSE(Entry("mnuWords")->isEnabled());
  const char* lost = "You will lose all unsaved changes.  Are you sure that you want to do this?";
  Boxes.Expect({lost, BoxAnswer::No});
  QTest::mouseClick(Button("cmdWordsCancel"), Qt::LeftButton);
  Boxes.Expect({lost, BoxAnswer::No});
  EXPECT_FALSE(m_window.close());
  Boxes.Expect(Told("Item 3 has no word."));
  QTest::mouseClick(Button("cmdWordsSave"), Qt::LeftButton);
  Boxes.Expect({lost, BoxAnswer::Yes});
  QTest::mouseClick(Button("cmdWordsCancel"), Qt::LeftButton);
  EXPECT_TRUE(m_window.findChild<QWidget*>("fraMain")->isVisible());
}

TEST_F(MainWindowTest, ListsTheProjectsThatCanBeOpened) {
  auto* projects = m_window.findChild<QTreeWidget*>("lstProjects");
  ASSERT_TRUE(QTest::qWaitFor([&] { return projects->topLevelItemCount() == 1; }));
  QTest::keyClick(projects, Qt::Key_Return);
  ASSERT_TRUE(QTest::qWaitFor([&] { return m_session->OpenedProject() != nullptr; }));
  auto* facts = m_window.findChild<QLabel*>("lblProjectFacts");
  EXPECT_TRUE(QTest::qWaitFor([&] { return facts->text() == "3 tests, 66 items, - subjects, - unfinished"; }))
      << facts->text().toStdString();
  Dialogs.Answers.clear();
}

TEST_F(MainWindowTest, CommandsThatComeWhileAnotherRunsAreIgnored) {
  Dialogs.Meanwhile = [this] {
    Entry("mnuCreate")->trigger();
    EXPECT_FALSE(m_window.close());
  };
  Entry("mnuOpen")->trigger();
  EXPECT_EQ(m_session->Shown(), Screen::Main);
  EXPECT_FALSE(m_hasEnded);
  EXPECT_TRUE(m_window.close());
  EXPECT_TRUE(m_hasEnded);
}

TEST_F(MainWindowTest, AnExceptionInACommandBecomesABoxWithTheSubjectSecuredAndTheProgramGoesOn) {
  auto& application = static_cast<Application&>(*qApp);
  application.SetFaultHandler([this](const std::exception_ptr& fault) { m_session->Recover(fault); });
  const auto fail = [this](const std::function<void()>& act) {
    QTimer::singleShot(0, &m_window, act);
    QCoreApplication::processEvents();
  };
  const auto told = [](const std::string& text, const std::string& details) {
    return ExpectedBox{.Text = text, .Details = details, .Icon = BoxIcon::Critical, .Buttons = BoxButtons::Ok};
  };
  Dialogs.Meanwhile = [] { throw std::bad_alloc(); };
  Boxes.Expect(told("The last command could not be finished.", "There is not enough memory."));
  fail([this] { Entry("mnuOpen")->trigger(); });
  Dialogs.Meanwhile = {};
  Entry("mnuOpen")->trigger();
  ASSERT_NE(m_session->OpenedProject(), nullptr) << "the window takes commands again";

  m_scratch.MakeDirectory("C:\\ZOVA\\Sample Data");
  m_session->EnterSubjects();
  m_session->Subjects().Identification().SetSubjectText("7");
  for (int step = 0; step < 2; ++step) {
    m_session->Subjects().Identification().Next();
    m_session->Subjects().Identification().SetLevelText("1");
  }
  m_session->Subjects().FinishIdentification();
  ASSERT_EQ(m_session->Shown(), Screen::Entry);
  m_session->Subjects().Entry().Grid().Cells().SetEntryText("5");
  m_session->Subjects().Entry().Grid().Cells().Enter();
  std::filesystem::remove(m_scratch.Native("C:\\Param\\Temp.txt"));
  Boxes.Expect(told("Path not found.  Please verify that the correct disk is in the drive.", "Data"));
  fail([] { throw FileError(FileOperation::List, "C:\\Data", FileCause::PathNotFound); });
  EXPECT_TRUE(m_scratch.Has("C:\\Param\\Temp.txt"));
  EXPECT_TRUE(m_window.findChild<QWidget*>("fraInput")->isVisible());
  const auto captions = [this] {
    QString all;
    for (const char* name : {"lblTUpdate", "cmdDone", "lblThisOne", "txtSub"}) {
      all += m_window.findChild<QWidget*>(name)->property("text").toString() + '/';
    }
    return all.remove('&').toStdString();
  };
  Button("cmdDone")->click();
  EXPECT_EQ(captions(), "Test 2/Done with Test 2/Project: Example\nSubject: 7//");
  Boxes.Expect(
      {.Text = "You will lose all unsaved changes.  Are you sure that you want to do this?", .Answer = BoxAnswer::Yes});
  Button("cmdSubCancel")->click();
  EXPECT_EQ(captions(), "Test 1/Done with Test 1///") << "hidden";
  application.SetFaultHandler({});
}

}  // namespace
}  // namespace zova::testing
