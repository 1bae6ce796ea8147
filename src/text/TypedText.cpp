// SPDX-License-Identifier: GPL-3.0-or-later

#include "text/TypedText.h"

namespace zova {

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
