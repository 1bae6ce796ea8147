// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <map>
#include <string>
#include <vector>

#include "platform/files/Disk.h"

namespace zova {

/// Copies files of one directory into another by name, replacing files of that name there (exact spelling, else without
/// regard to case). Lists the target once, so that the time is linear in the number of files. Two files whose names
/// differ only in case remain two.
class FileCopier {
 public:
  /// `from` and `to` are drive-letter paths of directories. Does not access the disk.
  FileCopier(Disk& disk, std::string from, std::string to, std::vector<std::string> names);

  /// Copies one file atomically. Throws FileError.
  void Copy(const std::string& name);

 private:
  void Open();
  [[nodiscard]] std::string TargetName(const std::string& name) const;

  Disk& m_disk;
  std::string m_from;
  std::string m_to;
  bool m_isOpen = false;
  ResolvedPath m_resolvedFrom;
  ResolvedPath m_resolvedTo;
  std::vector<std::string> m_names;
  std::map<std::string, std::string> m_others;  // other files in the target, by upper-cased name
};

}  // namespace zova
