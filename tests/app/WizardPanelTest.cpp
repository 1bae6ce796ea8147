// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/screens/WizardPanel.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QRegularExpression>
#include <QTest>
#include <algorithm>
#include <map>

#include "app/widgets/Controls.h"
#include "project/ProjectFile.h"
#include "session/SessionFixture.h"

namespace zova {
namespace {

class WizardPanelTest : public testing::SessionTest {
 protected:
  WizardPanelTest() {
    session.SetObserver([this] { panel.Refresh(); });
    QObject::connect(&panel, &Panel::Acted, &panel, &Panel::Refresh);
    panel.show();
    panel.activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&panel));
  }

  /// Presses keys on whatever has the focus; "~x" is Alt+X.
  static void Type(const std::string& keys) {
    const std::map<char, Qt::Key> special{
        {'<', Qt::Key_Home}, {'_', Qt::Key_Down}, {'!', Qt::Key_Delete}, {'@', Qt::Key_Enter}};
    for (std::size_t i = 0; i < keys.size(); ++i) {
      QWidget* focus = QApplication::focusWidget();
      if (keys[i] == '~') {
        QTest::keyClick(focus, keys[++i], Qt::AltModifier);
        // A button is let go a little later.
        const auto isDown = [](const QAbstractButton* button) { return button->isDown(); };
        const auto buttons = focus->window()->findChildren<QAbstractButton*>();
        ASSERT_TRUE(QTest::qWaitFor([&] { return std::none_of(buttons.begin(), buttons.end(), isDown); }));
      } else if (special.count(keys[i])) {
        QTest::keyClick(focus, special.at(keys[i]));
      } else {
        QTest::keyClick(focus, keys[i]);
      }
    }
  }
  QWidget* Find(const char* name) { return panel.findChild<QWidget*>(QString::fromLatin1(name)); }
  /// The page, the control with the focus, what is selected in it, and the name that is highlighted.
  std::string Where() {
    const QWidget* focus = QApplication::focusWidget();
    std::string where = std::to_string(session.Wizard().Page()) + ' ' + FromQt(focus->objectName());
    if (const auto* box = qobject_cast<const QLineEdit*>(focus)) where += " [" + FromQt(box->selectedText()) + ']';
    for (const auto* label : panel.findChildren<QLabel*>(QRegularExpression("^lblVar"))) {
      const bool highlighted = label->isVisible() && label->backgroundRole() == QPalette::Highlight;
      if (highlighted) where += " <" + FromQt(label->text()) + '>';
    }
    return where;
  }

  Session& session = Started();
  WizardPanel panel{session};
};

TEST_F(WizardPanelTest, DefinesAProjectByKeyboardAlone) {
  const auto warn = [this](BoxAnswer answer, const char* text) {
    Boxes.Expect({.Text = text, .Answer = answer, .Title = "Warning"});
  };
  Boxes.Expect(testing::kRestoreAsked);
  Dialogs.Answers = {std::nullopt};
  session.RestoreFromBackup();  // no parameter file is copied to a backup directory from now on
  Boxes.Expect({"'D:\\Copy' Directory does not exist.  Do you wish to create it?", BoxAnswer::Yes});
  Boxes.Expect({"All categories must have an equal number of items."});
  warn(BoxAnswer::Yes, "Do you wish to erase variable 1 and all of its levels?");
  warn(BoxAnswer::No, "This action will erase all of the entered parameters.  Are you sure you want to do this?");
  session.CreateNewProject();
  const std::pair<const char*, const char*> steps[] = {
      {"ilot<\"P\r", "2 drvPath1"},
      {"~i\r~y~k", "2 txtPath2 [(none)]"},
      {"D:\\Copy@3\t60\r", "4 optCatNo"},
      {"~y7\r", "4 txtCategories [7]"},
      {"6~n~b", "4 txtCategories [6]"},
      {"\r~ya\rb@c&c\r\r", "5 txtVariable [] <     Add Level>"},
      {"\t\t\t_!", "5 lblVarLevel1 <1. c&c>"},
      {"x\r\t\t\t_~r", "5 lblVarName <The variable A has the following levels:>"},
      {"_\r", "5 txtVariable [x] <1. x>"},
      {"\t\t\t!", "5 txtVariable []"},
      {"Group\rTreated~n\r~y5\t \r", "8 txtAbbr [Pilot]"},
      {"pil\x1b", "8 txtAbbr []"}};
  for (const auto& [keys, where] : steps) {
    Type(keys);
    ASSERT_EQ(Where(), where) << keys;
  }
  warn(BoxAnswer::Yes,
       "ZOVA will not allow you to make changes to the parameters once they are completed.  If you are not sure that "
       "the parameters are correct, please select the 'No' button and use the 'Back' button to verify all of the "
       "parameters for your project.  If you are sure that the parameters are correct then select 'Yes'.  Are you sure "
       "these parameters are correct?");
  Boxes.Expect({"Do you want to continue by entering data for this project now?", BoxAnswer::Yes});
  Type("\r");
  ASSERT_EQ(session.Shown(), Screen::Identification);
  EXPECT_FALSE(m_scratch.Has("D:\\Copy\\Pilot.prm"));
  const ProjectParameters project = ReadProjectFile(m_disk, "C:\\Param\\Pilot.prm");
  EXPECT_EQ(project.PrimaryDir + project.BackupDir + project.Abbreviation, "C:D:\\Copypil");
  EXPECT_EQ(project.VariableNames[0] + project.LevelNames[0][0] + project.RatedTests[0], "GroupTreatedY");
}

TEST_F(WizardPanelTest, ViewingChangesNothing) {
  ProjectParameters project = ExampleProject("C:\\ZOVA");
  project.LevelCounts[0] = kMaxLevels;  // of an old file
  project.LevelNames[0][kMaxLevels - 1] = "last";
  session.Wizard().View(project);
  panel.Refresh();
  // The second half of a double click is no press of its own.
  QTest::mouseClick(Find("cmdNext1"), Qt::LeftButton);
  QTest::mouseDClick(Find("cmdNext1"), Qt::LeftButton);
  QTest::mouseRelease(Find("cmdNext1"), Qt::LeftButton);
  EXPECT_EQ(Where(), "2 cmdNext1");
  for (int page = 3; page <= NewProjectWizard::kPages; ++page) {
    Type("~n");
    for (auto* button : panel.findChildren<QAbstractButton*>(QRegularExpression("^(opt|chk)"))) {
      const bool checked = button->isChecked();
      if (button->isVisible()) button->click();
      EXPECT_EQ(button->isChecked(), checked) << FromQt(button->objectName());
    }
    if (page != 5) continue;
    QTest::mouseClick(Find("lblVarLevel2"), Qt::LeftButton);
    EXPECT_EQ(Where(), "5 lblVarLevel2 <2. Jane>");
    QTest::mouseClick(Find("lblVarLevel11"), Qt::LeftButton);
    EXPECT_EQ(Where(), "5 lblVarLevel11 <11. last>");
  }
  for (auto* box : panel.findChildren<QLineEdit*>()) EXPECT_TRUE(box->isReadOnly());
}

}  // namespace
}  // namespace zova
