// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/files/AppendFile.h"
#include "platform/files/DriveMap.h"
#include "platform/files/EntryNames.h"
#include "platform/files/FileError.h"
#include "platform/files/FileLayer.h"
#include "platform/files/ResolvedPath.h"
#include "platform/files/SequentialFile.h"

namespace zova {

/// Reading a larger file throws FileError (end of data): it is no data file.
inline constexpr std::uintmax_t kMaxFileSize = 64ULL * 1024 * 1024;

/// The file system as the rules see it. Paths are drive-letter paths, looked up component by component: by exact
/// spelling, else without regard to case (the bytewise first of several). New files are created as spelt. Every
/// function throws FileError. No listing shows the temporary files of a save.
class Disk {
 public:
  Disk(FileLayer& layer, DriveMap drives) : m_layer(layer), m_drives(std::move(drives)) {}

  [[nodiscard]] const DriveMap& Drives() const noexcept { return m_drives; }
  [[nodiscard]] FileLayer& Layer() noexcept { return m_layer; }

  /// Looks the path up; what does not exist resolves to where it would be created. Throws FileError (PathNotFound),
  /// naming `operation`, for a drive that is not ready.
  ResolvedPath Resolve(std::string_view path, FileOperation operation);

  /// `path` with links, "." and ".." resolved in `Native`; `Shown` is unchanged.
  ResolvedPath ResolveLinks(const ResolvedPath& path, FileOperation operation);

  /// True when both paths lead to one file or directory, through links, mounts, `..` or case, or would if one were
  /// created. On a drive that is not ready the texts are compared.
  bool IsSame(std::string_view left, std::string_view right);
  bool IsSame(const ResolvedPath& left, const ResolvedPath& right);
  /// True when `inner` is below `outer` and not `outer` itself; false on a drive that is not ready.
  bool LiesInside(std::string_view inner, std::string_view outer);
  /// The names in `directory` that lead to `file`. None for a missing directory.
  std::vector<std::string> NamesOf(const ResolvedPath& file, const ResolvedPath& directory);
  /// When the file's bytes changed last, in nanoseconds: a number to sort by. 0 for a missing file.
  std::int64_t ChangedAt(std::string_view path);
  std::int64_t ChangedAt(const ResolvedPath& file);
  /// The number of hard links of an existing file.
  std::uintmax_t LinkCount(const ResolvedPath& file);

  EntryKind Kind(const ResolvedPath& path, FileOperation operation);
  bool FileExists(std::string_view path);
  bool DirectoryExists(std::string_view path);
  bool IsDevice(std::string_view path);

  /// Replaces `content` by the whole file.
  void Read(std::string_view path, std::string& content);
  void Read(const ResolvedPath& path, std::string& content);

  /// For a file of any size, read once from its beginning.
  SequentialFile OpenForRead(std::string_view path);

  /// Creates or replaces the file atomically: a failure or a kill leaves the old file or the new one.
  enum class Durability {
    OnDisk,     ///< content and name are flushed
    NameLater,  ///< the content is; the name by FlushDirectory, once for many files
    Buffered
  };
  void Write(std::string_view path, std::string_view content, Durability durability = Durability::OnDisk);
  /// Likewise, for saving many files: does not delete leftovers of interrupted saves.
  void WriteOneOfMany(const ResolvedPath& path, std::string_view content, Durability durability = Durability::OnDisk) {
    Write(path, content, durability, Leftovers::Keep);
  }
  void FlushDirectory(const ResolvedPath& directory);
  /// Overwrites an existing file or device, keeping links and permissions, or creates the file. Refuses other targets
  /// and read-only files before emptying them. A failed write leaves an empty file.
  void WriteInPlace(std::string_view path, std::string_view content);
  AppendFile OpenForAppend(std::string_view path);

  void Copy(std::string_view from, std::string_view to);
  /// For copying many files (FileCopier): does not delete leftovers of interrupted saves.
  void Copy(const ResolvedPath& from, const ResolvedPath& to);
  /// Deletes the temporary files of interrupted saves.
  void RemoveLeftovers(std::string_view directory);
  void Delete(std::string_view path);
  void CreateDirectory(std::string_view path);
  void CreateDirectories(std::string_view path);
  /// Deletes leftovers of interrupted saves first.
  void RemoveDirectory(std::string_view path);
  /// Leftovers of interrupted saves do not count.
  bool IsEmptyDirectory(std::string_view path);

  /// The files whose names begin with `prefix` and end with `suffix`, without regard to case, sorted by upper-cased
  /// name, then by bytes. None for a missing directory. A pipe or a device counts as a file: reading it names the
  /// fault.
  std::vector<std::string> ListFiles(std::string_view directory, std::string_view prefix, std::string_view suffix);

  /// The links in `directory` that lead to no file, chosen and sorted like ListFiles.
  std::vector<std::string> ListDanglingLinks(std::string_view directory, std::string_view prefix,
                                             std::string_view suffix);

  /// The subdirectories that can be entered, in the order of ListFiles, without hidden ones and those whose names a
  /// stored path cannot hold. Throws for a directory that is missing or cannot be entered.
  std::vector<std::string> ListDirectories(std::string_view directory);

 private:
  enum class Leftovers { Remove, Keep };

  std::vector<std::string> ListEntries(EntryChoice choice, std::string_view directory, std::string_view prefix,
                                       std::string_view suffix);
  // nullopt for a drive that is not ready.
  std::optional<ResolvedPath> ResolveIfReady(std::string_view path, FileOperation operation);
  void RemoveLeftoversIn(const std::filesystem::path& directory);
  void CreateFlushed(const std::filesystem::path& directory);
  void Write(const ResolvedPath& path, std::string_view content, Durability durability, Leftovers leftovers);
  void ReadForCopy(const ResolvedPath& from, std::string& content);
  void ReplaceFile(const std::filesystem::path& target, std::string_view content, Durability durability);
  template <typename Call>
  auto Guarded(FileOperation operation, const ResolvedPath& path, Call&& call);

  FileLayer& m_layer;
  DriveMap m_drives;
};

/// The whole file; nullopt when it is missing.
std::optional<std::string> ReadIfThere(Disk& disk, const ResolvedPath& path);

/// Throws FileError (PathNotFound) for a directory that is missing: its disk may be absent, so it does not count as
/// empty. The error names `path`, or the directory when that is empty.
void RequireDirectory(Disk& disk, std::string_view directory, FileOperation operation, std::string_view path = {});

}  // namespace zova
