// SPDX-License-Identifier: GPL-3.0-or-later

#include "session/ProgramDirectory.h"

namespace zova {

namespace fs = std::filesystem;

namespace {

constexpr const char* kHelpName = "ZOVA2.hlp";
constexpr const char* kSampleData = "Sample Data";

// Buffered: the program is not to wait for the disk at its start, and the originals stay where they are.
void CopyInstalled(const fs::path& installed, const std::string& target, Disk& disk) {
  std::string content;
  disk.ReadNative(installed, PathText(installed), content);
  disk.Write(target, content, Disk::Durability::Buffered);
}

// A directory that is there already keeps what its user made of it; only directories that it lacks are added.
void FillDirectory(const fs::path& installed, const std::string& target, Disk& disk) {
  const bool isNew = !disk.DirectoryExists(target);
  if (isNew) disk.CreateDirectories(target);
  for (const fs::directory_entry& entry : fs::directory_iterator(installed)) {
    const std::string inTarget = JoinPath(target, PathText(entry.path().filename()));
    if (entry.is_directory()) {
      FillDirectory(entry.path(), inTarget, disk);
    } else if (isNew) {
      CopyInstalled(entry.path(), inTarget, disk);
    }
  }
}

template <typename Step>
void TrySilently(Step&& step) noexcept {
  try {
    step();
  } catch (const std::exception&) {
    // Told of where the file is asked for.
  }
}

}  // namespace

std::string HelpFile(const std::string& programDir) { return JoinPath(programDir, kHelpName); }

void FillProgramDirectory(const fs::path& installed, const std::string& programDir, Disk& disk) noexcept {
  TrySilently([&] {
    const std::string help = HelpFile(programDir);
    if (!fs::exists(installed / kHelpName) || disk.FileExists(help)) return;
    disk.CreateDirectories(programDir);
    CopyInstalled(installed / kHelpName, help, disk);
  });
  TrySilently([&] {
    if (fs::is_directory(installed / kSampleData)) {
      FillDirectory(installed / kSampleData, JoinPath(programDir, kSampleData), disk);
    }
  });
}

}  // namespace zova
