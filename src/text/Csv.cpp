// SPDX-License-Identifier: GPL-3.0-or-later

#include "text/Csv.h"

#include <unordered_set>

#include "text/TypedText.h"

namespace zova {

namespace {

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

std::vector<std::string> CsvHeader::Names() const {
  std::vector<std::string> names(m_columns.size());
  std::unordered_set<std::string> taken;
  for (const bool givesWay : {false, true}) {
    for (std::size_t i = 0; i < m_columns.size(); ++i) {
      if (m_columns[i].GivesWay != givesWay) continue;
      names[i] = m_columns[i].Name;
      for (int number = 2; !taken.insert(names[i]).second; ++number) {
        names[i] = m_columns[i].Name + " (" + std::to_string(number) + ")";
      }
    }
  }
  return names;
}

std::string CsvHeader::Line() const {
  std::string line;
  bool isFirst = true;
  for (const std::string& name : Names()) {
    if (!isFirst) line += ',';
    isFirst = false;
    AppendCsvField(line, name);
  }
  return line;
}

}  // namespace zova
