// SPDX-License-Identifier: GPL-3.0-or-later

#include "project/ProjectOverview.h"

#include <algorithm>
#include <utility>

#include "project/ProjectFile.h"
#include "project/ProjectLayout.h"
#include "project/ProjectOpening.h"

namespace zova {

namespace {

std::string NumberText(const std::optional<std::size_t>& number) { return number ? std::to_string(*number) : "-"; }

std::string Counted(const std::string& number, const std::string& what) {
  return number + " " + what + (number == "1" ? "" : "s");
}

}  // namespace

SubjectCounts CountSubjects(const ProjectParameters& project, Disk& disk) {
  try {
    if (!ViewOnlyReason(project).empty() || !disk.DirectoryExists(project.PrimaryDir)) return {};
    return {ListSubjectFiles(disk, project, SubjectDirectory(project.PrimaryDir)).size(),
            ListSubjectFiles(disk, project, UnfinishedDirectory(project.PrimaryDir)).size()};
  } catch (const FileError&) {
    return {};
  }
}

std::string FactsText(const ProjectParameters& project, const SubjectCounts& counts) {
  return Counted(std::to_string(project.TestCount), "test") + ", " +
         Counted(std::to_string(project.ItemCount), "item") + ", " + Counted(NumberText(counts.Complete), "subject") +
         ", " + NumberText(counts.Unfinished) + " unfinished";
}

std::vector<ListedProject> ListProjects(const std::string& paramDir, Disk& disk) {
  std::vector<std::pair<std::int64_t, ListedProject>> found;
  for (const std::string& name : disk.ListFiles(paramDir, "", kParameterFileEnd)) {
    const std::string path = JoinPath(paramDir, name);
    try {
      const ProjectParameters project = ReadProjectFile(disk, path);
      if (project.FormatMarker == kBackupMarker) continue;
      found.emplace_back(disk.ChangedAt(path),
                         ListedProject{path, ProjectTitle(project),
                                       std::to_string(project.TestCount) + " x " + std::to_string(project.ItemCount),
                                       NumberText(CountSubjects(project, disk).Complete)});
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
