// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

namespace zova {

/// The user's stored settings: texts by section and key. Set and Remove are on the disk when they return, or leave what
/// was there; they throw FileError (Write) that names the store's file.
class SettingsStore {
 public:
  virtual ~SettingsStore() = default;
  /// "" when there is none. Throws FileError (Read).
  virtual std::string Get(const std::string& section, const std::string& key) = 0;
  virtual void Set(const std::string& section, const std::string& key, const std::string& value) = 0;
  virtual void Remove(const std::string& section, const std::string& key) = 0;
};

}  // namespace zova
