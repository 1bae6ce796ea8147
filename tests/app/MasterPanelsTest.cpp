// SPDX-License-Identifier: GPL-3.0-or-later
#include <QClipboard>
#include <QCloseEvent>
#include <QGuiApplication>
#include <QTableView>
#include <QTest>
#include <QTimer>
#include <QWindow>
#include <map>

#include "app/screens/GroupPanel.h"
#include "app/screens/MasterPanel.h"
#include "app/screens/MeasurePanel.h"
#include "app/screens/OrderPanel.h"
#include "app/screens/ProgressPanel.h"
#include "support/FakePlatform.h"
#include "support/Study.h"

namespace zova::testing {
namespace {

using Stage = MasterFlow::Stage;

// The panels over the flow, of which the one of its stage is shown, as the window does.
class MasterPanelsTest : public ::testing::Test {
 protected:
  void SetUp() override {
    m_project.ProjectFileName = "Recall.prm";
    m_project.LevelCounts[0] = 1;
    m_project.LevelNames[0] = {"Man"};
    for (const char* id : {"5", "7", "9"}) m_study.Put(id, "1 2 | 3", 1);
    m_flow.SetObserver([this] { Follow(); });
    ASSERT_TRUE(m_flow.Open(m_project));
  }
  void Follow() {
    const std::map<Stage, Panel*> panels = {{Stage::Options, &m_master},       {Stage::Measures, &m_measures},
                                            {Stage::OrderOfItems, &m_order},   {Stage::OrderOfGroups, &m_order},
                                            {Stage::GroupDetails, &m_details}, {Stage::Writing, &m_master}};
    if (m_up) m_up->hide();
    if (!panels.contains(m_flow.CurrentStage())) return;
    m_up = panels.at(m_flow.CurrentStage());
    QObject::connect(m_up, &Panel::Acted, m_up, &Panel::Refresh, Qt::UniqueConnection);
    m_up->show();
    m_up->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(m_up));
  }
  // Go to the control with the focus, as from the keyboard.
  void Press(int key, Qt::KeyboardModifiers held = {}) {
    QTest::keyClick(m_up->windowHandle(), static_cast<Qt::Key>(key), held);
  }
  void Type(std::initializer_list<int> keys) {
    for (const int key : keys) Press(key);
  }
  void Alt(const char* keys) {
    for (; *keys != '\0'; ++keys) Press(*keys, Qt::AltModifier);
  }
  [[nodiscard]] QWidget* Find(const char* name) const { return m_up->findChild<QWidget*>(name); }
  [[nodiscard]] std::string Text(const char* name) const {
    return Find(name)->property("text").toString().toStdString();
  }

