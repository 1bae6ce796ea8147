// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/desktop/QtDesktop.h"
#include "platform/desktop/FileDialogs.h"
#include "platform/files/Disk.h"

namespace zova {

class QtFileDialogs final : public FileDialogs {
 public:
  QtFileDialogs(Disk& disk, QtDesktop& desktop) : m_disk(disk), m_desktop(desktop) {}
  std::optional<std::string> ChooseFile(const FileQuestion& question) override;
  std::optional<std::string> ChooseNewFile(const FileQuestion& question) override;

 private:
  std::optional<std::string> Ask(const FileQuestion& question, bool isNew);

  Disk& m_disk;
  QtDesktop& m_desktop;
};

}  // namespace zova
