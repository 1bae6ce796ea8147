// SPDX-License-Identifier: GPL-3.0-or-later

#include "text/Cells.h"

#include <algorithm>

#include "text/TypedText.h"

namespace zova {

std::string_view NextLine(std::string_view& text) noexcept {
  const auto isLineEnd = [](char c) { return c == '\n' || c == '\r'; };
  const auto end = static_cast<std::size_t>(std::find_if(text.begin(), text.end(), isLineEnd) - text.begin());
  const std::string_view line = text.substr(0, end);
  text.remove_prefix(std::min(text.substr(end).starts_with("\r\n") ? end + 2 : end + 1, text.size()));
  return line;
}

std::optional<std::string_view> LineCells::Next() noexcept {
  if (m_ended) return std::nullopt;
  const std::size_t end = m_rest.find(m_separator);
  const std::string_view cell = WithoutOuterBlanks(m_rest.substr(0, end));
  m_ended = end == std::string_view::npos;
  if (!m_ended) m_rest.remove_prefix(end + 1);
  return cell;
}

std::vector<std::string_view> CellsOf(std::string_view line) {
  std::vector<std::string_view> cells;
  LineCells rest(line);
  while (const auto cell = rest.Next()) cells.push_back(*cell);
  return cells;
}

std::vector<std::string> SplitNames(std::string_view list) {
  std::vector<std::string> names;
  if (list.empty()) return names;
  for (;;) {
    const std::size_t end = std::min(list.find(','), list.size());
    names.emplace_back(list.substr(0, end));
    if (end == list.size()) return names;
    list.remove_prefix(end + 1);
  }
}

std::string Joined(const std::vector<std::string>& texts, std::string_view separator) {
  std::string joined;
  for (const std::string& text : texts) joined.append(joined.empty() ? "" : separator).append(text);
  return joined;
}

char CellSeparator(std::string_view text) noexcept {
  for (const char separator : {'\t', ';'}) {
    if (text.find(separator) != std::string_view::npos) return separator;
  }
  return ',';
}

}  // namespace zova
