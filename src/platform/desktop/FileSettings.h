// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/desktop/SettingsStore.h"
#include "platform/files/Disk.h"

namespace zova {

/// The settings in an INI file. A change replaces the file in one step, without a lock file that a killed program could
/// leave behind, and is read back before it counts as stored. Get throws FileError when the file cannot be read.
class FileSettings final : public SettingsStore {
 public:
  FileSettings(Disk& disk, std::string file) : m_disk(disk), m_file(std::move(file)) {}

  std::string Get(const std::string& section, const std::string& key) override;
  void Set(const std::string& section, const std::string& key, const std::string& value) override;
  void Remove(const std::string& section, const std::string& key) override;

 private:
  std::string Content();
  void Store(const std::string& content);

  Disk& m_disk;
  std::string m_file;
};

}  // namespace zova
