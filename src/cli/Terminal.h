// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <chrono>
#include <string>

#include "platform/Desktop.h"
#include "platform/MessageBoxes.h"

namespace zova {

/// True when a person can be asked: standard input and standard error are a terminal.
bool IsInteractive();

/// Messages as lines on standard error. Retry/Cancel is asked on a terminal; elsewhere every answer is the one that
/// does nothing further (Cancel, No, OK).
class TerminalBoxes final : public MessageBoxes {
 public:
  explicit TerminalBoxes(bool interactive) : m_interactive(interactive) {}
  BoxAnswer Show(const MessageBox& box) override;

 private:
  bool m_interactive;
};

/// One line on standard error, written over at each step, and only on a terminal.
class TerminalProgress final : public Progress {
 public:
  explicit TerminalProgress(bool interactive) : m_interactive(interactive) {}
  ~TerminalProgress() override;
  void Show(int percent, const std::string& text) override;

 private:
  bool m_interactive;
  bool m_lineOpen = false;
  std::chrono::steady_clock::time_point m_lastShown{};
};

}  // namespace zova
