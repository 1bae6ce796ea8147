// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <filesystem>
#include <map>
#include <set>
#include <string>

#include "platform/Disk.h"

namespace zova {

/// Copies many files of one directory into another by name, replacing what has that name there (exact spelling first,
/// else without regard to case). The target is listed once, before the first file, so that a thousand files cost a
/// thousand times one, and two of the files whose names differ by case alone stay two.
class FileCopier {
 public:
  /// Touches nothing yet. Drive-letter paths of two directories.
  FileCopier(Disk& disk, std::string from, std::string to);

  /// One file, whole or not at all. Throws FileError.
  void Copy(const std::string& name);

 private:
  void Open();
  [[nodiscard]] std::string TargetName(const std::string& name) const;

  Disk& m_disk;
  std::string m_from;
  std::string m_to;
  bool m_open = false;
  std::filesystem::path m_nativeFrom;
  std::filesystem::path m_nativeTo;
  std::set<std::string> m_names;  // in the target, before the first copy
  std::map<std::string, std::string> m_byUpperCase;
};

}  // namespace zova
