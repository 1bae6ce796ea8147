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

  /// Reads the stored setting. Throws FileError when it cannot be read.
  void Load();
  /// The registered path; "" without one.
  [[nodiscard]] const std::string& Path() const noexcept { return m_path; }
  [[nodiscard]] bool IsRegistered() const noexcept { return !m_path.empty(); }
  /// False also for a path that cannot be one. Throws FileError when that is unknown.
  [[nodiscard]] bool IsThere() const;
  /// The same, where a directory that cannot be looked at is as good as none.
  [[nodiscard]] bool Exists() const;

  /// Replaces the stored setting. Throws FileError, with Path unchanged; the store may hold either setting then.
  void Register(const std::string& path);
  /// After a Register that failed: stores Path again unless the store still holds it. Throws FileError.
  void KeepRegistration();

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
