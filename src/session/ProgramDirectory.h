// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "platform/files/Disk.h"

namespace zova {

/// The help file and the example's directory in the program's directory.
std::string HelpFile(const std::string& programDir);

/// Copies from `installed` (a native path) what the program's directory lacks: the help file, and each directory of
/// the sample data with its files. Silent, since nothing depends on it at that moment: a missing help file or example
/// is told of where it is asked for.
void FillProgramDirectory(const std::string& installed, const std::string& programDir, Disk& disk) noexcept;

}  // namespace zova
