// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QApplication>
#include <QStringList>
#include <exception>
#include <functional>

namespace zova {

/// Hands an exception that reaches the event loop to a handler, so that it does not end the program, and to another one
/// the files that the desktop wants the running program to open, as macOS does at a double click.
class Application final : public QApplication {
 public:
  using QApplication::QApplication;
  void SetFaultHandler(std::function<void(const std::exception_ptr&)> handler) { m_handler = std::move(handler); }
  /// Files that came earlier are handed over at once.
  void SetFileHandler(std::function<void(const QString& file)> handler);
  bool notify(QObject* receiver, QEvent* event) override;

 protected:
  bool event(QEvent* event) override;

 private:
  void Report(const std::exception_ptr& fault);

  std::function<void(const std::exception_ptr&)> m_handler;
  bool m_reporting = false;
  std::function<void(const QString&)> m_fileHandler;
  QStringList m_files;  ///< that wait for the handler
};

}  // namespace zova
