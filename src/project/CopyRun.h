// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "platform/desktop/Platform.h"

namespace zova {

struct CopyOutcome {
  std::size_t Copied = 0;   ///< these files remain, also when the rest was given up
  bool IsComplete = false;  ///< else the user cancelled, after a fault or between two files
  bool IsStopped = false;   ///< between two files
};
/// Copies files of a directory, each with Retry, and shows the progress with a Cancel button.
CopyOutcome CopyFilesByName(const std::string& from, const std::string& to, const std::vector<std::string>& names,
                            const Platform& platform);

/// Calls `act` for each name and shows the progress, without Cancel.
void ForEachFile(const std::vector<std::string>& names, Progress& bar,
                 const std::function<void(const std::string&)>& act);

}  // namespace zova
