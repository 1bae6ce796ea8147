// SPDX-License-Identifier: GPL-3.0-or-later

#include "text/TypedText.h"

#include <algorithm>
#include <array>
#include <utility>

#include "text/Encoding.h"

namespace zova {

namespace {

// First and last code point of each range: blanks, joiners, marks of direction, fillers, selectors of variants.
constexpr std::array<std::pair<char32_t, char32_t>, 17> kInvisible = {{{0x00, 0x20},
                                                                       {0x7F, 0xA0},
                                                                       {0xAD, 0xAD},
                                                                       {0x34F, 0x34F},
                                                                       {0x61C, 0x61C},
                                                                       {0x115F, 0x1160},
                                                                       {0x1680, 0x1680},
                                                                       {0x17B4, 0x17B5},
                                                                       {0x180B, 0x180F},
                                                                       {0x2000, 0x200F},
                                                                       {0x2028, 0x202F},
                                                                       {0x205F, 0x206F},
                                                                       {0x3000, 0x3000},
                                                                       {0x3164, 0x3164},
                                                                       {0xFE00, 0xFE0F},
                                                                       {0xFEFF, 0xFEFF},
                                                                       {0xE0000, 0xE0FFF}}};

// Of one character in UTF-8.
char32_t CodePoint(std::string_view character) noexcept {
  const auto first = static_cast<unsigned char>(character.front());
  constexpr std::array<unsigned, 5> kFirstBits = {0, 0x7F, 0x1F, 0x0F, 0x07};
  char32_t code = first & kFirstBits.at(std::min(character.size(), kFirstBits.size() - 1));
  for (const char c : character.substr(1)) code = code << 6U | (static_cast<unsigned char>(c) & 0x3FU);
  return code;
}

}  // namespace

bool BreaksField(char c) noexcept { return static_cast<unsigned char>(c) < 0x20 || c == '\x7f' || c == '"'; }

bool IsVisible(std::string_view text) {
  while (!text.empty()) {
    const std::string_view first = FirstCharacters(text, 1);
    const char32_t code = CodePoint(first);
    const auto holds = [code](const auto& range) { return code >= range.first && code <= range.second; };
    if (std::none_of(kInvisible.begin(), kInvisible.end(), holds)) return true;
    text.remove_prefix(first.size());
  }
  return false;
}

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
