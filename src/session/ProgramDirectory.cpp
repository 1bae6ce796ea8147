// SPDX-License-Identifier: GPL-3.0-or-later

#include "session/ProgramDirectory.h"

#include <algorithm>

namespace zova {

namespace {

constexpr const char* kHelpName = "ZOVA2.hlp";
constexpr const char* kSampleData = "Sample Data";
// Written last: a start that was cut short is made up for by the next one.
constexpr const char* kCompleteName = "Complete.txt";
constexpr const char* kCompleteText =
    "The sample data are complete. Delete this file to have those that are missing copied again.\r\n";

// Buffered: the start must not wait for the disk, and the originals still exist.
void CopyInstalled(const std::string& installed, const std::string& target, Disk& disk) {
  std::string content;
  disk.Read(installed, content);
  disk.Write(target, content, Disk::Durability::Buffered);
}

// What is there already keeps what its user made of it.
void FillDirectory(const std::string& installed, const std::string& target, Disk& disk) {
  if (!disk.DirectoryExists(target)) disk.CreateDirectories(target);
  for (const std::string& name : disk.ListFiles(installed, "", "")) {
    const std::string file = JoinPath(target, name);
    if (!disk.FileExists(file)) CopyInstalled(JoinPath(installed, name), file, disk);
  }
  for (const std::string& name : disk.ListDirectories(installed)) {
    FillDirectory(JoinPath(installed, name), JoinPath(target, name), disk);
  }
}

void FillSampleData(const std::string& installed, const std::string& target, Disk& disk) {
  const std::string complete = JoinPath(target, kCompleteName);
  if (!disk.DirectoryExists(installed) || disk.FileExists(complete)) return;
  FillDirectory(installed, target, disk);
  disk.Write(complete, kCompleteText, Disk::Durability::Buffered);
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
  TrySilently([&] { FillSampleData(JoinPath(installed, kSampleData), JoinPath(programDir, kSampleData), disk); });
}

}  // namespace zova
