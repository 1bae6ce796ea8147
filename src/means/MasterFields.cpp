// SPDX-License-Identifier: GPL-3.0-or-later

#include "means/MasterFields.h"

#include <charconv>

namespace zova {

namespace {

// By hand, since a large master has millions of fields.
std::string_view Trimmed(std::string_view text) {
  const auto isBlank = [](char c) { return c == ' ' || c == '\t'; };
  while (!text.empty() && isBlank(text.front())) text.remove_prefix(1);
  while (!text.empty() && isBlank(text.back())) text.remove_suffix(1);
  return text;
}

}  // namespace

std::optional<std::string_view> LineFields::Next() {
  if (m_ended) return std::nullopt;
  const std::size_t comma = m_rest.find(',');
  const std::string_view field = Trimmed(m_rest.substr(0, comma));
  m_ended = comma == std::string_view::npos;
  if (!m_ended) m_rest.remove_prefix(comma + 1);
  return field;
}

std::vector<std::string_view> FieldsOf(std::string_view line) {
  std::vector<std::string_view> fields;
  LineFields rest(line);
  while (const auto field = rest.Next()) fields.push_back(*field);
  return fields;
}

std::string_view TakeLine(std::string_view& text) {
  const std::size_t end = text.find('\n');
  std::string_view line = text.substr(0, end);
  text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
  if (!line.empty() && line.back() == '\r') line.remove_suffix(1);
  return line;
}

std::optional<double> MasterNumber(std::string_view text) {
  // std::from_chars also takes "inf" and "nan"
  const char first = text.empty() ? ' ' : text[text.front() == '-' && text.size() > 1 ? 1 : 0];
  if (first != '.' && (first < '0' || first > '9')) return std::nullopt;
  double value = 0;
  const char* const end = text.data() + text.size();
  const auto result = std::from_chars(text.data(), end, value, std::chars_format::fixed);
  if (result.ec != std::errc{} || result.ptr != end) return std::nullopt;
  return value;
}

}  // namespace zova
