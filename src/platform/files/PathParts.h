// SPDX-License-Identifier: GPL-3.0-or-later
//
// Taking path texts apart and putting them together. There are two kinds: drive-letter paths ("C:\Data\Sdata"), whose
// components are separated by backslashes, or by "/", since no name on any platform holds one; and absolute paths of
// the platform that begin with "/", in which a backslash is a character of a name.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace zova {

/// A path of the platform as UTF-8 text, and back.
std::string PathText(const std::filesystem::path& path);
std::filesystem::path PathFromText(std::string_view text);

/// `directory` + separator + `name`, with one separator between them also when `directory` is a root ("C:\", "/").
std::string JoinPath(std::string_view directory, std::string_view name);
/// What follows the last separator, and what stands before it (without it, but for the root "/").
std::string_view LastPathComponent(std::string_view path) noexcept;
std::string_view DirectoryOfPath(std::string_view path) noexcept;
/// Everything up to and including the last separator; "" without one.
std::string_view PathPrefix(std::string_view path) noexcept;
/// The components behind the drive or root, without empty ones.
std::vector<std::string_view> PathComponents(std::string_view path);

/// True when the path names a drive: a character and a colon. Whether that drive exists is for the drive map to say.
bool HasDrive(std::string_view path) noexcept;
/// "C:\" of a path that has a drive.
std::string DriveRoot(std::string_view path);

/// True for a directory text that stands for none: empty, or beginning with "(" as in "(none)".
bool IsNoDirectory(std::string_view directory) noexcept;

}  // namespace zova
