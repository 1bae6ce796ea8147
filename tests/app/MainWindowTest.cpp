// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/MainWindow.h"
#include "app/ProgressPanel.h"

#include <gtest/gtest.h>

#include <QMenuBar>
#include <QTest>
#include <set>

#include "app/Controls.h"
#include "app/MainPanel.h"
#include "support/FakePlatform.h"
#include "support/Scratch.h"
#include "support/ScriptedBoxes.h"

namespace zova {
namespace {

/// Always chooses the example, after whatever `Meanwhile` does in the dialog's event loop.
struct ExampleChooser final : Choosers {
  std::optional<std::string> ChooseFile(const FileQuestion&) override {
    if (Meanwhile) Meanwhile();
    return "C:\\Param\\Example.prm";
  }
  std::optional<std::string> ChooseNewFile(const FileQuestion&) override { return std::nullopt; }
  std::function<void()> Meanwhile;
};

class MainWindowTest : public ::testing::Test {
 protected:
  MainWindowTest() {
    m_scratch.Put("C:\\Param\\Example.prm", testing::ReadFile(ZOVA_DATA "/Sample Data/Example.prm"));
    m_settings.Values["Startup/ParamPath$"] = "C:\\Param";
    QObject::connect(&m_window, &MainWindow::Ended, [this] { m_hasEnded = true; });
    m_window.show();
  }
  QAction* Entry(const char* name) { return m_window.findChild<QAction*>(name); }
  QAbstractButton* Button(const char* name) { return m_window.findChild<QAbstractButton*>(name); }

  testing::Scratch m_scratch;
  Disk m_disk = m_scratch.MakeDisk();
  testing::ScriptedBoxes m_boxes;
  ExampleChooser m_choosers;
  testing::FakeSettings m_settings;
  testing::CountingDesktop m_desktop;
  testing::FakeHelpViewer m_help;
  testing::RecordingProgress m_progress;
  Session m_session{{m_disk, m_boxes, m_choosers, m_settings, m_desktop, m_help, m_progress}, "C:\\ZOVA", ZOVA_DATA};
  QtProgress m_shownProgress;
  MainWindow m_window{m_session, m_shownProgress};
  bool m_hasEnded = false;
};

TEST_F(MainWindowTest, NoAccessKeyStandsTwiceOnTheMainScreen) {
  m_window.Start();
  for (const bool isOpen : {false, true}) {
    if (isOpen) Entry("mnuOpen")->trigger();
    std::multiset<QString> keys;
    for (const QAction* menu : m_window.menuBar()->actions())
      keys.insert(QKeySequence::mnemonic(menu->text()).toString());
    for (const auto* button : m_window.findChild<QWidget*>("fraMain")->findChildren<PictureButton*>()) {
      keys.insert(button->shortcut().toString());
    }
    keys.insert(Button("cmdOpen")->shortcut().toString());
    EXPECT_EQ(keys.size(), 11U);
    for (const QString& key : keys) EXPECT_TRUE(!key.isEmpty() && keys.count(key) == 1) << FromQt(key);
  }
}

TEST_F(MainWindowTest, EntriesAndPanelFollowTheSession) {
  m_window.Start();
  EXPECT_TRUE(!Entry("mnuView")->isEnabled());
  for (const auto key : {Qt::Key_Enter, Qt::Key_Space}) {
    m_help.Shown.clear();
    QTest::keyClick(Button("cmdPicHelp"), key);
    EXPECT_EQ(m_help.Shown, "C:\\ZOVA\\ZOVA2.hlp#") << key;
  }
  QTest::mouseClick(Button("cmdOpen"), Qt::LeftButton);
  EXPECT_EQ(Button("cmdOpen")->text().remove('&'), "Change Project");
  EXPECT_TRUE(Entry("mnuSkip")->isEnabled());
  Entry("mnuautosave")->trigger();
  EXPECT_FALSE(Entry("mnuautosave")->isChecked() || m_session.Chosen().Autosave);
  Entry("mnuView")->trigger();
  EXPECT_TRUE(m_window.findChild<QWidget*>("fraParam")->isVisible());
  m_window.activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&m_window));
  QTest::keyClick(m_window.findChild<QWidget*>("txtExp"), Qt::Key_F1);
  EXPECT_EQ(m_help.Shown, "C:\\ZOVA\\ZOVA2.hlp#viewing");
  EXPECT_TRUE(!Entry("mnuOpen")->isEnabled() && Entry("mnuTopics")->isEnabled());
}

TEST_F(MainWindowTest, CommandsThatComeWhileAnotherRunsAreIgnored) {
  m_window.Start();
  m_choosers.Meanwhile = [this] {
    Entry("mnuCreate")->trigger();
    EXPECT_FALSE(m_window.close());
  };
  Entry("mnuOpen")->trigger();
  EXPECT_TRUE(m_session.Shown() == Screen::Main && !m_hasEnded);
  EXPECT_TRUE(m_window.close() && m_hasEnded);
}

}  // namespace
}  // namespace zova
