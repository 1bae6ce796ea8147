// SPDX-License-Identifier: GPL-3.0-or-later
//
// Splits and joins paths as texts. There are two kinds: drive-letter paths ("C:\Data\Sdata"), with backslashes or "/"
// between components, since no name on any platform contains "/"; and absolute paths of the platform, which begin with
// "/" and in which a backslash is part of a name.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace zova {

/// Convert a path of the platform to UTF-8 and back.
std::string PathText(const std::filesystem::path& path);
std::filesystem::path PathFromText(std::string_view text);

/// Makes a relative path of the platform absolute, from the current directory. A path with a drive is unchanged.
std::string AbsolutePath(std::string_view path);
/// True for a text with "/" and without a backslash: it is typed as a path of the platform, absolute or
/// relative, or with a drive.
bool IsTypedForPlatform(std::string_view path) noexcept;

/// Puts one separator between them, also after a root ("C:\", "/").
std::string JoinPath(std::string_view directory, std::string_view name);
/// What follows the last separator, and what precedes it (without the separator, except for the root "/").
std::string_view LastPathComponent(std::string_view path) noexcept;
std::string_view DirectoryOfPath(std::string_view path) noexcept;
/// Everything up to and including the last separator; "" without one.
std::string_view PathPrefix(std::string_view path) noexcept;
/// True for "\" and "/" at the end, in a text that may be of either kind.
bool EndsWithSeparator(std::string_view path) noexcept;
/// True for a name, or names with "/" between them, that a directory can precede: no drive, root or backslash.
bool CanStandBelow(std::string_view path) noexcept;
/// The components after the drive or root, without empty ones.
std::vector<std::string_view> PathComponents(std::string_view path);
/// The same without "." and "..": a ".." takes back the name before it, whatever is on the disk, and ends at the root.
std::vector<std::string_view> ResolvedComponents(std::string_view path);

/// True when the path begins with a character and a colon, whether or not that drive exists.
bool HasDrive(std::string_view path) noexcept;
/// "C:\" for a path with a drive.
std::string DriveRoot(std::string_view path);
/// Inserts the separator that "C:" and "C:name" lack after the drive; any other path is unchanged.
std::string FromDriveRoot(std::string path);

/// True for a name that Windows takes for a device, with any ending: CON, NUL, COM1 and their kind.
bool IsDeviceName(std::string_view name);

/// True for a directory text that stands for none: empty, or beginning with "(" as in "(none)".
bool IsNoDirectory(std::string_view directory) noexcept;

}  // namespace zova
