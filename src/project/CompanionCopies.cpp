// SPDX-License-Identifier: GPL-3.0-or-later

#include "project/CompanionCopies.h"

#include <utility>

#include "platform/desktop/FileErrorBoxes.h"
#include "project/CopyRun.h"
#include "project/ProjectLayout.h"

namespace zova {

namespace {

std::vector<std::string> CompanionNames(const ProjectParameters& project) {
  std::vector<std::string> names;
  names.reserve(kCompanionFileCount);
  for (std::size_t i = 0; i < kCompanionFileCount; ++i) {
    names.push_back(CompanionName(project, static_cast<CompanionFile>(i)));
  }
  return names;
}

bool IsNewer(const std::string& own, const std::string& copy, Disk& disk) {
  if (!disk.FileExists(own) || disk.ChangedAt(own) <= disk.ChangedAt(copy)) return false;
  std::string ownBytes;
  std::string copyBytes;
  disk.Read(own, ownBytes);
  disk.Read(copy, copyBytes);
  return ownBytes != copyBytes;
}

}  // namespace

std::optional<std::size_t> BackUpCompanions(const ProjectParameters& project, const Platform& platform) {
  Disk& disk = platform.Files;
  std::vector<std::string> names;
  const bool listed = WithRetry(platform.Boxes, [&] {
    names.clear();
    if (disk.IsSame(project.PrimaryDir, project.BackupDir)) return;
    for (std::string& name : CompanionNames(project)) {
      if (disk.FileExists(JoinPath(project.PrimaryDir, name))) names.push_back(std::move(name));
    }
  });
  if (!listed) return std::nullopt;
  const CopyOutcome outcome = CopyFilesByName(project.PrimaryDir, project.BackupDir, names, platform);
  return outcome.IsComplete ? std::optional(outcome.Copied) : std::nullopt;
}

std::optional<std::vector<std::string>> ChooseCompanions(const ProjectParameters& project, const std::string& backup,
                                                         const Platform& platform) {
  Disk& disk = platform.Files;
  std::vector<std::string> chosen;
  for (std::string& name : CompanionNames(project)) {
    const std::string own = JoinPath(project.PrimaryDir, name);
    const std::string copy = JoinPath(backup, name);
    bool isThere = false;
    bool asks = false;
    const bool known = WithRetry(platform.Boxes, [&] {
      isThere = !disk.IsSame(project.PrimaryDir, backup) && disk.FileExists(copy);
      asks = isThere && IsNewer(own, copy, disk);
    });
    if (!known) return std::nullopt;
    if (asks && !Confirm(platform.Boxes, {.Text = "'" + name +
                                                  "' in the primary directory is newer than its backup.  Do you wish "
                                                  "to replace it?",
                                          .Buttons = BoxButtons::YesNo,
                                          .Title = "Warning"})) {
      continue;
    }
    if (isThere) chosen.push_back(std::move(name));
  }
  return chosen;
}

}  // namespace zova
