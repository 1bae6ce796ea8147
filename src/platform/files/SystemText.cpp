// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/files/SystemText.h"

#include "text/Encoding.h"

#ifdef _WIN32
#include <string_view>

#include "platform/files/PathParts.h"
#include "platform/files/WindowsFiles.h"
#endif

namespace zova {

namespace {

#ifdef _WIN32

// In the user's language, which the C++ library, asking for English in an old encoding, does not always get. Without
// the full stop and line end at the end, as the library has it.
std::string WindowsText(int code) {
  constexpr DWORD kFlags = FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS | FORMAT_MESSAGE_MAX_WIDTH_MASK;
  constexpr DWORD kMostLetters = 4096;
  std::wstring text(kMostLetters, L'\0');
  text.resize(FormatMessageW(kFlags, nullptr, static_cast<DWORD>(code), 0, text.data(), kMostLetters, nullptr));
  text.resize(text.find_last_not_of(L". ") + 1);
  return text.empty() ? "Error " + std::to_string(code) + " of Windows" : PathText(text);
}

#endif

}  // namespace

std::string SystemText(const std::error_code& code) {
#ifdef _WIN32
  if (code.category() == std::system_category()) return WindowsText(code.value());
#endif
  const std::string text = code.message();
  return IsValidUtf8(text) ? text : FromWindows1252(text);
}

std::string SystemText(const std::exception& fault) {
  const auto* const ofSystem = dynamic_cast<const std::system_error*>(&fault);
  return ofSystem != nullptr ? SystemText(ofSystem->code()) : fault.what();
}

}  // namespace zova
