// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>

namespace zova {

/// `text` without spaces and tabs at both ends. Inline: a large master has millions of fields.
inline std::string_view WithoutOuterBlanks(std::string_view text) noexcept {
  const auto isBlank = [](char c) { return c == ' ' || c == '\t'; };
  while (!text.empty() && isBlank(text.front())) text.remove_prefix(1);
  while (!text.empty() && isBlank(text.back())) text.remove_suffix(1);
  return text;
}

/// True for a character that a quoted field of a data file cannot hold, since nothing is escaped: the quote and control
/// characters, including tabs and line breaks. All are single bytes in UTF-8.
bool BreaksField(char c) noexcept;

/// `text` without such characters. ColumnText, for names that become columns, also drops commas.
std::string FieldText(std::string_view text);
std::string ColumnText(std::string_view text);

}  // namespace zova
