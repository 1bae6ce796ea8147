// SPDX-License-Identifier: GPL-3.0-or-later

#include "words/CompanionCsv.h"

#include <algorithm>
#include <utility>

#include "platform/desktop/FileErrorBoxes.h"
#include "platform/files/PathParts.h"
#include "project/DirectoryRules.h"
#include "text/Csv.h"
#include "text/LeadingNumber.h"

namespace zova {

namespace {

std::string ExpectedHeader(std::initializer_list<std::string_view> columns) {
  std::string header;
  for (const std::string_view column : columns) {
    if (!header.empty()) header += ',';
    header += column;
  }
  return header;
}

}  // namespace

CompanionRows::CompanionRows(std::string_view bytes, std::initializer_list<std::string_view> columns,
                             std::size_t optional, char delimiter)
    : m_text(bytes), m_columns(columns), m_reader(TextSource(m_text.Content()), delimiter) {
  if (m_reader.Next()) {
    const auto fields = m_reader.Fields();
    const bool fits = fields.size() <= columns.size() && fields.size() + optional >= columns.size() &&
                      std::equal(fields.begin(), fields.end(), columns.begin());
    if (fits) m_columnCount = fields.size();
  }
  if (m_columnCount == 0) throw CsvError("The header is not '" + ExpectedHeader(columns) + "'", 1);
}

bool CompanionRows::Next() {
  if (!m_reader.Next()) return false;
  if (m_reader.Fields().size() != m_columnCount) {
    Refuse("There are " + std::to_string(m_reader.Fields().size()) + " fields instead of " +
           std::to_string(m_columnCount));
  }
  return true;
}

int CompanionRows::Number(std::size_t column, int least, int most) const {
  const auto number = DigitsInteger16(Text(column));
  if (!number || *number < least || *number > most) {
    Refuse("'" + std::string(Text(column)) + "' is no " + std::string(m_columns[column]) + " from " +
           std::to_string(least) + " to " + std::to_string(most));
  }
  return *number;
}

int CompanionRows::NumberOrEmpty(std::size_t column, int least, int most) const {
  return Text(column).empty() ? 0 : Number(column, least, most);
}

std::optional<std::string> ReadCompanion(Disk& disk, const ProjectParameters& project, CompanionFile file) {
  return ReadCompanionIn(disk, project.PrimaryDir, project, file);
}

std::optional<std::string> ReadCompanionIn(Disk& disk, const std::string& directory, const ProjectParameters& project,
                                           CompanionFile file) {
  if (IsNoDirectory(directory)) return std::nullopt;
  return ReadIfThere(disk, disk.Resolve(CompanionPath(directory, project, file), FileOperation::Read));
}

void WriteCompanion(Disk& disk, const ProjectParameters& project, CompanionFile file, std::string_view content) {
  for (const std::string& directory : {project.PrimaryDir, project.BackupDir}) {
    if (IsNoDirectory(directory)) continue;
    const std::string path = CompanionPath(directory, project, file);
    RequireDirectory(disk, directory, FileOperation::Write, path);
    disk.Write(path, content);
  }
}

void RemoveCompanion(Disk& disk, const ProjectParameters& project, CompanionFile file) {
  for (const std::string& directory : {project.PrimaryDir, project.BackupDir}) {
    if (IsNoDirectory(directory)) continue;
    const std::string path = CompanionPath(directory, project, file);
    if (disk.FileExists(path)) disk.Delete(path);
  }
}

RenamedRows RenameSubjectRows(std::string_view bytes, std::string_view from, std::string_view to) {
  const DataText source(bytes);
  CsvReader reader(TextSource(source.Content()));
  RenamedRows renamed;
  std::string text;
  text.reserve(bytes.size());
  bool isHeader = true;
  bool isChanged = false;
  while (reader.Next()) {
    const auto fields = reader.Fields();
    const bool isSubject = !std::exchange(isHeader, false) && fields[0] == from;
    renamed.HasNewName = renamed.HasNewName || (!isSubject && fields[0] == to);
    isChanged = isChanged || isSubject;
    AppendCsvField(text, isSubject ? to : fields[0]);
    for (const std::string_view field : fields.subspan(1)) AppendCsvField(text += ',', field);
    text += kCsvLineEnd;
  }
  if (isChanged) renamed.Text = std::move(text);
  return renamed;
}

FileError CompanionError(const CsvError& fault, const std::string& path) {
  return {FileOperation::Read, path, FileCause::EndOfData,
          "Line " + std::to_string(fault.Line()) + ": " + fault.what() + "."};
}

std::string PassedOverText(const FileError& fault) {
  return "'" + std::string(LastPathComponent(fault.Path())) + "' is passed over: a line does not fit.";
}

void WarnPassedOver(MessageBoxes& boxes, const FileError& fault) {
  Warn(boxes, PassedOverText(fault), FaultText(fault));
}

}  // namespace zova
