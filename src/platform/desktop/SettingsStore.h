// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

namespace zova {

/// The user's stored settings: texts by section and key. Set and Remove return when the change is on the disk; they
/// throw FileError (Write) naming the store's file.
class SettingsStore {
 public:
  virtual ~SettingsStore() = default;
  /// "" when there is none.
  virtual std::string Get(const std::string& section, const std::string& key) = 0;
  virtual void Set(const std::string& section, const std::string& key, const std::string& value) = 0;
  virtual void Remove(const std::string& section, const std::string& key) = 0;
};

}  // namespace zova
