// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/desktop/Application.h"

#include <QFileOpenEvent>
#include <QScopedValueRollback>
#include <utility>

namespace zova {

bool Application::notify(QObject* receiver, QEvent* event) {
  std::exception_ptr fault;
  try {
    return QApplication::notify(receiver, event);
  } catch (...) {
    fault = std::current_exception();
  }
  Report(fault);
  return true;
}

void Application::SetFileHandler(std::function<void(const QString&)> handler) {
  m_fileHandler = std::move(handler);
  if (!m_fileHandler) return;
  for (const QString& file : std::exchange(m_files, {})) m_fileHandler(file);
}

bool Application::event(QEvent* event) {
  if (event->type() != QEvent::FileOpen) return QApplication::event(event);
  const QString file = static_cast<QFileOpenEvent*>(event)->file();
  if (m_fileHandler) {
    m_fileHandler(file);
  } else {
    m_files.append(file);
  }
  return true;
}

// While a fault is reported the window may run into it again, as often as it is drawn behind the box.
void Application::Report(const std::exception_ptr& fault) {
  if (m_reporting || !m_handler) return;
  const QScopedValueRollback<bool> reporting(m_reporting, true);
  try {
    m_handler(fault);
  } catch (...) {
    qCritical("ZOVA: an error could not be reported.");
  }
}

}  // namespace zova
