// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "platform/files/AppendFile.h"
#include "platform/files/DriveMap.h"
#include "platform/files/FileError.h"
#include "platform/files/FileLayer.h"
#include "platform/files/ResolvedPath.h"

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

  /// Where an existing file is, or the one that creating it would make. Throws FileError (PathNotFound) for a drive
  /// that is not ready; `operation` is what the error will name.
  ResolvedPath Resolve(std::string_view path, FileOperation operation);

  /// The same without links, "." and ".."; `Shown` stays.
  ResolvedPath ResolveLinks(const ResolvedPath& path, FileOperation operation);

  /// True when the two paths are one file or directory: by symbolic or hard link, mount, `..` or case; of two that do
  /// not exist, when creating the one would make the other. On a drive that is not ready the texts are compared.
  bool IsSame(std::string_view left, std::string_view right);
  bool IsSame(const ResolvedPath& left, const ResolvedPath& right);
  /// True when `inner` lies below `outer` (and is not itself `outer`); false on a drive that is not ready.
  bool LiesInside(std::string_view inner, std::string_view outer);
  /// The files of `directory` that are `file` under another name or the same one. A missing directory has none.
  std::vector<std::string> NamesOf(const ResolvedPath& file, const ResolvedPath& directory);
  /// How many names (hard links) the existing file has.
  std::uintmax_t LinkCount(const ResolvedPath& file);

  EntryKind Kind(const ResolvedPath& path, FileOperation operation);
  bool FileExists(std::string_view path);
  bool DirectoryExists(std::string_view path);

  /// The whole file into `content`, replacing what was there.
  void Read(std::string_view path, std::string& content);
  void Read(const ResolvedPath& path, std::string& content);

  /// Creates or replaces the file in one step that a failure, or a kill at any moment, cannot leave half done.
  enum class Durability { OnDisk, Buffered };
  void Write(std::string_view path, std::string_view content, Durability durability = Durability::OnDisk);
  /// Writes into the file that is there, so that its links, permissions and neighbours stay as they are, or a device;
  /// makes one otherwise. What is no such target, or read-only, is refused before it is emptied. A write that fails
  /// leaves an empty file.
  void WriteInPlace(std::string_view path, std::string_view content);
  AppendFile OpenForAppend(std::string_view path);

  void Copy(std::string_view from, std::string_view to);
  /// The same for many files of one directory (FileCopier): leftovers of interrupted saves stay where they are.
  void Copy(const ResolvedPath& from, const ResolvedPath& to);
  /// Deletes the temporary files of interrupted saves.
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
  void Write(const ResolvedPath& path, std::string_view content, Durability durability, Leftovers leftovers);
  void ReadForCopy(const ResolvedPath& from, std::string& content);
  void ReplaceFile(const std::filesystem::path& target, std::string_view content, Durability durability);
  template <typename Call>
  auto Guarded(FileOperation operation, const ResolvedPath& path, Call&& call);

  FileLayer& m_layer;
  DriveMap m_drives;
};

}  // namespace zova
