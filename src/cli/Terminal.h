// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <chrono>
#include <string>

#include "platform/desktop/Desktop.h"
#include "platform/desktop/MessageBoxes.h"

namespace zova {

/// Writes messages as lines, and the progress of a run as one line that is overwritten, to standard error. Asks
/// Retry/Cancel if standard input and error are a terminal; otherwise, and for all other boxes, the answer is the one
/// that does nothing further (Cancel, No, OK). Shows progress only on a terminal.
class Terminal final : public MessageBoxes, public Progress {
 public:
  Terminal();
  BoxAnswer Show(const MessageBox& box) override;
  void Show(int percent, const std::string& text) override;
  void ProcessEvents() override {}

 private:
  void EndProgressLine();

  bool m_isTerminal;
  bool m_canAsk;
  bool m_lineOpen = false;
  std::chrono::steady_clock::time_point m_lastShown{};
};

/// Stops the system from converting line ends on standard output.
void SetStandardOutputBinary();

}  // namespace zova
