// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <map>
#include <string>
#include <vector>

#include "platform/files/Disk.h"

namespace zova {

/// Copies files of one directory into another by name, replacing what has that name there (exact spelling first, else
/// without regard to case). The target is listed once, before the first file, so that a thousand files cost a
/// thousand times one. Two of the files whose names differ by case alone stay two.
class FileCopier {
 public:
  /// Touches nothing yet. Drive-letter paths of two directories.
  FileCopier(Disk& disk, std::string from, std::string to, std::vector<std::string> names);

  [[nodiscard]] const std::vector<std::string>& Names() const noexcept { return m_names; }

  /// One file, whole or not at all. Throws FileError.
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
  std::map<std::string, std::string> m_others;  // files in the target with none of the names, by their upper case
};

}  // namespace zova
