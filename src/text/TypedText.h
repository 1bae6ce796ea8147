// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>

namespace zova {

/// Without the spaces and tabs at both ends.
std::string_view WithoutOuterBlanks(std::string_view text) noexcept;

/// True for a character that a quoted field of a data file cannot hold, since nothing is escaped there: the quote, and
/// control characters with tabs and line breaks. All are single bytes, so that no character of UTF-8 is torn.
bool BreaksField(char c) noexcept;

/// `text` without such characters; names that become columns lose their commas as well.
std::string FieldText(std::string_view text);
std::string ColumnText(std::string_view text);

}  // namespace zova
