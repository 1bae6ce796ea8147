// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/desktop/MessageBoxes.h"
#include "platform/files/Disk.h"
#include "platform/files/FileError.h"
#include "project/ProjectLayout.h"
#include "text/CsvReader.h"
#include "text/Encoding.h"

namespace zova {

/// The rows of a companion file's text. Faults are CsvErrors with the row's line.
class CompanionRows {
 public:
  /// The header must be `columns`; the last `optional` of them may be missing. Throws CsvError.
  CompanionRows(std::string_view bytes, std::initializer_list<std::string_view> columns, std::size_t optional = 0,
                char delimiter = ',');

  /// False at the end. Throws CsvError for a row with more or fewer fields than the header.
  bool Next();
  [[nodiscard]] std::size_t ColumnCount() const noexcept { return m_columnCount; }
  [[nodiscard]] std::string_view Text(std::size_t column) const { return m_reader.Fields()[column]; }
  /// A field of digits from `least` to `most`. Throws CsvError.
  [[nodiscard]] int Number(std::size_t column, int least, int most) const;
  /// Likewise; 0 for an empty field.
  [[nodiscard]] int NumberOrEmpty(std::size_t column, int least, int most) const;
  [[nodiscard]] std::size_t Line() const noexcept { return m_reader.Line(); }
  [[noreturn]] void Refuse(const std::string& text) const { throw CsvError(text, Line()); }

 private:
  DataText m_text;
  std::vector<std::string_view> m_columns;
  CsvReader m_reader;
  std::size_t m_columnCount = 0;
};

/// The bytes of a project's companion file in a directory; nullopt when there is none. Throws FileError.
std::optional<std::string> ReadCompanionIn(Disk& disk, const std::string& directory, const ProjectParameters& project,
                                           CompanionFile file);
/// Likewise, in the primary directory.
std::optional<std::string> ReadCompanion(Disk& disk, const ProjectParameters& project, CompanionFile file);

/// Writes it there, and to the backup directory if there is one. Throws FileError.
void WriteCompanion(Disk& disk, const ProjectParameters& project, CompanionFile file, std::string_view content);

/// Deletes it there and in the backup directory. Throws FileError.
void RemoveCompanion(Disk& disk, const ProjectParameters& project, CompanionFile file);

/// The text of a companion file whose first column names subjects, with another name for one of them; nullopt when it
/// has no line of the subject. `HasNewName`: it has lines of a subject of the new name. Throws CsvError.
struct RenamedRows {
  std::optional<std::string> Text;
  bool HasNewName = false;
};
RenamedRows RenameSubjectRows(std::string_view bytes, std::string_view from, std::string_view to);

/// A fault in a companion file as a FileError that names the line: end of data.
FileError CompanionError(const CsvError& fault, const std::string& path);
/// "'AB Intrusions.csv' is passed over: a line does not fit."
std::string PassedOverText(const FileError& fault);
/// Tells of a file that is not used because of such a fault.
void WarnPassedOver(MessageBoxes& boxes, const FileError& fault);

/// What `parse` makes of the file's bytes; nullopt when there is no such file. Throws FileError.
template <typename Parse>
auto LoadCompanion(Disk& disk, const ProjectParameters& project, CompanionFile file, Parse&& parse)
    -> std::optional<decltype(parse(std::string_view()))> {
  const auto bytes = ReadCompanion(disk, project, file);
  if (!bytes) return std::nullopt;
  try {
    return parse(*bytes);
  } catch (const CsvError& fault) {
    throw CompanionError(fault, CompanionPath(project.PrimaryDir, project, file));
  }
}

}  // namespace zova
