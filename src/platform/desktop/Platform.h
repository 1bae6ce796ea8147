// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/desktop/Desktop.h"
#include "platform/desktop/FileDialogs.h"
#include "platform/desktop/HelpViewer.h"
#include "platform/desktop/MessageBoxes.h"
#include "platform/desktop/SettingsStore.h"
#include "platform/files/Disk.h"

namespace zova {

/// The interfaces through which the rules use their environment. They outlive every copy of this struct.
struct Platform {
  Disk& Files;
  MessageBoxes& Boxes;
  FileDialogs& Dialogs;
  SettingsStore& Settings;
  Desktop& Pointer;
  HelpViewer& Help;
  Progress& Bar;
};

}  // namespace zova
