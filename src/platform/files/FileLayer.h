// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zova {

enum class EntryKind {
  Missing,
  File,
  Directory,
  Device,  ///< a character device, such as a terminal or the null device
  Other    ///< a pipe, a socket, a whole disk: cannot hold a file's content
};

struct DirectoryEntry {
  std::string Name;                  ///< UTF-8, as on the disk
  EntryKind Kind = EntryKind::File;  ///< Missing: a link that leads to no file
};

/// Identifies a file or directory independently of its path.
struct FileIdentity {
  std::uint64_t Device = 0;
  std::uint64_t Index = 0;   ///< its number on the device
  std::uint64_t Links = 0;   ///< number of hard links
  std::int64_t Changed = 0;  ///< when its bytes changed last: nanoseconds since 1970
};

inline bool IsSameFile(const FileIdentity& left, const FileIdentity& right) noexcept {
  return left.Device == right.Device && left.Index == right.Index;
}

/// A file open for reading, from its beginning to its end.
class InputFile {
 public:
  virtual ~InputFile() = default;
  /// Fills `buffer` with the next bytes; returns how many, 0 at the end of the file.
  virtual std::size_t Read(char* buffer, std::size_t size) = 0;
};

/// A file open for appending.
class OutputFile {
 public:
  virtual ~OutputFile() = default;
  virtual void Write(std::string_view bytes) = 0;
  /// Returns when all data is on the disk.
  virtual void Flush() = 0;
  /// Reports faults that only closing reveals; the destructor closes silently.
  virtual void Close() = 0;
};

/// The operating system's file calls, on native paths. Each throws std::system_error. An interface, so that tests can
/// make any single call fail.
class FileLayer {
 public:
  virtual ~FileLayer() = default;

  virtual EntryKind Kind(const std::filesystem::path& path) = 0;
  /// Follows links; nullopt when nothing exists there.
  virtual std::optional<FileIdentity> Identity(const std::filesystem::path& path) = 0;
  /// True for a directory, or a link to one, that this user may list and search.
  virtual bool CanEnter(const std::filesystem::path& path) = 0;
  /// True for an existing file that nobody may write, or that this user may not. A check that itself fails throws.
  virtual bool IsReadOnly(const std::filesystem::path& path) = 0;
  /// Resolves links, "." and "..", also a link to a file that does not exist yet. A path that cannot be followed is
  /// unchanged.
  virtual std::filesystem::path RealPath(const std::filesystem::path& path) = 0;
  /// 0 for a device.
  virtual std::uintmax_t Size(const std::filesystem::path& path) = 0;
  /// Fails with std::errc::not_supported for a pipe, a socket or a device.
  virtual std::unique_ptr<InputFile> OpenInput(const std::filesystem::path& path) = 0;
  /// Replaces `content` by the bytes of a file as OpenInput takes it; fails with std::errc::file_too_large above
  /// `limit`.
  virtual void Read(const std::filesystem::path& path, std::string& content, std::uintmax_t limit) = 0;
  /// All entries, unsorted; a link is what it leads to.
  virtual std::vector<DirectoryEntry> List(const std::filesystem::path& directory) = 0;
  /// `Create` fails when the file exists; `Append` and `Overwrite`, which empties it, make it when it does not.
  /// A created file is locked until the object goes, also after Close.
  virtual std::unique_ptr<OutputFile> Create(const std::filesystem::path& path) = 0;
  virtual std::unique_ptr<OutputFile> Append(const std::filesystem::path& path) = 0;
  virtual std::unique_ptr<OutputFile> Overwrite(const std::filesystem::path& path) = 0;
  /// No effect on a device.
  virtual void Truncate(const std::filesystem::path& path, std::uintmax_t size) = 0;
  /// Gives `to` the permissions and, if the user may, the group of `from`.
  virtual void CopyPermissions(const std::filesystem::path& from, const std::filesystem::path& to) = 0;
  /// Replaces `to` atomically. Does not follow links; neither does Remove.
  virtual void Rename(const std::filesystem::path& from, const std::filesystem::path& to) = 0;
  /// Returns when the directory's entries are on the disk.
  virtual void FlushDirectory(const std::filesystem::path& directory) = 0;
  virtual void Remove(const std::filesystem::path& path) = 0;
  /// Removes a created file unless its writer, in this or another program, still holds it.
  virtual void RemoveUnlocked(const std::filesystem::path& path) = 0;
  virtual void CreateDirectory(const std::filesystem::path& path) = 0;
};

class NativeFileLayer final : public FileLayer {
 public:
  EntryKind Kind(const std::filesystem::path& path) override;
  std::optional<FileIdentity> Identity(const std::filesystem::path& path) override;
  bool CanEnter(const std::filesystem::path& path) override;
  bool IsReadOnly(const std::filesystem::path& path) override;
  std::filesystem::path RealPath(const std::filesystem::path& path) override;
  std::uintmax_t Size(const std::filesystem::path& path) override;
  std::unique_ptr<InputFile> OpenInput(const std::filesystem::path& path) override;
  void Read(const std::filesystem::path& path, std::string& content, std::uintmax_t limit) override;
  std::vector<DirectoryEntry> List(const std::filesystem::path& directory) override;
  std::unique_ptr<OutputFile> Create(const std::filesystem::path& path) override;
  std::unique_ptr<OutputFile> Append(const std::filesystem::path& path) override;
  std::unique_ptr<OutputFile> Overwrite(const std::filesystem::path& path) override;
  void Truncate(const std::filesystem::path& path, std::uintmax_t size) override;
  void CopyPermissions(const std::filesystem::path& from, const std::filesystem::path& to) override;
  void Rename(const std::filesystem::path& from, const std::filesystem::path& to) override;
  void FlushDirectory(const std::filesystem::path& directory) override;
  void Remove(const std::filesystem::path& path) override;
  void RemoveUnlocked(const std::filesystem::path& path) override;
  void CreateDirectory(const std::filesystem::path& path) override;

 private:
  std::vector<char> m_buffer;  // reused by Read, so that a run over thousands of files allocates once
};

}  // namespace zova
