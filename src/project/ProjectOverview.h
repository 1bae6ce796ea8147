// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "platform/files/Disk.h"
#include "project/ProjectParameters.h"

namespace zova {

/// How many subjects a project has, by its files.
struct SubjectCounts {
  std::size_t Complete = 0;
  std::size_t Unfinished = 0;
};
/// nullopt when the drive is not ready, the primary directory is missing, or the project can be viewed only.
std::optional<SubjectCounts> CountSubjects(const ProjectParameters& project, Disk& disk);

/// "3 tests, 66 items, 24 subjects, 1 unfinished", with "-" for numbers that are not known.
std::string FactsText(const ProjectParameters& project, const std::optional<SubjectCounts>& counts);

/// A project whose parameter file lies in the Param directory.
struct ListedProject {
  std::string Path;
  std::string Title;
  std::string Shape;     ///< "3 x 66": tests and items
  std::string Subjects;  ///< the number of complete ones, or "-"
};
/// All of them, the one whose file changed last first. Files that cannot be read are left out, and so are backups.
std::vector<ListedProject> ListProjects(const std::string& paramDir, Disk& disk);

}  // namespace zova
