// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/desktop/SettingsStore.h"

namespace zova {

/// The INI file of the user's configuration directory, under the application's name.
class QtSettings final : public SettingsStore {
 public:
  std::string Get(const std::string& section, const std::string& key) override;
  void Set(const std::string& section, const std::string& key, const std::string& value) override;
  void Remove(const std::string& section, const std::string& key) override;
};

}  // namespace zova
