// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>

namespace zova {

constexpr bool IsBlank(char c) noexcept { return c == ' ' || c == '\t'; }

/// `text` without spaces and tabs at both ends. Inline: a large master has millions of fields.
inline std::string_view WithoutOuterBlanks(std::string_view text) noexcept {
  while (!text.empty() && IsBlank(text.front())) text.remove_prefix(1);
  while (!text.empty() && IsBlank(text.back())) text.remove_suffix(1);
  return text;
}

/// True for a character that a quoted field of a data file cannot hold, since nothing is escaped: the quote and control
/// characters, including tabs and line breaks. All are single bytes in UTF-8.
bool BreaksField(char c) noexcept;

/// False for a text of nothing but blanks and characters that leave no mark on the screen.
bool IsVisible(std::string_view text);

/// `text` without such characters; names that become columns lose their commas as well.
std::string FieldText(std::string_view text);
std::string ColumnText(std::string_view text);

}  // namespace zova
