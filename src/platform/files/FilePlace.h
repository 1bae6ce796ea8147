// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <filesystem>

#include "platform/files/FileLayer.h"

namespace zova {

/// True when the two native paths are one file or directory, by whatever link, mount or `..`; where neither exists,
/// when creating the one would make the other. Throws std::system_error.
bool IsSameEntry(FileLayer& layer, const std::filesystem::path& left, const std::filesystem::path& right);

/// True when `inner` lies below `outer`, and is not itself `outer`. Throws std::system_error.
bool LiesBelow(FileLayer& layer, const std::filesystem::path& inner, const std::filesystem::path& outer);

}  // namespace zova
