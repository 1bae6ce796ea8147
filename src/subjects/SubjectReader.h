// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <vector>

#include "platform/desktop/Desktop.h"
#include "platform/files/Disk.h"
#include "project/ProjectParameters.h"
#include "subjects/SubjectRecord.h"

namespace zova {

/// Reads the subject files of a project one at a time, in the order of the listing. Subjects count from 1.
class SubjectReader {
 public:
  SubjectReader(const ProjectParameters& project, Disk& disk, Progress& bar)
      : m_project(project), m_disk(disk), m_bar(bar) {}

  /// Lists the project's files, of which there were `expected` when the user asked. Throws FileError, PathNotFound for
  /// a missing directory.
  void List(int expected);
  /// Uses the names of an earlier listing instead. Throws FileError for a missing directory.
  void UseNames(std::vector<std::string> names);
  [[nodiscard]] const std::string& Name(int k) const { return m_names[static_cast<std::size_t>(k) - 1]; }
  [[nodiscard]] int Count() const noexcept { return static_cast<int>(m_names.size()); }
  [[nodiscard]] std::string SubjectId(int k) const;
  [[nodiscard]] std::vector<std::string> SubjectIds() const;
  /// The file and the subject, for the box of a run-time error.
  [[nodiscard]] std::string Where(int k) const;

  /// Fills `record`, and lets the window repaint. Throws FileError, which names the subject; where fewer files were
  /// listed than expected, one that names the directory, and the next call lists again.
  void Read(int k, SubjectRecord& record);

 private:
  void FindDirectory();
  void AddNewNames();
  void ReadFile(const std::string& name, SubjectRecord& record);

  const ProjectParameters& m_project;
  Disk& m_disk;
  Progress& m_bar;
  std::vector<std::string> m_names;
  int m_expected = 0;
  bool m_reportedMissing = false;
  ResolvedPath m_directory;
  std::string m_bytes;  // kept between subjects so that a run allocates once
};

}  // namespace zova
