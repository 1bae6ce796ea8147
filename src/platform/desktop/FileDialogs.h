// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace zova {

struct FileFilter {
  std::string Caption;  ///< as shown, "PRM files (*.prm)"
  std::string Pattern;  ///< one wildcard, "*.prm"
};

struct FileQuestion {
  std::string Title;
  std::string Directory;            ///< the initial directory, a drive-letter path
  std::vector<FileFilter> Filters;  ///< the first is preselected
  std::string Name = {};            ///< proposed for a new file
};

class FileDialogs {
 public:
  virtual ~FileDialogs() = default;
  /// The drive-letter path of an existing file; nullopt when the user cancels.
  virtual std::optional<std::string> ChooseFile(const FileQuestion& question) = 0;
  /// The drive-letter path of a file to write, after the user confirmed replacing an existing one; nullopt when the
  /// user cancels. A name typed without extension gets that of the chosen filter.
  virtual std::optional<std::string> ChooseNewFile(const FileQuestion& question) = 0;
};

}  // namespace zova
