// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace zova {

/// Ends a line of a CSV file (RFC 4180).
inline constexpr std::string_view kCsvLineEnd = "\r\n";

/// Appends `text` as one field (RFC 4180): in quotes where it holds a comma, a quote or a line break, or blanks at its
/// ends that a reader might drop. The commas between fields are the caller's.
void AppendCsvField(std::string& line, std::string_view text);

/// The column names of a file, column by column. No two are the same: a name that another column has gets a number,
/// "Subject (2)".
class CsvHeader {
 public:
  /// A column of the file's own: its name is there to be relied on.
  void Add(std::string_view name) { m_columns.push_back({std::string(name), false}); }
  /// A column that somebody else named; it gives way to all of the file's own, those behind it too.
  void AddVariable(std::string_view name) { m_columns.push_back({std::string(name), true}); }

  [[nodiscard]] std::vector<std::string> Names() const;
  /// Without its line end.
  [[nodiscard]] std::string Line() const;

 private:
  struct Column {
    std::string Name;
    bool GivesWay;
  };
  std::vector<Column> m_columns;
};

}  // namespace zova
