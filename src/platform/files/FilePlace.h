// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <filesystem>

#include "platform/files/FileLayer.h"

namespace zova {

/// True when both native paths lead to one file or directory, through links, mounts or `..`, or would if one were
/// created. Throws std::system_error.
bool IsSameEntry(FileLayer& layer, const std::filesystem::path& left, const std::filesystem::path& right);

/// True when `inner` is below `outer` and not `outer` itself. Throws std::system_error.
bool LiesBelow(FileLayer& layer, const std::filesystem::path& inner, const std::filesystem::path& outer);

}  // namespace zova
