// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>

#include "platform/desktop/MessageBoxes.h"
#include "platform/files/Disk.h"

namespace zova {

/// Why a typed directory is refused, in the wizard and as the destination of a backup.
inline constexpr const char* kNoDrivePath = "Invalid format. Please redo.";
inline constexpr const char* kInvalidBackup = "Invalid Backup directory name.";
inline constexpr const char* kBackupIsPrimary = "The primary and backup directories cannot be the same.";

/// False for what cannot be part of a file's name on every platform: empty, "." and "..", a trailing dot, one of
/// \\ / : * ? " < > |, a control character.
bool IsFileNamePart(std::string_view name) noexcept;

/// False when a component of a drive-letter path is no file name part.
bool HasValidComponents(std::string_view path) noexcept;

/// A directory as it was typed or chosen, in the form in which it is kept: trimmed, a native path in drive-letter form,
/// without backslashes and blanks at its end ("C:\" becomes "C:"). "" and "(none)" stay.
std::string DirectoryFromText(std::string_view text, const DriveMap& drives);

/// True when the directory exists, or the user agreed and it was created with every missing level. The question is
/// "'<directory>' Directory does not exist.  Do you wish to create it?". Throws FileError.
bool ExistsOrIsCreated(const std::string& directory, Disk& disk, MessageBoxes& boxes);

}  // namespace zova
