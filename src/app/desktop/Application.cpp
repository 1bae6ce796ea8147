// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/desktop/Application.h"

#include <QScopedValueRollback>

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
