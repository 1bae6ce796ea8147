// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/files/PathParts.h"

namespace zova {

/// Maps drive letters to directories, and so the drive-letter paths in all files and on all screens ("C:\Data\Sdata",
/// UTF-8, backslashes) to the platform's paths. On Windows a letter outside the map is the system's own drive, and the
/// environment's map is empty: every path is itself.
class DriveMap {
 public:
  struct Drive {
    char Letter;  ///< upper case
    std::filesystem::path Root;
  };

  explicit DriveMap(std::vector<Drive> drives);

  /// `C:` is the home directory and `Z:` the root of the file system, unless the environment variable ZOVA_DRIVES
  /// ("C=/dir;D=/dir") replaces the whole map. On Windows the map is empty.
  static DriveMap FromEnvironment();
  /// Parses a value of ZOVA_DRIVES. Ignores parts that are not an assignment to a letter.
  static DriveMap Parse(std::string_view setting);

  /// The platform's path for a drive-letter path, without looking it up. An absolute path of the platform is unchanged.
  /// nullopt for a letter without a drive and for any other text.
  [[nodiscard]] std::optional<std::filesystem::path> ToNative(std::string_view path) const;

  /// The drive-letter path for an absolute path of the platform, by the longest root that contains it. Any other text
  /// is unchanged.
  [[nodiscard]] std::string ToDrivePath(std::string_view path) const;

  /// The stored form of a typed or chosen directory: trimmed, native paths as drive-letter paths, these with
  /// backslashes alone, and without trailing backslashes and blanks ("C:\" becomes "C:"). "" and "(none)" are
  /// unchanged.
  [[nodiscard]] std::string StoredDirectory(std::string_view text) const;

  [[nodiscard]] const std::vector<Drive>& Drives() const noexcept { return m_drives; }

 private:
  std::vector<Drive> m_drives;
};

}  // namespace zova
