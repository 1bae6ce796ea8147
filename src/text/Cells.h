// SPDX-License-Identifier: GPL-3.0-or-later
//
// Texts of lines and cells in which nothing is quoted: what a spreadsheet puts on the clipboard, and the masters.
#pragma once

#include <optional>
#include <string_view>
#include <vector>

namespace zova {

/// Takes the next line off `text`. Its end (CR LF, LF, CR, or that of the text) belongs to none.
std::string_view NextLine(std::string_view& text) noexcept;

/// The cells of a line one after the other, without the blanks around them. An empty line has one, like any other.
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

/// What separates the cells of a block: tabs; in a text without tabs semicolons, without those commas.
char CellSeparator(std::string_view text) noexcept;

}  // namespace zova
