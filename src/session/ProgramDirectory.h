// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "platform/files/Disk.h"

namespace zova {

/// Paths of the help file and the example's directory in the program's directory.
std::string HelpFile(const std::string& programDir);

/// Copies from `installed` (a native path) what the program's directory lacks: the help file, and each directory of the
/// sample data with its files. Silent: a missing help file or example is reported where it is needed.
void FillProgramDirectory(const std::string& installed, const std::string& programDir, Disk& disk) noexcept;

}  // namespace zova
