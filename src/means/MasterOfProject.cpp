// SPDX-License-Identifier: GPL-3.0-or-later

#include "means/MasterOfProject.h"

#include <algorithm>

#include "project/ProjectLayout.h"
#include "text/TypedText.h"

namespace zova {

namespace {

// Two projects may share a primary directory and their subjects' identifiers.
bool IsNamedForOther(std::string_view name, const ProjectParameters& project, Disk& disk) {
  const std::string directory = SubjectDirectory(project.PrimaryDir);
  const std::vector<std::string> abbreviations = AbbreviationsInMasterName(name);
  return std::any_of(abbreviations.begin(), abbreviations.end(), [&](const std::string& abbreviation) {
    return !ListDataFiles(disk, CurrentPrefix(abbreviation), directory).empty();
  });
}

// False when the directory cannot be listed.
bool LiesAmongItsOwn(const std::string& path, const ProjectParameters& project, Disk& disk) {
  try {
    return disk.IsSame(DirectoryOfPath(path), project.PrimaryDir) &&
           !IsNamedForOther(LastPathComponent(path), project, disk);
  } catch (const FileError&) {
    return false;
  }
}

}  // namespace

bool IsMasterOfProject(const MasterTable& table, const std::string& path, const ProjectParameters& project,
                       Disk& disk) {
  if (!IsNamedAsMaster(LastPathComponent(path), project) && !LiesAmongItsOwn(path, project, disk)) return false;
  const auto end = project.VariableNames.begin() + project.VariableCount;
  return std::equal(
      table.Variables.begin(), table.Variables.end(), project.VariableNames.begin(), end,
      [](const std::string& left, const std::string& right) { return left == WithoutOuterBlanks(right); });
}

}  // namespace zova
