// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/desktop/QtDesktop.h"

#include <QApplication>
#include <QDesktopServices>
#include <QMainWindow>
#include <QUrl>

#include "app/widgets/Controls.h"
#include "platform/files/DriveMap.h"

namespace zova {
namespace {

QWidget* WindowForDialogs() {
  if (QWidget* active = QApplication::activeWindow()) return active;
  for (QWidget* window : QApplication::topLevelWidgets()) {
    if (window->isVisible() && qobject_cast<QMainWindow*>(window) != nullptr) return window;
  }
  return nullptr;
}

}  // namespace

void QtDesktop::Count(int& what, int by) {
  what += by;
  const bool wanted = m_busy > 0 && m_pauses == 0;
  if (wanted && !m_shown) QApplication::setOverrideCursor(Qt::WaitCursor);
  if (!wanted && m_shown) QApplication::restoreOverrideCursor();
  m_shown = wanted;
}

void QtDesktop::Beep() { QApplication::beep(); }

bool QtDesktop::OpenFolder(const ResolvedPath& directory) {
  return QDesktopServices::openUrl(QUrl::fromLocalFile(ToQt(NativeText(directory))));
}

QtDesktop::Pause::Pause(QtDesktop& desktop) : m_desktop(desktop), m_window(WindowForDialogs()) {
  if (m_window) m_focus = m_window->focusWidget();
  m_desktop.Count(m_desktop.m_pauses, 1);
}

QtDesktop::Pause::~Pause() {
  m_desktop.Count(m_desktop.m_pauses, -1);
  if (m_window) m_window->activateWindow();
  if (m_focus) m_focus->setFocus(Qt::ActiveWindowFocusReason);
}

}  // namespace zova
