// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/screens/IdentificationPanel.h"

#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTest>

#include "session/SessionFixture.h"

namespace zova::testing {
namespace {

class IdentificationPanelTest : public SessionTest {
 protected:
  void Start() {
    OpenExample().EnterSubjects();
    m_panel = std::make_unique<IdentificationPanel>(m_session->Subjects());
    QObject::connect(m_panel.get(), &Panel::Acted, m_panel.get(), &Panel::Refresh);
    m_panel->show();
    m_panel->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(m_panel.get()));
  }
  void Type(const QString& text) {
    for (const QChar c : text)
      QTest::sendKeyEvent(QTest::Click, m_panel->windowHandle(), Qt::Key_unknown, QString(c), {});
  }
  void Press(Qt::Key key) { QTest::keyClick(m_panel->windowHandle(), key); }
  [[nodiscard]] QString Text(const char* name) const { return m_panel->findChild<QLabel*>(name)->text(); }

  std::unique_ptr<IdentificationPanel> m_panel;
};

TEST_F(IdentificationPanelTest, NamesASubjectByItsNumbersAndEnterAlone) {
  Start();
  auto* txtSub = m_panel->findChild<QLineEdit*>("txtSub");
  Type("71,");
  Press(Qt::Key_Left), Type("\"0");
  EXPECT_EQ(txtSub->text(), "701") << "what a file cannot hold is dropped where it was typed";
  Press(Qt::Key_Return);
  EXPECT_EQ(Text("lblInfCtr"), "2 of 3");
  EXPECT_EQ(Text("lblVars").left(48), "The levels for the EXPERIMENTER variable are: \n\n");
  Boxes.Expect({.Text = "Invalid Format."});
  Type("9"), Press(Qt::Key_Enter);
  auto* levels = m_panel->findChild<QListWidget*>("lstLevels");
  levels->setFocus();
  Type("jan");
  EXPECT_EQ(m_panel->findChild<QLineEdit*>("txtInfo")->text(), "2") << "a level is found by its name";
  Press(Qt::Key_Enter);
  EXPECT_EQ(Text("lblInfCtr"), "3 of 3") << "the refused 9 was replaced by what was typed next";
  m_panel->findChild<QPushButton*>("cmdBack")->click();
  Press(Qt::Key_Return), Type("3"), Press(Qt::Key_Return);
  EXPECT_EQ(m_session->Shown(), Screen::Entry);
}

TEST_F(IdentificationPanelTest, AnExistingSubjectIsLookedForByEnterAndEscapeCancels) {
  Start();
  Press(Qt::Key_Escape);
  ASSERT_EQ(m_session->Shown(), Screen::Main);
  m_session->ReadOldData();
  m_panel->Refresh();
  for (const char* name : {"cmdOK", "cmdNext", "txtInfo"}) {
    EXPECT_EQ(m_panel->findChild<QWidget*>(name)->isVisible(), name == std::string("cmdOK")) << name;
  }
  Boxes.Expect({.Text = "Invalid Format."});
  Press(Qt::Key_Return);
  Dialogs.Answers = {std::nullopt};
  QTest::mouseClick(m_panel->findChild<QPushButton*>("cmdBrowse"), Qt::LeftButton);
  QTest::mouseDClick(m_panel->findChild<QPushButton*>("cmdBrowse"), Qt::LeftButton);
}

}  // namespace
}  // namespace zova::testing
