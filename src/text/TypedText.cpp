// SPDX-License-Identifier: GPL-3.0-or-later

#include "text/TypedText.h"

namespace zova {

std::string_view WithoutOuterBlanks(std::string_view text) noexcept {
  constexpr std::string_view kBlanks = " \t";
  const std::size_t first = text.find_first_not_of(kBlanks);
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

bool BreaksField(char c) noexcept { return static_cast<unsigned char>(c) < 0x20 || c == '\x7f' || c == '"'; }

std::string FieldText(std::string_view text) {
  std::string kept(text);
  std::erase_if(kept, BreaksField);
  return kept;
}

std::string ColumnText(std::string_view text) {
  std::string kept(text);
  std::erase_if(kept, [](char c) { return c == ',' || BreaksField(c); });
  return kept;
}

}  // namespace zova
