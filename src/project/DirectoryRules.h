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

/// True when IsFileNamePart holds for every component of a drive-letter path.
bool HasValidComponents(std::string_view path) noexcept;

/// The stored form of a typed or chosen directory: trimmed, native paths as drive-letter paths, without trailing
/// backslashes and blanks ("C:\" becomes "C:"). "" and "(none)" are unchanged.
std::string DirectoryFromText(std::string_view text, const DriveMap& drives);

/// True when the directory exists, or the user agrees and it is created with all missing levels. The question is
/// "'<directory>' Directory does not exist. Do you wish to create it?". Throws FileError.
bool ExistsOrIsCreated(const std::string& directory, Disk& disk, MessageBoxes& boxes);

}  // namespace zova
