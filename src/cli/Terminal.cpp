// SPDX-License-Identifier: GPL-3.0-or-later

#include "cli/Terminal.h"

#include <cstdio>
#include <iostream>

#ifdef _WIN32
#include <fcntl.h>
#include <io.h>
#else
#include <unistd.h>
#endif

namespace zova {

namespace {

bool IsTerminal(std::FILE* stream) {
#ifdef _WIN32
  return _isatty(_fileno(stream)) != 0;
#else
  return isatty(fileno(stream)) != 0;
#endif
}

bool AskRetry() {
  for (;;) {
    std::cerr << "[R]etry or [C]ancel? " << std::flush;
    std::string answer;
    if (!std::getline(std::cin, answer)) return false;
    if (answer == "r" || answer == "R") return true;
    if (answer == "c" || answer == "C") return false;
  }
}

}  // namespace

Terminal::Terminal() : m_isTerminal(IsTerminal(stderr)), m_canAsk(m_isTerminal && IsTerminal(stdin)) {}

BoxAnswer Terminal::Show(const MessageBox& box) {
  EndProgressLine();
  std::cerr << Printable(box.Text, Lines::Several) << '\n';
  if (!box.Details.empty()) std::cerr << Printable(box.Details, Lines::Several) << '\n';
  switch (box.Buttons) {
    case BoxButtons::Ok: return BoxAnswer::Ok;
    case BoxButtons::YesNo: return BoxAnswer::No;
    case BoxButtons::RetryCancel: return m_canAsk && AskRetry() ? BoxAnswer::Retry : BoxAnswer::Cancel;
    case BoxButtons::YesNoCancel:
    case BoxButtons::Cancel: break;
  }
  return BoxAnswer::Cancel;
}

void Terminal::Show(int percent, const std::string& text) {
  if (!m_isTerminal) return;
  const auto now = std::chrono::steady_clock::now();
  if (percent < 100 && now - m_lastShown < std::chrono::milliseconds(50)) return;
  m_lastShown = now;
  std::cerr << '\r' << Printable(text) << std::flush;
  m_lineOpen = true;
  if (percent >= 100) EndProgressLine();
}

void Terminal::EndProgressLine() {
  if (m_lineOpen) std::cerr << '\n';
  m_lineOpen = false;
}

bool IsStandardOutputTerminal() { return IsTerminal(stdout); }

std::string Printable(std::string_view text, Lines lines) {
  constexpr std::string_view kHex = "0123456789abcdef";
  constexpr char kSecondSet = '\xC2';  // before the bytes 80 to 9F, which a terminal obeys as well
  std::string printable;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const auto byte = static_cast<unsigned char>(text[i]);
    const bool isSecond =
        text[i] == kSecondSet && i + 1 < text.size() && static_cast<unsigned char>(text[i + 1]) < 0xA0;
    const bool isControl = byte < 0x20 || byte == 0x7F || isSecond;
    if (!isControl || (text[i] == '\n' && lines == Lines::Several)) {
      printable += text[i];
      continue;
    }
    const auto code = isSecond ? static_cast<unsigned char>(text[++i]) : byte;
    printable += {'\\', 'x', kHex[code / 16], kHex[code % 16]};
  }
  return printable;
}

void SetStandardOutputBinary() {
#ifdef _WIN32
  std::cout.flush();
  _setmode(_fileno(stdout), _O_BINARY);
#endif
}

}  // namespace zova
