// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QApplication>
#include <exception>
#include <functional>

namespace zova {

/// Hands an exception that reaches the event loop to a handler, so that it does not end the program.
class Application final : public QApplication {
 public:
  using QApplication::QApplication;
  void SetFaultHandler(std::function<void(const std::exception_ptr&)> handler) { m_handler = std::move(handler); }
  bool notify(QObject* receiver, QEvent* event) override;

 private:
  void Report(const std::exception_ptr& fault);

  std::function<void(const std::exception_ptr&)> m_handler;
  bool m_reporting = false;
};

}  // namespace zova
