// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace zova {

/// RFC 4180.
inline constexpr std::string_view kCsvLineEnd = "\r\n";

/// Appends `text` as one field (RFC 4180), quoted if it holds a comma, a quote or a line break, or begins or ends with
/// a blank, which a reader might drop. The caller writes the commas between fields.
void AppendCsvField(std::string& line, std::string_view text);

/// The column names of a file. Each is unique: a name that is taken gets a number, "Subject (2)".
class CsvHeader {
 public:
  /// A column of the file format; its name never gets a number.
  void Add(std::string_view name) { m_columns.push_back({std::string(name), false}); }
  /// A column named by the user. It gets the number if its name is that of a column of the file format, also of a later
  /// one.
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
