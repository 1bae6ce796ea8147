// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/screens/EntryPanel.h"

#include <QClipboard>
#include <QDialog>
#include <QGuiApplication>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QPushButton>
#include <QTableView>
#include <QTest>
#include <QTimer>

#include "session/SessionFixture.h"

namespace zova::testing {
namespace {

class EntryPanelTest : public SessionTest {
 protected:
  void Start(std::int16_t items = 66) {
    ProjectParameters project = ExampleProject("C:\\ZOVA");
    project.VariableCount = 0;
    project.ItemCount = items;
    project.RatedTests = {"Y", "N", "Y"};
    OpenExample(project).EnterSubjects();
    m_session->Subjects().Identification().SetSubjectText("7");
    m_session->Subjects().FinishIdentification();
    m_panel = std::make_unique<EntryPanel>(m_session->Subjects());
    m_panel->resize(700, 500);
    QObject::connect(m_panel.get(), &Panel::Acted, m_panel.get(), &Panel::Refresh);
    m_panel->show();
    m_panel->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(m_panel.get()));
  }
  // Goes to the control with the focus, as it does from the keyboard.
  void Press(int key, Qt::KeyboardModifiers held = Qt::NoModifier) {
    QTest::keyClick(m_panel->windowHandle(), static_cast<Qt::Key>(key), held);
  }
  // Digits are themselves; blank: Enter; the arrows: v ^ < >.
  void Type(const char* keys) {
    const std::map<char, int> names = {
        {' ', Qt::Key_Return}, {'v', Qt::Key_Down}, {'^', Qt::Key_Up}, {'<', Qt::Key_Left}, {'>', Qt::Key_Right}};
    for (; *keys != '\0'; ++keys) Press(names.contains(*keys) ? names.at(*keys) : *keys);
  }
  void Paste(const char* text) {
    QGuiApplication::clipboard()->setText(text);
    Press('V', Qt::ControlModifier);
  }
  template <typename Widget = QLineEdit>
  [[nodiscard]] Widget* Find(const char* name = "txtInput") const {
    return m_panel->findChild<Widget*>(name);
  }
  [[nodiscard]] TypedGrid& Grid() const { return m_session->Subjects().Entry().Grid().Cells(); }
  // The first lines as they are shown, then where the cursor is shown, and what stands in the box.
  [[nodiscard]] std::string Shown(int lines) const {
    const auto* table = Find<QTableView>("grdInput");
    QString text;
    for (int row = 0; row < lines; ++row) {
      for (int column = 1; column <= 3; ++column) text += table->model()->index(row, column).data().toString() + '/';
      text += ' ';
    }
    const QModelIndex cursor = table->currentIndex();
    return (text + QStringLiteral("at %1,%2 ").arg(cursor.row() + 1).arg(cursor.column()) + Find()->text())
        .toStdString();
  }
  [[nodiscard]] QPoint Place(int line, int column) const {
    const auto* table = Find<QTableView>("grdInput");
    return table->visualRect(table->model()->index(line - 1, column)).center();
  }

  std::unique_ptr<EntryPanel> m_panel;
};

TEST_F(EntryPanelTest, WordsAreListedWhileTheyAreTyped) {
  Start(4);
  WordList words;
  for (const char* text : {"pear", "apple", "applet", "grape"}) words.Words.push_back({text, ""});
  m_session->Subjects().Entry().Grid().SetWords(words);
  m_panel->Refresh();
  auto* list = Find<QListView>("lstWords");
  const auto listed = [&] {
    QString text = list->isVisible() ? "" : "closed";
    for (int row = 0; list->isVisible() && row < list->model()->rowCount(); ++row) {
      text += list->model()->index(row, 0).data().toString() + (row == list->currentIndex().row() ? "* " : " ");
    }
    return text.toStdString();
  };
  QCoreApplication::processEvents();  // lays out
  const int height = Find<QTableView>("grdInput")->height();
  Type("AP");
  EXPECT_EQ(listed(), "2 apple* 3 applet 4 grape ");
  EXPECT_EQ(Find<QTableView>("grdInput")->height(), height) << "nothing moves";
  Type("v");
  EXPECT_EQ(listed(), "2 apple 3 applet* 4 grape ");
  Press(Qt::Key_Escape);
  EXPECT_EQ(listed() + Find()->text().toStdString(), "closedap");
  Press(Qt::Key_Escape);
  EXPECT_EQ(Find()->text(), "");
  Type("AP ");
  EXPECT_EQ(Shown(1), "2 apple/// at 1,2 ");
  Grid().PlaceCursor({2, 1});
  Type("PAER");
  EXPECT_EQ(listed(), "1 pear ");
  QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, list->visualRect(list->model()->index(0, 0)).center());
  EXPECT_EQ(Grid().Text({2, 1}), "1");
}

