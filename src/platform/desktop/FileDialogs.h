// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace zova {

struct FileFilter {
  std::string Caption;  ///< as it is shown, "PRM files (*.prm)"
  std::string Pattern;  ///< one wildcard, "*.prm"
};

struct FileQuestion {
  std::string Title;
  std::string Directory;            ///< where the dialog starts, a drive-letter path
  std::vector<FileFilter> Filters;  ///< the first is chosen
  std::string Name = {};            ///< proposed for a new file
};

/// The platform's dialogs that choose a file.
class FileDialogs {
 public:
  virtual ~FileDialogs() = default;
  /// The drive-letter path of an existing file; nothing when the user cancelled.
  virtual std::optional<std::string> ChooseFile(const FileQuestion& question) = 0;
  /// That of a file to be written; replacing one that exists was agreed to. A name typed without an ending has that of
  /// the chosen filter.
  virtual std::optional<std::string> ChooseNewFile(const FileQuestion& question) = 0;
};

}  // namespace zova
