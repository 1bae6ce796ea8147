// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>

#include "platform/desktop/MessageBoxes.h"
#include "platform/files/Disk.h"

namespace zova {

/// Refuses a typed directory, in the wizard and as the destination of a backup.
inline constexpr const char* kNoDrivePath = "Invalid format. Please redo.";
inline constexpr const char* kInvalidBackup = "Invalid Backup directory name.";
inline constexpr const char* kBackupIsPrimary = "The primary and backup directories cannot be the same.";

/// False for what cannot be part of a file's name on some platform: an empty text, "." and "..", a trailing dot, one of
/// \\ / : * ? " < > |, a control character.
bool IsFileNamePart(std::string_view name) noexcept;

/// False also for what cannot be a whole name (a title's, a directory's): nothing but invisible characters, or a device
/// of Windows such as CON and NUL, so that a project can move between systems.
bool IsWholeFileName(std::string_view name);

/// False when a component of a drive-letter path is no whole file name.
bool HasValidComponents(std::string_view path);

/// "'<directory>' Directory does not exist.  Do you wish to create it?"
bool WantsCreated(const std::string& directory, MessageBoxes& boxes);
/// True when the directory exists, or the user agreed and it was created with every missing level. Throws FileError.
bool ExistsOrIsCreated(const std::string& directory, Disk& disk, MessageBoxes& boxes);

}  // namespace zova
