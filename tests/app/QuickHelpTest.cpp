// SPDX-License-Identifier: GPL-3.0-or-later
#include "session/QuickHelp.h"

#include <QApplication>
#include <QMouseEvent>
#include <QWindow>

#include "app/EntryPanel.h"
#include "app/IdentificationPanel.h"
#include "app/LocationPanel.h"
#include "app/MainPanel.h"
#include "app/QuickHelpFilter.h"
#include "app/WizardPanel.h"
#include "session/SessionFixture.h"

namespace zova::testing {
namespace {

using QuickHelpTest = SessionTest;

TEST_F(QuickHelpTest, EveryControlHasASentence) {
  Session& session = Started();
  QWidget window;
  (new MainPanel(session, [](SessionCommand) {}))->setParent(&window);
  (new WizardPanel(session))->setParent(&window);
  (new LocationPanel(session))->setParent(&window);
  (new IdentificationPanel(session))->setParent(&window);
  (new EntryPanel(session))->setParent(&window);
  for (const QWidget* widget : window.findChildren<QWidget*>()) {
    const std::string name = widget->objectName().toStdString();
    for (const char* kind : {"QLabel", "QAbstractButton", "QGroupBox", "QListWidget", "QComboBox", "QLineEdit"}) {
      if (!widget->inherits(kind) || name.starts_with("qt_") || widget->inherits("QTableCornerButton")) continue;
      EXPECT_FALSE(QuickHelp(name).empty()) << kind << " '" << name << "'";
    }
  }
}

TEST_F(QuickHelpTest, ARightClickShowsTheSentenceUntilTheNextKey) {
  Make().Start();
  LocationPanel panel(*m_session);
  QuickHelpFilter filter;
  qApp->installEventFilter(&filter);
  panel.resize(600, 700);
  panel.show();
  for (const char* disabled : {"cmdSetPath", "drvParamPath"}) panel.findChild<QWidget*>(disabled)->setEnabled(false);
  panel.findChild<QWidget*>("lblParamTitle")->setObjectName("unknown");  // passes to the screen's
  for (const char* control : {"lblParamNote", "cmdSetPath", "drvParamPath", "dirParamPath", "unknown"}) {
    const auto* clicked = panel.findChild<QWidget*>(control);
    const QPointF place = clicked->mapTo(&panel, clicked->rect().center());
    QMouseEvent press(QEvent::MouseButtonPress, place, panel.mapToGlobal(place), Qt::RightButton, Qt::RightButton, {});
    QCoreApplication::sendEvent(panel.windowHandle(), &press);
    QWidget* popup = QApplication::activePopupWidget();
    ASSERT_NE(popup, nullptr) << control;
    EXPECT_EQ(popup->focusWidget()->property("text").toString().toStdString(),
              QuickHelp(clicked->objectName() == "unknown" ? "fraParamPath" : control));
    QKeyEvent key(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
    QCoreApplication::sendEvent(popup->windowHandle(), &key);
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr) << control;
  }
}

}  // namespace
}  // namespace zova::testing
