// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <filesystem>
#include <optional>

#include "platform/files/FileLayer.h"

namespace zova {

/// Looks a native path up component by component: by exact spelling, else without regard to case (the bytewise first of
/// several). What does not exist keeps its spelling. nullopt when the drive or the server's share is not ready. Throws
/// std::system_error.
std::optional<std::filesystem::path> LookUp(FileLayer& layer, const std::filesystem::path& path);

/// The root of an absolute path: "/", "C:\", or a server's share, "\\server\share\".
std::filesystem::path RootOf(const std::filesystem::path& path);

}  // namespace zova
