// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/files/PathParts.h"

namespace zova {

/// Between the drive-letter paths that all files and screens speak ("C:\Data\Sdata", UTF-8, backslashes) and the
/// platform's own paths. A map of drive letters to directories. On Windows a letter outside the map is the system's own
/// drive, and the environment's map is empty: every path is itself.
class DriveMap {
 public:
  struct Drive {
    char Letter;  ///< upper case
    std::filesystem::path Root;
  };

  explicit DriveMap(std::vector<Drive> drives);

  /// `C:` is the home directory and `Z:` the root of the file system; the environment variable ZOVA_DRIVES
  /// ("C=/dir;D=/dir") replaces the whole map. Neither holds on Windows.
  static DriveMap FromEnvironment();
  /// `setting` in the form of ZOVA_DRIVES. Parts that are no assignment to a letter are passed over.
  static DriveMap Parse(std::string_view setting);

  /// The platform's path of a drive-letter path, as spelt. An absolute path of the platform is itself. Nothing when the
  /// letter has no drive, or when the text is neither.
  [[nodiscard]] std::optional<std::filesystem::path> ToNative(std::string_view path) const;

  /// The drive-letter path of an absolute path of the platform, by the longest root that holds it. Text that is no
  /// such path, or lies below no root, stays as it is.
  [[nodiscard]] std::string ToDrivePath(std::string_view path) const;

  [[nodiscard]] const std::vector<Drive>& Drives() const noexcept { return m_drives; }

 private:
  std::vector<Drive> m_drives;
};

}  // namespace zova