TEST_F(EntryPanelTest, KeysReachTheRecordAndOnlyTheBoxesOwnStayInIt) {
  Start();
  const struct {
    const char* What;
    std::function<void()> Act;
    const char* Then;
  } steps[] = {
      {"digits and Enter", [&] { Type("5 1 2 12 7 6 "); }, "5/1/2/ 12/7/6/ at 3,1 "},
      {"arrows move, with text they edit", [&] { Type("^^>>19<<8v^"); }, "5/1/2/ 12/7/6/ at 1,3 819"},
      {"Delete and Escape edit the box", [&] { Press(Qt::Key_Delete); }, "5/1/2/ 12/7/6/ at 1,3 89"},
      {"Escape", [&] { Press(Qt::Key_Escape); }, "5/1/2/ 12/7/6/ at 1,3 "},
      {"Delete", [&] { Press(Qt::Key_Delete); }, "5/1/2/ 12/7/6/ at 1,3 "},
      {"back by Tab", [&] { Press(Qt::Key_Backtab, Qt::ShiftModifier); }, "5/1/2/ 12/7/6/ at 1,2 "},
      {"a block", [&] { Press(Qt::Key_Down, Qt::ShiftModifier), Type("3 "); }, "5/3/2/ 12/3/6/ at 2,2 "},
      {"an access key acts at once", [&] { Press('S', Qt::AltModifier); }, "5/2/2/ 12/2/6/ at 2,2 "},
      {"undone", [&] { Press('Z', Qt::ControlModifier), Press('Z', Qt::ControlModifier); }, "5/1/2/ 12/7/6/ at 1,2 "},
      {"redone", [&] { Press('Z', Qt::ControlModifier | Qt::ShiftModifier); }, "5/3/2/ 12/3/6/ at 1,2 "},
      {"the box's own", [&] { Type("44"), Press('Z', Qt::ControlModifier); }, "5/3/2/ 12/3/6/ at 1,2 "},
      {"no letters", [&] { Type("1Q2"); }, "5/3/2/ 12/3/6/ at 1,2 12"},
      {"Home edits", [&] { Press(Qt::Key_Home), Type("3"), Press(Qt::Key_Escape); }, "5/3/2/ 12/3/6/ at 1,2 "},
      {"last line", [&] { Press(Qt::Key_End), Press(Qt::Key_PageUp); }, "5/3/2/ 12/3/6/ at 56,2 "},
      {"first line", [&] { Press(Qt::Key_Home), Type("< "); }, "5/3/2/ 12/3/6/ at 1,1 "},
      {"a number pasted to be typed on", [&] { Paste("4"); }, "5/3/2/ 12/3/6/ at 1,1 4"},
      {"a column pasted", [&] { Press(Qt::Key_Escape), Paste("8\r\n9\r\n"); }, "8/3/2/ 9/3/6/ at 1,1 "}};
  for (const auto& step : steps) {
    step.Act();
    EXPECT_EQ(Shown(2), step.Then) << step.What;
    EXPECT_TRUE(Find()->hasFocus()) << step.What;
  }
  EXPECT_EQ(Grid().Page(), 1) << "Enter pressed a button";
  EXPECT_EQ(Find<QLabel>("lblWhere")->text(), "Recalled, line 1 (1 to 66)");
  EXPECT_EQ(Find<QLabel>("lblRecalls")->text(), "2 recalls");
  Type("1.");
  EXPECT_EQ(Find<QLabel>("lblFastHelp")->text(), "'.' was not taken: only digits can be typed here.");
  Press(Qt::Key_Escape);
  EXPECT_FALSE(Find<QLabel>("lblFastHelp")->text().startsWith("'"));
  Find<QPushButton>("cmdUndo")->click();
  EXPECT_EQ(Shown(2), "5/3/2/ 12/3/6/ at 1,1 ");
}

