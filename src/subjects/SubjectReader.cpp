// SPDX-License-Identifier: GPL-3.0-or-later

#include "subjects/SubjectReader.h"

#include <algorithm>

#include "platform/files/DataFileError.h"
#include "project/ProjectLayout.h"

namespace zova {

// It held subjects when the run was started, so it is lost, not empty.
void SubjectReader::FindDirectory() {
  const std::string sdata = SubjectDirectory(m_project.PrimaryDir);
  RequireDirectory(m_disk, m_project.PrimaryDir, FileOperation::List);
  RequireDirectory(m_disk, sdata, FileOperation::List);
  m_directory = m_disk.Resolve(sdata, FileOperation::Read);
}

void SubjectReader::List(int expected) {
  m_expected = expected;
  FindDirectory();
  m_names = ListSubjectFiles(m_disk, m_project, SubjectDirectory(m_project.PrimaryDir));
}

void SubjectReader::UseNames(std::vector<std::string> names) {
  m_names = std::move(names);
  m_expected = Count();
  FindDirectory();
}

std::string SubjectReader::SubjectId(int k) const { return SubjectIdFromFileName(m_project, Name(k)); }

std::vector<std::string> SubjectReader::SubjectIds() const {
  std::vector<std::string> ids;
  for (const std::string& name : m_names) ids.push_back(SubjectIdFromFileName(m_project, name));
  return ids;
}

std::string SubjectReader::Where(int k) const {
  return "'" + JoinPath(SubjectDirectory(m_project.PrimaryDir), Name(k)) + "'\nSubject " + SubjectId(k);
}

bool SubjectReader::Read(int k, SubjectRecord& record) {
  m_bar.ProcessEvents();
  if (k > Count() && m_reportedMissing && !ListAgain()) return false;
  if (k > Count()) {  // files vanished while the screen was open; it is unknown which
    m_reportedMissing = true;
    const std::string found =
        std::to_string(Count()) + " of " + std::to_string(m_expected) + " subject files were found.";
    throw FileError(FileOperation::Read, JoinPath(SubjectDirectory(m_project.PrimaryDir), ""),
                    std::make_error_code(std::errc::no_such_file_or_directory), found);
  }
  try {
    ReadFile(Name(k), record);
    return true;
  } catch (FileError& error) {
    error.AddDetail("Subject " + SubjectId(k));
    throw;
  }
}

void SubjectReader::ReadFile(const std::string& name, SubjectRecord& record) {
  const ResolvedPath file = Below(m_directory, name);
  m_disk.Read(file, m_bytes);
  ParsingFile(file.Shown, [&] { m_oddities = ParseSubject(m_bytes, m_project, record); });
}

// After a Retry missing files may be back. True when they stand behind the others.
bool SubjectReader::ListAgain() {
  const std::vector<std::string> before = m_names;
  List(m_expected);
  return m_names.size() >= before.size() && std::equal(before.begin(), before.end(), m_names.begin());
}

}  // namespace zova
