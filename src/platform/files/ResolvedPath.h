// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

#include "platform/files/PathParts.h"

namespace zova {

/// The result of Disk::Resolve.
struct ResolvedPath {
  std::string Shown;             ///< as the caller spelt it, for messages
  std::filesystem::path Native;  ///< the platform's path, in the disk's spelling
};

/// Compares the places alone, however the callers spelt them.
inline bool operator==(const ResolvedPath& left, const ResolvedPath& right) { return left.Native == right.Native; }

/// The platform's path in UTF-8.
inline std::string NativeText(const ResolvedPath& path) { return PathText(path.Native); }

/// The entry of exactly this name in a resolved directory.
inline ResolvedPath Below(const ResolvedPath& directory, std::string_view name) {
  return {JoinPath(directory.Shown, name), directory.Native / PathFromText(name)};
}

inline ResolvedPath DirectoryOf(const ResolvedPath& path) {
  return {std::string(DirectoryOfPath(path.Shown)), path.Native.parent_path()};
}

/// The last component in the disk's spelling.
inline std::string NameOf(const ResolvedPath& path) { return PathText(path.Native.filename()); }

}  // namespace zova
