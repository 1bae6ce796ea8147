// SPDX-License-Identifier: GPL-3.0-or-later
//
// Lines and cells without quoting: masters, and what a spreadsheet puts on the clipboard.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zova {

/// Removes the next line from `text` and returns it without its end (CR LF, LF, CR or the end of the text).
std::string_view NextLine(std::string_view& text) noexcept;

/// The cells of a line one by one, without the blanks around them. An empty line has one cell.
class LineCells {
 public:
  explicit LineCells(std::string_view line, char separator = ',') : m_rest(line), m_separator(separator) {}
  std::optional<std::string_view> Next() noexcept;

 private:
  std::string_view m_rest;
  char m_separator;
  bool m_ended = false;
};

/// All cells of a line separated by commas.
std::vector<std::string_view> CellsOf(std::string_view line);

/// The names of a list as typed, split at commas; none for "".
std::vector<std::string> SplitNames(std::string_view list);

/// The texts in a row with `separator` between them.
std::string Joined(const std::vector<std::string>& texts, std::string_view separator);

/// The separator of a pasted block: tab if there is one, else semicolon if there is one, else comma.
char CellSeparator(std::string_view text) noexcept;

}  // namespace zova
