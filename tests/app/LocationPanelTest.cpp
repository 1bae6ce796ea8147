// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/screens/LocationPanel.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QWindow>

#include "session/SessionFixture.h"

namespace zova::testing {
namespace {

constexpr const char* kNotReady = "Path not found.  Please verify that the correct disk is in the drive.";

class LocationPanelTest : public SessionTest {
 protected:
  void Start() {
    Make().Start();
    m_panel = std::make_unique<LocationPanel>(m_session->Location());
    QObject::connect(m_panel.get(), &Panel::Acted, m_panel.get(), &Panel::Refresh);
    m_panel->show();
  }
  // Comes to the control with the focus as it does from the keyboard.
  void Press(int key, const QString& text = {}) {
    QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier, text);
    QCoreApplication::sendEvent(m_panel->windowHandle(), &press);
  }
  void Type(const QString& text) { Press(Qt::Key_unknown, text); }
  void FocusOn(const char* name) { m_panel->findChild<QWidget*>(name)->setFocus(); }
  [[nodiscard]] QString Path() const { return m_panel->findChild<QLineEdit*>("txtParamPath")->text(); }

  std::unique_ptr<LocationPanel> m_panel;
};

TEST_F(LocationPanelTest, TypedTextReachesTheSessionIsReplacedOnceRefusedAndEscapeCancelsEverywhere) {
  Start();
  Type("Q:\\x");
  EXPECT_EQ(m_session->Location().Text(), "Q:\\x");
  FocusOn("drvParamPath");
  Boxes.Expect({.Text = kNotReady});
  m_panel->findChild<QPushButton*>("cmdSetPath")->click();
  Type("C:");
  EXPECT_EQ(m_session->Location().Text(), "C:");
  for (const char* control : {"txtParamPath", "drvParamPath", "dirParamPath", "cmdSetPath"}) {
    Boxes.Expect({.Text = "You cannot continue using ZOVA without selecting a location for the 'Param' Directory."});
    FocusOn(control);
    Press(Qt::Key_Escape);
  }
  EXPECT_TRUE(m_session->HasEnded());
}

TEST_F(LocationPanelTest, OffersTheParentOfAParamDirectory) {
  m_scratch.Put("C:\\Work\\Param\\Study.prm", "");
  Start();
  auto* offer = m_panel->findChild<QPushButton*>("cmdUseParent");
  EXPECT_FALSE(offer->isVisible());
  Type("C:\\Work\\Param");
  ASSERT_TRUE(offer->isVisible());
  offer->click();
  EXPECT_EQ(Path(), "C:\\Work");
  EXPECT_FALSE(offer->isVisible());
}

TEST_F(LocationPanelTest, DirectoriesAreOpenedByKeyboardAndEnterInTheListIsNotOk) {
  for (const char* directory : {"C:\\Data\\Gone", "C:\\Work", "C:\\ZOVA"}) m_scratch.MakeDirectory(directory);
  Start();
  FocusOn("dirParamPath");
  Type("dat");
  EXPECT_EQ(Path(), "C:\\") << "only the highlight moved";
  Press(Qt::Key_Enter);
  EXPECT_EQ(Path(), "C:\\Data");
  EXPECT_EQ(m_panel->findChild<QLabel*>("lblParamResult")->text(), "C:\\Data\\Param");
  std::filesystem::remove(m_scratch.Native("C:\\Data\\Gone"));
  Boxes.Expect({.Text = kNotReady});
  Press(Qt::Key_Down);
  Press(Qt::Key_Space);
  EXPECT_EQ(Path(), "C:\\Data");
  Press(Qt::Key_Backspace);
  EXPECT_EQ(Path(), "C:\\");
  FocusOn("drvParamPath");
  Press(Qt::Key_Down);
  EXPECT_EQ(Path(), "D:\\");
  FocusOn("txtParamPath");
  Boxes.Expect({.Text = "'Param' directory successfully created."});
  Press(Qt::Key_Enter);
  EXPECT_TRUE(m_scratch.Has("D:\\Param"));
}

}  // namespace
}  // namespace zova::testing
