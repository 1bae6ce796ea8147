// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "platform/desktop/MessageBoxes.h"
#include "platform/desktop/SettingsStore.h"
#include "platform/files/DirectoryLock.h"
#include "platform/files/Disk.h"

namespace zova {

/// The directory with one parameter file per project: its registration (the program's only stored setting), and the
/// lock that keeps a second copy of the program out of it.
class ParamDirectory {
 public:
  ParamDirectory(SettingsStore& settings, Disk& disk) : m_settings(settings), m_disk(disk) {}

  /// Reads the stored setting.
  void Load();
  /// The registered path; "" without one.
  [[nodiscard]] const std::string& Path() const noexcept { return m_path; }
  [[nodiscard]] bool IsRegistered() const noexcept { return !m_path.empty(); }
  /// Also false for an invalid path.
  [[nodiscard]] bool Exists() const;

  /// Removes the stored setting and writes it again; after a failure restores the earlier one if possible. Throws
  /// FileError.
  void Register(const std::string& path);

  /// False, keeping the previous lock, when another copy of the program uses `path`. A directory that cannot be locked
  /// is used without a lock.
  bool Lock(const std::string& path);
  void Unlock() noexcept { m_lock.Release(); }

 private:
  SettingsStore& m_settings;
  Disk& m_disk;
  DirectoryLock m_lock;
  std::string m_path;
};

/// Reports that another copy of the program uses a Param directory.
void ReportParamInUse(MessageBoxes& boxes);

}  // namespace zova
