// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "platform/desktop/MessageBoxes.h"
#include "platform/desktop/SettingsStore.h"
#include "platform/files/DirectoryLock.h"
#include "platform/files/Disk.h"

namespace zova {

/// The directory that holds one parameter file per project: where it is registered (the program's one stored
/// setting), and the lock that keeps a second copy of the program off it.
class ParamDirectory {
 public:
  ParamDirectory(SettingsStore& settings, Disk& disk) : m_settings(settings), m_disk(disk) {}

  /// Reads the stored setting.
  void Load();
  /// The registered path, "" when none was ever chosen.
  [[nodiscard]] const std::string& Path() const noexcept { return m_path; }
  [[nodiscard]] bool IsRegistered() const noexcept { return !m_path.empty(); }
  /// False also for a path that cannot be one.
  [[nodiscard]] bool Exists() const;

  /// Removes the stored setting and writes it anew; a failure leaves the earlier one, if it can. Throws FileError.
  void Register(const std::string& path);

  /// False when another copy of the program works with `path`; what was locked before stays locked then. A directory
  /// that cannot be locked goes without.
  bool Lock(const std::string& path);
  void Unlock() noexcept { m_lock.Release(); }

 private:
  SettingsStore& m_settings;
  Disk& m_disk;
  DirectoryLock m_lock;
  std::string m_path;
};

/// Says that another copy of the program works with a Param directory.
void ReportParamInUse(MessageBoxes& boxes);

}  // namespace zova
