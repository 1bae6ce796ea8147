// SPDX-License-Identifier: GPL-3.0-or-later

#include "project/ProjectOverview.h"

#include <algorithm>
#include <utility>

#include "project/ProjectFile.h"
#include "project/ProjectLayout.h"
#include "project/ProjectOpening.h"
#include "text/Counted.h"

namespace zova {

namespace {

constexpr const char* kUnknown = "-";

}  // namespace

std::optional<SubjectCounts> CountSubjects(const ProjectParameters& project, Disk& disk) {
  try {
    if (!ViewOnlyReason(project).empty() || !disk.DirectoryExists(project.PrimaryDir)) return std::nullopt;
    return SubjectCounts{ListSubjectFiles(disk, project, SubjectDirectory(project.PrimaryDir)).size(),
                         ListSubjectFiles(disk, project, UnfinishedDirectory(project.PrimaryDir)).size()};
  } catch (const FileError&) {
    return std::nullopt;
  }
}

std::string FactsText(const ProjectParameters& project, const std::optional<SubjectCounts>& counts) {
  return Counted(std::to_string(project.TestCount), "test", "tests") + ", " +
         Counted(std::to_string(project.ItemCount), "item", "items") + ", " +
         Counted(counts ? std::to_string(counts->Complete) : kUnknown, "subject", "subjects") + ", " +
         (counts ? std::to_string(counts->Unfinished) : kUnknown) + " unfinished";
}

std::vector<ListedProject> ListProjects(const std::string& paramDir, Disk& disk) {
  std::vector<std::pair<std::int64_t, ListedProject>> found;
  for (const std::string& name : disk.ListFiles(paramDir, "", kParameterFileEnd)) {
    const std::string path = JoinPath(paramDir, name);
    try {
      const ProjectParameters project = ReadProjectFile(disk, path);
      if (project.FormatMarker == kBackupMarker) continue;
      const auto counts = CountSubjects(project, disk);
      found.emplace_back(disk.ChangedAt(path),
                         ListedProject{path, ProjectTitle(project),
                                       std::to_string(project.TestCount) + " x " + std::to_string(project.ItemCount),
                                       counts ? std::to_string(counts->Complete) : kUnknown});
    } catch (const FileError&) {
      continue;  // opening it says what is wrong
    }
  }
  std::stable_sort(found.begin(), found.end(),
                   [](const auto& left, const auto& right) { return left.first > right.first; });
  std::vector<ListedProject> projects;
  projects.reserve(found.size());
  for (auto& [changed, project] : found) projects.push_back(std::move(project));
  return projects;
}

}  // namespace zova
