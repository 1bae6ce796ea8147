// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <set>
#include <string>
#include <string_view>

namespace zova {

/// Ends a line of a CSV file (RFC 4180).
inline constexpr std::string_view kCsvLineEnd = "\r\n";

/// Appends `text` as one field (RFC 4180): in quotes where it holds a comma, a quote or a line break, or blanks at its
/// ends that a reader might drop. The commas between fields are the caller's.
void AppendCsvField(std::string& line, std::string_view text);

/// The line of column names, put together column by column. No two are the same: a name that stands already gets a
/// number, "Subject (2)".
class CsvHeader {
 public:
  void Add(std::string_view name);
  /// Without its line end.
  [[nodiscard]] const std::string& Line() const noexcept { return m_line; }

 private:
  std::set<std::string, std::less<>> m_names;
  std::string m_line;
};

}  // namespace zova
