// SPDX-License-Identifier: GPL-3.0-or-later
#include "session/QuickHelp.h"

#include <QApplication>
#include <QListWidget>
#include <QMouseEvent>
#include <QWindow>
#include <set>

#include "app/MainWindow.h"
#include "app/desktop/HelpWindow.h"
#include "app/desktop/QuickHelpFilter.h"
#include "app/screens/LocationPanel.h"
#include "app/screens/ProgressPanel.h"
#include "session/SessionFixture.h"

namespace zova::testing {
namespace {

using QuickHelpTest = SessionTest;

// Not those that Qt makes inside a control of ours, whose sentence they share.
bool IsOwn(const QWidget& widget) {
  const QWidget* parent = widget.parentWidget();
  if (widget.inherits("QMenu") || widget.inherits("QHeaderView") || widget.inherits("QScrollBar")) return false;
  return !parent || !(parent->inherits("QAbstractItemView") || parent->inherits("QComboBox") ||
                      parent->inherits("QLineEdit") || parent->inherits("QMenuBar"));
}

TEST_F(QuickHelpTest, EveryControlOfEveryScreenHasASentence) {
  QtProgress progress;
  const MainWindow window(Started(), progress);
  const HelpWindow help(m_disk);
  std::set<std::string> names;
  for (const QWidget* top : std::initializer_list<const QWidget*>{&window, &help}) {
    for (const QWidget* widget : top->findChildren<QWidget*>()) {
      const std::string name = widget->objectName().toStdString();
      for (const char* kind : {"QLabel", "QAbstractButton", "QGroupBox", "QAbstractItemView", "QComboBox", "QLineEdit",
                               "QProgressBar", "QCustomPlot", "zova::Panel"}) {
        if (!widget->inherits(kind) || !IsOwn(*widget)) continue;
        const std::string_view sentence = QuickHelp(name);
        EXPECT_TRUE(!sentence.empty() && sentence.find('.') == sentence.size() - 1)
            << kind << " '" << name << "' has one sentence";
        EXPECT_FALSE(widget->inherits("QAbstractItemView") && widget->accessibleName().isEmpty()) << name;
        names.insert(name);
        if (!window.findChild<QWidget*>("pnlWizard")->isAncestorOf(widget)) continue;
        const std::string_view viewing = QuickHelp(name, QuickHelpForm::Viewing);
        for (const char* asks : {"Type ", "Check ", "Select ", "Answer ", "Copies ", "Completes "}) {
          EXPECT_FALSE(viewing.starts_with(asks)) << name;
        }
      }
    }
  }
  for (const char* name : {"chkBasic", "grdOrder", "proMasterProgress", "lstVarName", "lstHelpTopics"}) {
    EXPECT_EQ(names.count(name), 1U) << name;  // the loop has seen the screens
  }
}

TEST_F(QuickHelpTest, ARightClickShowsTheSentenceUntilTheNextKey) {
  Make().Start();
  m_scratch.MakeDirectory("C:\\Work");
  LocationPanel panel(m_session->Location());
  QuickHelpFilter filter(*m_session);
  qApp->installEventFilter(&filter);
  panel.resize(600, 700);
  panel.show();
  for (const char* disabled : {"cmdSetPath", "drvParamPath"}) panel.findChild<QWidget*>(disabled)->setEnabled(false);
  panel.findChild<QWidget*>("lblParamTitle")->setObjectName("unknown");  // passes to the screen's
  for (const char* control : {"lblParamNote", "cmdSetPath", "drvParamPath", "dirParamPath", "unknown"}) {
    const auto* clicked = panel.findChild<QWidget*>(control);
    const auto* list = qobject_cast<const QListWidget*>(clicked);
    const QPoint row = list ? list->visualItemRect(list->item(1)).center() : clicked->rect().center();
    const QPointF place = clicked->mapTo(&panel, row);
    QMouseEvent press(QEvent::MouseButtonPress, place, panel.mapToGlobal(place), Qt::RightButton, Qt::RightButton, {});
    QCoreApplication::sendEvent(panel.windowHandle(), &press);
    QWidget* popup = QApplication::activePopupWidget();
    ASSERT_NE(popup, nullptr) << control;
    EXPECT_EQ(popup->focusWidget()->property("text").toString().toStdString(),
              QuickHelp(clicked->objectName() == "unknown" ? "fraParamPath" : control));
    QKeyEvent key(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
    QCoreApplication::sendEvent(popup->windowHandle(), &key);
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr) << control;
    EXPECT_TRUE(!list || list->currentRow() == 0) << "a right click selects nothing";
  }
  QKeyEvent asks(QEvent::KeyPress, Qt::Key_F10, Qt::ShiftModifier);
  QCoreApplication::sendEvent(panel.findChild<QWidget*>("dirParamPath"), &asks);
  ASSERT_NE(QApplication::activePopupWidget(), nullptr);
  QKeyEvent menu(QEvent::KeyPress, Qt::Key_Menu, Qt::NoModifier);  // on X11 it comes once more, to the sentence
  QCoreApplication::sendEvent(QApplication::activePopupWidget()->windowHandle(), &menu);
  ASSERT_NE(QApplication::activePopupWidget(), nullptr);
  QApplication::activePopupWidget()->close();
}

}  // namespace
}  // namespace zova::testing
