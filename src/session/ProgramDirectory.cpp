// SPDX-License-Identifier: GPL-3.0-or-later

#include "session/ProgramDirectory.h"

#include <algorithm>

namespace zova {

namespace {

constexpr const char* kHelpName = "ZOVA2.hlp";
constexpr const char* kSampleData = "Sample Data";

// Buffered: the start must not wait for the disk, and the originals still exist.
void CopyInstalled(const std::string& installed, const std::string& target, Disk& disk) {
  std::string content;
  disk.Read(installed, content);
  disk.Write(target, content, Disk::Durability::Buffered);
}

// Leaves existing directories unchanged and adds only missing ones.
void FillDirectory(const std::string& installed, const std::string& target, Disk& disk) {
  const bool isNew = !disk.DirectoryExists(target);
  if (isNew) disk.CreateDirectories(target);
  const auto copy = [&](const std::string& name) {
    CopyInstalled(JoinPath(installed, name), JoinPath(target, name), disk);
  };
  if (isNew) std::ranges::for_each(disk.ListFiles(installed, "", ""), copy);
  for (const std::string& name : disk.ListDirectories(installed)) {
    FillDirectory(JoinPath(installed, name), JoinPath(target, name), disk);
  }
}

template <typename Step>
void TrySilently(Step&& step) noexcept {
  try {
    step();
  } catch (const std::exception&) {
    // Reported where the file is needed.
  }
}

}  // namespace

std::string HelpFile(const std::string& programDir) { return JoinPath(programDir, kHelpName); }

void FillProgramDirectory(const std::string& installed, const std::string& programDir, Disk& disk) noexcept {
  TrySilently([&] {
    const std::string source = HelpFile(installed);
    const std::string help = HelpFile(programDir);
    if (!disk.FileExists(source) || disk.FileExists(help)) return;
    disk.CreateDirectories(programDir);
    CopyInstalled(source, help, disk);
  });
  TrySilently([&] {
    const std::string samples = JoinPath(installed, kSampleData);
    if (disk.DirectoryExists(samples)) FillDirectory(samples, JoinPath(programDir, kSampleData), disk);
  });
}

}  // namespace zova
