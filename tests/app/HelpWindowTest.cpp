// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/desktop/HelpWindow.h"

#include <gtest/gtest.h>

#include <QTest>

#include "support/Scratch.h"

namespace zova {
namespace {

class HelpWindowTest : public ::testing::Test {
 protected:
  HelpWindowTest() {
    m_scratch.Put("C:\\H.hlp",
                  "<body>\n<h1><a name=\"contents\">Contents</a></h1>\n<p>plum, <a href=\"#arc\">ARC</a>\n"
                  "<h2><a name=\"net\">Net &amp; more</a></h2>\nrecall of Plums\n"
                  "<h3><a name=\"arc\">ARC</a></h3>\nplum, pear, PLUM\n");
  }
  /// The page that the list marks, and what is selected in the text.
  std::string Place() { return FromQt(m_list->currentItem()->text(0) + "|" + m_text->textCursor().selectedText()); }
  void Key(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
    QTest::keyClick(m_window.focusWidget(), key, modifiers);
  }

  testing::Scratch m_scratch;
  Disk m_disk = m_scratch.MakeDisk();
  HelpWindow m_window{m_disk};
  QTreeWidget* m_list = m_window.findChild<QTreeWidget*>("lstHelpTopics");
  QTextBrowser* m_text = m_window.findChild<QTextBrowser*>("txtHelp");
};

TEST_F(HelpWindowTest, SearchGoesThroughAllPagesAndBackReturns) {
  m_window.ShowHelp("C:\\H.hlp", "arc");
  ASSERT_TRUE(QTest::qWaitForWindowActive(&m_window));
  EXPECT_EQ(Place(), "ARC|");
  EXPECT_EQ(m_text->toPlainText().trimmed(), "ARC\nplum, pear, PLUM");
  Key(Qt::Key_F, Qt::ControlModifier);
  QTest::keyClicks(m_window.focusWidget(), "plum");
  const struct {
    Qt::KeyboardModifiers Modifiers;
    const char* Place;
  } kSteps[] = {{{}, "ARC|plum"},
                {{}, "ARC|PLUM"},
                {{}, "Contents|plum"},
                {{}, "Net & more|Plum"},
                {Qt::ShiftModifier, "Contents|plum"},
                {Qt::ShiftModifier, "ARC|PLUM"}};
  for (const auto& [modifiers, place] : kSteps) {
    Key(Qt::Key_F3, modifiers);
    EXPECT_EQ(Place(), place);
  }
  QTest::keyClicks(m_window.focusWidget(), "x");
  Key(Qt::Key_Return);
  EXPECT_EQ(m_window.findChild<QLabel*>("lblHelpFound")->text(), "Not found");
  for (int page = 0; page < 2; ++page) Key(Qt::Key_Left, Qt::AltModifier);
  EXPECT_EQ(Place().substr(0, 3), "Net");
  Key(Qt::Key_F1);
  EXPECT_EQ(m_list->currentItem()->text(0), "Contents");
  m_text->setFocus();
  Key(Qt::Key_Tab);  // to the link
  Key(Qt::Key_Return);
  EXPECT_EQ(Place().substr(0, 3), "ARC");
  m_list->setFocus();
  Key(Qt::Key_Up);
  EXPECT_TRUE(m_text->toPlainText().startsWith("Net & more\nrecall"));
  Key(Qt::Key_Escape);
  EXPECT_FALSE(m_window.isVisible());
}

TEST_F(HelpWindowTest, AFileThatCannotBeReadIsNamedAndTriedAgain) {
  m_window.ShowHelp("C:\\No <file>.hlp", "arc");
  EXPECT_TRUE(m_text->toPlainText().contains("'C:\\No <file>.hlp' could not be read"));
  m_scratch.Put("C:\\No <file>.hlp", "no headings");
  m_window.ShowHelp("C:\\No <file>.hlp", "arc");
  EXPECT_EQ(m_text->toPlainText(), "no headings") << "the page before has the same address";
}

}  // namespace
}  // namespace zova
