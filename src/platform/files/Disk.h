// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "platform/files/AppendFile.h"
#include "platform/files/DriveMap.h"
#include "platform/files/FileError.h"
#include "platform/files/FileLayer.h"

namespace zova {

/// Largest file that is read: beyond it no data file is one of ours (a FileError, end of data).
inline constexpr std::uintmax_t kMaxFileSize = 64ULL * 1024 * 1024;

/// The file system as the rules see it: drive-letter paths, looked up by exact spelling first, else without regard to
/// case (bytewise first among equals), component by component; what does not exist is created as typed.
/// Every function throws FileError. Temporary files of a save are invisible to every listing.
class Disk {
 public:
  Disk(FileLayer& layer, DriveMap drives) : m_layer(layer), m_drives(std::move(drives)) {}

  [[nodiscard]] const DriveMap& Drives() const noexcept { return m_drives; }
  [[nodiscard]] FileLayer& Layer() noexcept { return m_layer; }

  /// The native path of an existing file, or the one that creating it would make. Throws FileError (PathNotFound) for
  /// a drive that is not ready; `operation` is what the error will name.
  std::filesystem::path Resolve(std::string_view path, FileOperation operation);

  bool FileExists(std::string_view path);
  bool DirectoryExists(std::string_view path);

  /// The whole file into `content`, replacing what was there.
  void Read(std::string_view path, std::string& content);
  /// The same by the native path; `path` is only what an error names.
  void ReadNative(const std::filesystem::path& native, std::string_view path, std::string& content);

  /// Creates or replaces the file in one step that a failure, or a kill at any moment, cannot leave half done.
  enum class Durability { OnDisk, Buffered };
  void Write(std::string_view path, std::string_view content, Durability durability = Durability::OnDisk);
  /// Writes into the file that is there, so that its links, permissions and neighbours stay as they are, or a device;
  /// makes one otherwise. What is no such target, or read-only, is refused before it is emptied. A write that fails
  /// leaves an empty file.
  void WriteInPlace(std::string_view path, std::string_view content);
  AppendFile OpenForAppend(std::string_view path);

  void Copy(std::string_view from, std::string_view to);
  /// The same by native paths, for many files of one directory (FileCopier): `from` and `to` are what errors name, and
  /// leftovers of interrupted saves stay where they are.
  void CopyNative(const std::filesystem::path& source, std::string_view from, const std::filesystem::path& target,
                  std::string_view to);
  /// Of interrupted saves, as every Write does in its directory.
  void RemoveLeftovers(std::string_view directory);
  void Delete(std::string_view path);
  void CreateDirectory(std::string_view path);
  void CreateDirectories(std::string_view path);
  /// Leftovers of interrupted saves go first.
  void RemoveDirectory(std::string_view path);
  /// True when the directory holds nothing but leftovers of interrupted saves.
  bool IsEmptyDirectory(std::string_view path);

  /// The files whose names begin with `prefix` and end with `suffix`, without regard to case, sorted by upper-cased
  /// name, then by bytes. A missing directory has none; other faults throw.
  std::vector<std::string> ListFiles(std::string_view directory, std::string_view prefix, std::string_view suffix);

  /// The directories in it that can be entered, in the same order; without hidden ones and those whose names could not
  /// stand in a stored path. A directory that is missing or cannot be entered itself throws.
  std::vector<std::string> ListDirectories(std::string_view directory);

 private:
  enum class Leftovers { Remove, Keep };

  std::filesystem::path ResolveBelow(std::filesystem::path base, const std::filesystem::path& rest);
  void RemoveLeftoversIn(const std::filesystem::path& directory);
  void WriteNative(const std::filesystem::path& native, std::string_view path, std::string_view content,
                   Durability durability, Leftovers leftovers);
  void ReadForCopy(const std::filesystem::path& source, std::string_view from, std::string& content);
  void ReplaceFile(const std::filesystem::path& target, std::string_view content, Durability durability);
  template <typename Call>
  auto Guarded(FileOperation operation, std::string_view path, const std::filesystem::path& native, Call&& call);

  FileLayer& m_layer;
  DriveMap m_drives;
};

}  // namespace zova
