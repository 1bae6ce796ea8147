// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <vector>

#include "platform/desktop/Desktop.h"
#include "platform/files/Disk.h"
#include "project/ProjectParameters.h"
#include "subjects/SubjectFile.h"

namespace zova {

/// Reads the subject files of a project one by one, in the order of the listing. Subjects count from 1.
class SubjectReader {
 public:
  SubjectReader(const ProjectParameters& project, Disk& disk, Progress& bar)
      : m_project(project), m_disk(disk), m_bar(bar) {}

  /// Lists the project's files; there were `expected` when the user started the run. Throws FileError, PathNotFound for
  /// a missing directory.
  void List(int expected);
  /// Uses the names of an earlier listing. Throws FileError for a missing directory.
  void UseNames(std::vector<std::string> names);
  [[nodiscard]] const std::string& Name(int k) const { return m_names[static_cast<std::size_t>(k) - 1]; }
  [[nodiscard]] int Count() const noexcept { return static_cast<int>(m_names.size()); }
  [[nodiscard]] std::string SubjectId(int k) const;
  [[nodiscard]] std::vector<std::string> SubjectIds() const;
  /// The file and the subject, for the box of a scoring error.
  [[nodiscard]] std::string Where(int k) const;

  /// Fills `record` and lets the window repaint. Throws FileError naming the subject, or, when fewer files were listed
  /// than expected, the directory; the next call then lists again. False, without reading, when the subjects already
  /// read are then others: all are to be read again, from the first, to stand in the listing's order.
  bool Read(int k, SubjectRecord& record);
  /// Of the subject read last.
  [[nodiscard]] const SubjectOddities& Oddities() const noexcept { return m_oddities; }

 private:
  void FindDirectory();
  bool ListAgain();
  void ReadFile(const std::string& name, SubjectRecord& record);

  const ProjectParameters& m_project;
  Disk& m_disk;
  Progress& m_bar;
  std::vector<std::string> m_names;
  int m_expected = 0;
  bool m_reportedMissing = false;
  ResolvedPath m_directory;
  SubjectOddities m_oddities;
  std::string m_bytes;  // kept between subjects so that a run allocates once
};

}  // namespace zova
