// SPDX-License-Identifier: GPL-3.0-or-later

#include "text/Csv.h"

namespace zova {

namespace {

bool IsBlank(char c) { return c == ' ' || c == '\t'; }

bool NeedsQuotes(std::string_view text) {
  return !text.empty() &&
         (text.find_first_of(",\"\r\n") != std::string_view::npos || IsBlank(text.front()) || IsBlank(text.back()));
}

}  // namespace

void AppendCsvField(std::string& line, std::string_view text) {
  if (!NeedsQuotes(text)) {
    line += text;
    return;
  }
  line += '"';
  for (const char c : text) {
    if (c == '"') line += '"';
    line += c;
  }
  line += '"';
}

void CsvHeader::Add(std::string_view name) {
  if (!m_names.empty()) m_line += ',';
  std::string unique(name);
  for (int number = 2; !m_names.insert(unique).second; ++number) {
    unique.assign(name).append(" (").append(std::to_string(number)).append(")");
  }
  AppendCsvField(m_line, unique);
}

}  // namespace zova
