// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/desktop/Platform.h"

namespace zova {

/// The platform without a window: cancels dialogs, stores and shows nothing.
class NoDesktop final : public FileDialogs, public SettingsStore, public Desktop, public HelpViewer {
 public:
  std::optional<std::string> ChooseFile(const FileQuestion&) override { return std::nullopt; }
  std::optional<std::string> ChooseNewFile(const FileQuestion&) override { return std::nullopt; }
  std::string Get(const std::string&, const std::string&) override { return {}; }
  void Set(const std::string&, const std::string&, const std::string&) override {}
  void Remove(const std::string&, const std::string&) override {}
  void ShowBusyPointer() override {}
  void RestorePointer() override {}
  void Beep() override {}
  bool OpenFolder(const ResolvedPath&) override { return false; }
  void ShowHelp(const std::string&, const std::string&) override {}
};

}  // namespace zova