  Study m_study{{.Items = 40, .Variables = {"Sex"}}};
  ProjectParameters& m_project = m_study.Project;
  FakePlatform m_fakes;
  QtProgress m_progress;
  MasterFlow m_flow{m_fakes.With(m_study.OfFiles, m_fakes.Boxes, m_progress)};
  MasterOptions& m_options = m_flow.Options();
  MasterPanel m_master{m_flow, m_progress};
  MeasurePanel m_measures{m_flow, [this] { ++m_helps; }};
  OrderPanel m_order{m_flow};
  GroupPanel m_details{m_flow};
  Panel* m_up = nullptr;
  int m_helps = 0;
};

TEST_F(MasterPanelsTest, KeysReachTheOptionsAndTheMeasures) {
  QMetaObject::invokeMethod(Find("drvMasterDest"), "activated", Q_ARG(int, 0));
  EXPECT_EQ(Text("txtMasterDest"), "C:\\Data\\AB Master.txt") << "of the drive that is shown";
  Find("drvMasterDest")->setFocus();
  Press(Qt::Key_Down);
  EXPECT_EQ(Text("txtMasterDest"), "D:\\AB Master.txt");
  Alt("D"), Press(Qt::Key_End), Press('1'), Alt("SBWR");
  EXPECT_EQ(m_options.Destination(), "D:\\AB Master.txt1");
  EXPECT_EQ(m_options.ChkItemAnalysis + m_options.ChkCombine + m_options.ChkExportClean + m_options.ChkExportLong, 4);
  Alt("M"), Press(Qt::Key_Space), Alt("WE");
  EXPECT_EQ(m_helps, 1);
  EXPECT_EQ(Text("lblColumnCount"), "Columns of the master: 7 of at most 32,767.");
  for (const MeasureBox& box : AllMeasureBoxes()) {
    const QWidget* shown = Find(box.Name.data());
    const bool isGeneral = box.Which <= Measure::IP;
    EXPECT_EQ(shown->isEnabled(), isGeneral) << box.Name;
    EXPECT_EQ(shown->parentWidget()->isEnabled(), isGeneral) << box.Name;
    EXPECT_EQ(shown->property("checked").toBool(), m_options.Selection.IsChecked(box.Which)) << box.Name;
    EXPECT_EQ(m_options.Selection.IsChecked(box.Which), isGeneral && box.Which != Measure::Basic) << box.Name;
  }
  Press(Qt::Key_Return), Press(Qt::Key_Escape);
  EXPECT_EQ(m_flow.CurrentStage(), Stage::Closed);
}

TEST_F(MasterPanelsTest, AnOrderIsTypedAndTheFocusComesBackToItsBox) {
  Alt("S"), Press(Qt::Key_Return);
  const auto* grid = static_cast<QTableView*>(Find("grdOrder"));
  const auto expect = [&](const char* cells, int cursor, const char* what) {
    QString text;
    for (int row = 0; row < 3; ++row) text += grid->model()->index(row, 1).data().toString() + ' ';
    EXPECT_EQ(text.toStdString(), cells) << what;
    EXPECT_EQ(grid->currentIndex().row(), cursor) << what;
    EXPECT_TRUE(grid->viewport()->rect().contains(grid->visualRect(grid->currentIndex()))) << what;
    EXPECT_TRUE(Find("txtOrder")->hasFocus()) << what;
    EXPECT_EQ(Text("txtOrder"), "") << what;
  };
  Type({'1', '2', Qt::Key_Home, '3', Qt::Key_Up, Qt::Key_Escape, '2', Qt::Key_Return});
  expect("2 2 3 ", 1, "with text, the keys are the box's");
  Type({'Q', '1', Qt::Key_Return, Qt::Key_End, Qt::Key_PageUp, Qt::Key_Down});
  expect("2 1 3 ", 30, "without, the grid's");
  const QPoint above = grid->visualRect(grid->model()->index(28, 1)).center();
  QTest::mouseClick(grid->viewport(), Qt::LeftButton, {}, above);
  expect("2 1 3 ", 28, "a click");
  Press(Qt::Key_Home), Press('C', Qt::ControlModifier);
  EXPECT_TRUE(QGuiApplication::clipboard()->text().startsWith("2\n1\n3\n4\n"));
  QGuiApplication::clipboard()->setText("3\r\n1\r\n2\r\n");
  Press('V', Qt::ControlModifier);
  expect("3 1 2 ", 0, "pasted");
  QTest::mouseClick(Find("cmdOrderReset"), Qt::LeftButton);
  expect("1 2 3 ", 0, "reset");
  Press('Z', Qt::ControlModifier), Press(Qt::Key_Down, Qt::ShiftModifier), Press('C', Qt::ControlModifier);
  EXPECT_EQ(QGuiApplication::clipboard()->text(), "3\n1\n");
  Press(Qt::Key_Delete);
  expect("  2 ", 1, "undone, and two rows emptied");
  QTest::mouseClick(grid->viewport(), Qt::LeftButton, Qt::ShiftModifier,
                    grid->visualRect(grid->model()->index(2, 1)).center());
  Type({'1', Qt::Key_Return});
  expect("1 2 3 ", 2, "counted up");
  Press('7'), m_fakes.Boxes.Expect({.Text = "Position 7 is used twice."}), Alt("N");
  EXPECT_TRUE(Find("txtOrder")->hasFocus());
  Press(Qt::Key_Escape);
  EXPECT_EQ(m_flow.CurrentStage(), Stage::OrderOfItems) << "Escape edits the box";
  QTest::mouseClick(Find("cmdOrderCancel"), Qt::LeftButton);
  EXPECT_EQ(m_flow.CurrentStage(), Stage::Options);
}

TEST_F(MasterPanelsTest, GroupsArePreviewedWhileTheyAreTypedAndTheBarReaches100) {
  Alt("B"), Press(Qt::Key_Return), Press('2');
  EXPECT_EQ(Text("lblGroupsPreview"), "1 group of 2, left over: subject 9");
  Alt("V"), Press(Qt::Key_Down);
  EXPECT_EQ(Text("lblGroupsPreview"), "Sex, Man: 1 group of 2, left over: subject 9");
  std::string shown;
  QTimer::singleShot(0, [&] {
    for (const char* name : {"fraMasterProgress", "lblProjectName", "txtMasterDest", "cmdMastCancel"}) {
      shown += m_master.findChild<QWidget*>(name)->isVisible() ? '+' : '-';
    }
  });
  Press(Qt::Key_Return);
  EXPECT_EQ(shown, "++--") << "the screen stays round the bar";
  ASSERT_EQ(m_flow.CurrentStage(), Stage::OrderOfGroups);
  EXPECT_EQ(m_master.findChild<QWidget*>("proMasterProgress")->property("value"), 100);
  Type({'3'});
  EXPECT_EQ(Text("lblOrderPlan").substr(0, 14), "The groups sho") << "while it is typed";
  Type({Qt::Key_Return, Qt::Key_Down, '1'});
  EXPECT_EQ(Text("lblOrderPlan"), "Sex, Man: 1 group of 2, left over: subject 5");
  Press(Qt::Key_Escape), Press('Z', Qt::ControlModifier);
  EXPECT_EQ(Text("lblOrderPlan"), "Sex, Man: 1 group of 2, left over: subject 9") << "undone";
  m_fakes.Boxes.Expect({.Text = "Master(s) successfully created!"});
  Alt("N");
}

TEST_F(MasterPanelsTest, TheBarIsDrawnAtMostEvery50MillisecondsAndInputIsDiscarded) {
  const auto* bar = m_master.findChild<QWidget*>("proMasterProgress");
  Alt("D");
  m_master.findChild<QWidget*>("fraMasterProgress")->show();
  QCoreApplication::postEvent(m_up->windowHandle(), new QKeyEvent(QEvent::KeyPress, Qt::Key_7, {}, "7"));
  QCoreApplication::postEvent(m_up->windowHandle(), new QCloseEvent);
  m_progress.Show(0, "");
  m_progress.Show(1, "");
  m_progress.ProcessEvents();
  EXPECT_EQ(bar->property("value"), 0);
  QTest::qSleep(60);
  m_progress.ProcessEvents();
  EXPECT_EQ(bar->property("value"), 1) << "what came too soon is not lost";
  QTest::qSleep(60);
  m_progress.Show(2, "");
  EXPECT_EQ(bar->property("value"), 2);
  m_progress.Show(100, "");
  EXPECT_EQ(bar->property("value"), 100);
  EXPECT_TRUE(m_up->isVisible());
  EXPECT_EQ(Text("txtMasterDest"), "C:\\Data\\AB Master.txt");
}

}  // namespace
}  // namespace zova::testing
