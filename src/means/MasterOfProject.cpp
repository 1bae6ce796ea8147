// SPDX-License-Identifier: GPL-3.0-or-later

#include "means/MasterOfProject.h"

#include <algorithm>

#include "project/DirectoryRules.h"
#include "subjects/SubjectFiles.h"
#include "text/Encoding.h"
#include "text/TypedText.h"

namespace zova {

namespace {

constexpr std::string_view kNames[] = {" Combined Master", " Master"};

// Two projects may share a primary directory and the numbers of their subjects.
bool IsNamedForOther(std::string_view name, const ProjectParameters& project, Disk& disk) {
  const std::string directory = SubjectDirectory(project.PrimaryDir);
  return std::any_of(std::begin(kNames), std::end(kNames), [&](std::string_view ending) {
    const std::string prefix(name.substr(0, std::min(name.rfind(ending), name.size())));
    return prefix != name && !disk.ListFiles(directory, prefix + " Sub#", ".dat").empty();
  });
}

// Not where the directory cannot be listed: nothing of it is read then.
bool LiesAmongItsOwn(const std::string& path, const ProjectParameters& project, Disk& disk) {
  if (!IsSameDirectory(DirectoryOfPath(path), project.PrimaryDir, disk)) return false;
  try {
    return !IsNamedForOther(LastPathComponent(path), project, disk);
  } catch (const FileError&) {
    return false;
  }
}

}  // namespace

bool IsMasterOfProject(const MasterTable& table, const std::string& path, const ProjectParameters& project,
                       Disk& disk) {
  const bool isNamedSo = std::any_of(std::begin(kNames), std::end(kNames), [&](std::string_view ending) {
    return BeginsIgnoringCase(LastPathComponent(path), project.Abbreviation + std::string(ending));
  });
  if (!isNamedSo && !LiesAmongItsOwn(path, project, disk)) return false;
  const auto end = project.VariableNames.begin() + project.VariableCount;
  return std::equal(
      table.Variables.begin(), table.Variables.end(), project.VariableNames.begin(), end,
      [](const std::string& left, const std::string& right) { return left == WithoutOuterBlanks(right); });
}

}  // namespace zova
