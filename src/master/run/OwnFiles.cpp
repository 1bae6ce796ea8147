// SPDX-License-Identifier: GPL-3.0-or-later
//
// A file is told by the directory that it really lies in and by its name there, which takes the same time for any
// number of subjects. Only a file with a second hard link is held against the files themselves.

#include "master/run/OwnFiles.h"

#include <algorithm>
#include <vector>

#include "subjects/SubjectFiles.h"
#include "text/Encoding.h"

namespace zova {

namespace fs = std::filesystem;

namespace {

// A drive that is not ready holds no file that could be lost.
void AddDirectory(const std::string& directory, Disk& disk, std::vector<fs::path>& directories) {
  try {
    directories.push_back(disk.Resolve(directory, FileOperation::Write));
  } catch (const FileError&) {
    return;
  }
}

bool IsSame(const fs::path& left, const fs::path& right) {
  std::error_code missing;
  return fs::equivalent(left, right, missing);
}

// "Temp.txt", "Temp 1.txt"
bool IsAutosaveName(std::string_view name) {
  constexpr std::string_view kStart = "Temp";
  constexpr std::string_view kEnd = ".txt";
  if (!BeginsIgnoringCase(name, kStart) || !EndsIgnoringCase(name, kEnd)) return false;
  const std::string_view number = name.substr(kStart.size(), name.size() - kStart.size() - kEnd.size());
  return number.find_first_not_of(" 0123456789") == std::string_view::npos;
}

bool IsOrderName(std::string_view name) {
  return EndsIgnoringCase(name, " Serial Order.dat") || EndsIgnoringCase(name, " Combine Order.dat");
}

class OwnFiles {
 public:
  OwnFiles(const ProjectParameters& project, Disk& disk) {
    for (const std::string& directory : {project.PrimaryDir, project.BackupDir}) {
      if (IsNoDirectory(directory)) continue;
      AddDirectory(directory, disk, m_projectDirectories);
      AddDirectory(SubjectDirectory(directory), disk, m_subjectDirectories);
      AddDirectory(UnfinishedDirectory(directory), disk, m_subjectDirectories);
    }
  }

  [[nodiscard]] bool Hold(const fs::path& file) const {
    std::error_code code;
    if (IsOrderName(PathText(file.filename()))) return !fs::exists(file, code) || fs::is_regular_file(file, code);
    if (!fs::is_regular_file(file, code)) return false;
    const fs::path real = fs::canonical(file, code);
    if (IsNamedSo(code ? file : real)) return true;
    return fs::hard_link_count(file, code) > 1 && !code && IsLinkToOne(file);
  }

 private:
  [[nodiscard]] bool IsNamedSo(const fs::path& file) const {
    const std::string name = PathText(file.filename());
    if (EndsIgnoringCase(name, ".prm") || IsOrderName(name)) return true;
    const fs::path directory = file.parent_path();
    if (EndsIgnoringCase(name, ".dat")) {
      return std::any_of(m_subjectDirectories.begin(), m_subjectDirectories.end(),
                         [&](const fs::path& other) { return IsSame(directory, other); });
    }
    return IsAutosaveName(name) && EqualsIgnoringCase(PathText(directory.filename()), "Param");
  }

  [[nodiscard]] bool IsLinkToOne(const fs::path& file) const {
    for (const auto* directories : {&m_projectDirectories, &m_subjectDirectories}) {
      for (const fs::path& directory : *directories) {
        std::error_code code;
        for (fs::directory_iterator entry(directory, code), end; !code && entry != end; entry.increment(code)) {
          if (IsSame(entry->path(), file) && IsNamedSo(entry->path())) return true;
        }
      }
    }
    return false;
  }

  std::vector<fs::path> m_projectDirectories;
  std::vector<fs::path> m_subjectDirectories;
};

}  // namespace

void RefuseOwnFile(const std::string& path, const ProjectParameters& project, Disk& disk) {
  if (!OwnFiles(project, disk).Hold(disk.Resolve(path, FileOperation::Write))) return;
  throw FileError(FileOperation::Write, path, std::make_error_code(std::errc::file_exists),
                  "A master cannot take the place of a project's own file.");
}

}  // namespace zova