TEST_F(EntryPanelTest, TheFocusComesBackFromEveryButtonAndTheGrid) {
  Start();
  Type("5 1 2 ^>");
  for (const char* name : {"cmdInsert", "cmdDelete", "cmdminadd", "cmdminmin", "cmdDone"}) {
    QTest::mouseClick(Find<QPushButton>(name), Qt::LeftButton);
    EXPECT_TRUE(Find()->hasFocus()) << name;
  }
  for (const int key : {Qt::Key_Space, Qt::Key_Return}) {
    Press(Qt::Key_Tab, Qt::ControlModifier);
    EXPECT_FALSE(Find()->hasFocus());
    Find<QPushButton>("cmdDone")->setFocus();
    Press(key);
    EXPECT_TRUE(Find()->hasFocus()) << key;
  }
  EXPECT_NE(Grid().Page(), 2) << "the button was not pressed";
  Press(Qt::Key_Tab, Qt::ControlModifier);
  Type("7 ");
  EXPECT_TRUE(Find()->hasFocus());
  QWidget* cells = Find<QTableView>("grdInput")->viewport();
  QTest::mouseClick(cells, Qt::LeftButton, {}, Place(3, 2));
  QTest::mouseClick(cells, Qt::LeftButton, {}, Place(4, 0));
  QTest::mouseClick(cells, Qt::RightButton, {}, Place(4, 1));
  EXPECT_EQ(Grid().Cursor(), (GridCell{3, 2})) << "neither the positions nor the other button select";
  QTest::mousePress(cells, Qt::LeftButton, {}, Place(2, 2));
  QTest::mouseMove(cells, Place(6, 2));
  QTest::mouseRelease(cells, Qt::LeftButton, {}, Place(6, 2));
  EXPECT_EQ(Grid().Selection(), (GridBlock{2, 6, 2, 2}));
  EXPECT_TRUE(Find()->hasFocus());
}

TEST_F(EntryPanelTest, ALongNameLeavesTheButtonsInSight) {
  Start();
  m_panel->ShowProjectName(std::string(200, 'W'));
  Find<QLabel>("lblThisOne")->setText("Subject: " + QString(200, 'W'));
  const auto canBeRead = [this] { return Find<QLabel>("lblThisOne")->height() > 3 * m_panel->fontMetrics().height(); };
  EXPECT_TRUE(QTest::qWaitFor(canBeRead));
  EXPECT_LE(m_panel->minimumSizeHint().width(), 640);
}

TEST_F(EntryPanelTest, TellsTheViewOfChangedLinesAloneAndKeepsTheCursorInSight) {
  Start(999);
  const auto* table = Find<QTableView>("grdInput");
  QString told;
  QObject::connect(table->model(), &QAbstractItemModel::dataChanged,
                   [&](const QModelIndex& from, const QModelIndex& to) {
                     told += QStringLiteral("%1-%2 ").arg(from.row()).arg(to.row());
                   });
  Type("5 v"), Press(Qt::Key_Down, Qt::ShiftModifier), Type("3 ");
  EXPECT_EQ(told, "0-0 1-2 ");
  for (const int key : {Qt::Key_End, Qt::Key_PageUp, Qt::Key_Home}) {
    Press(key);
    EXPECT_TRUE(table->viewport()->rect().contains(table->visualRect(table->currentIndex()))) << key;
  }
}

TEST_F(EntryPanelTest, TheTimerFollowsTheStateAndItsTicksWaitForAMessageBox) {
  Start();
  const AutosaveTimer& state = m_session->Subjects().Entry().Timer();
  auto* timer = Find<QTimer>("tmrAutoSave");
  EXPECT_EQ(timer->interval(), 30000);
  const auto tick = [&] {
    QTimerEvent due(timer->timerId());
    QCoreApplication::sendEvent(timer, &due);
  };
  tick();
  EXPECT_EQ(state.Ticks(), 1);
  QDialog box(m_panel.get());
  box.setModal(true);
  box.show();
  tick(), tick();
  m_panel->Refresh();  // as a command does that goes on with its next message
  QCoreApplication::processEvents();
  EXPECT_EQ(state.Ticks(), 1);
  box.hide();
  m_panel->Refresh();
  QCoreApplication::processEvents();
  EXPECT_EQ(state.Ticks(), 3);
  timer->setTimerType(Qt::PreciseTimer);
  timer->setInterval(2000);  // restarts
  ASSERT_TRUE(QTest::qWaitFor([&] { return timer->remainingTime() < 1950; }));
  Type("1 ");
  EXPECT_LT(timer->remainingTime(), 1960) << "a key is no start";
  Find<QPushButton>("cmdDone")->click();
  EXPECT_GT(timer->remainingTime(), 1960);
  Boxes.Expect(
      {.Text = "You will lose all unsaved changes.  Are you sure that you want to do this?", .Answer = BoxAnswer::Yes});
  Find<QPushButton>("cmdSubCancel")->click();
  EXPECT_FALSE(timer->isActive());
}

}  // namespace
}  // namespace zova::testing
