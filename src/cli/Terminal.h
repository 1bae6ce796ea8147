// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <chrono>
#include <string>
#include <string_view>

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

/// `text` for a terminal: control characters, which a file's name may hold, as "\x1b". A line end stays where `lines`
/// says that the text has several.
enum class Lines { One, Several };
std::string Printable(std::string_view text, Lines lines = Lines::One);

bool IsStandardOutputTerminal();

/// From here on standard output takes bytes as they are, line ends included, also where a system would change them.
void SetStandardOutputBinary();

}  // namespace zova
