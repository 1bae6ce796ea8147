// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

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
  Device,  ///< takes bytes one after the other, as a terminal or the null device does
  Other    ///< a pipe, a socket, a whole disk: nothing that takes a file's bytes
};

struct DirectoryEntry {
  std::string Name;  ///< UTF-8, as it stands on the disk
  EntryKind Kind = EntryKind::File;
};

/// What tells one file or directory from every other, by whatever name it is reached.
struct FileIdentity {
  std::uint64_t Device = 0;
  std::uint64_t Index = 0;  ///< its number on the device
  std::uint64_t Links = 0;  ///< how many names it has (hard links)
};

inline bool IsSameFile(const FileIdentity& left, const FileIdentity& right) noexcept {
  return left.Device == right.Device && left.Index == right.Index;
}

/// A file open for writing at its end.
class OutputFile {
 public:
  virtual ~OutputFile() = default;
  virtual void Write(std::string_view bytes) = 0;
  /// Everything written is on the disk itself when this returns.
  virtual void Flush() = 0;
  /// Tells of faults that only closing shows; the destructor closes silently.
  virtual void Close() = 0;
};

/// The operating system's file calls that everything else is made of, on native paths. Each throws std::system_error.
/// An interface, so that a test can let any single call fail.
class FileLayer {
 public:
  virtual ~FileLayer() = default;

  virtual EntryKind Kind(const std::filesystem::path& path) = 0;
  /// Of what the path leads to, links followed; nullopt where there is nothing.
  virtual std::optional<FileIdentity> Identity(const std::filesystem::path& path) = 0;
  /// True for a directory, or a link to one, that this user may list and whose files he may reach.
  virtual bool CanEnter(const std::filesystem::path& path) = 0;
  /// True for an existing file that nobody may write, or that this user may not.
  virtual bool IsReadOnly(const std::filesystem::path& path) = 0;
  /// The path without links, "." and "..", also where a link stands for a file that does not exist yet. A path that
  /// cannot be followed stays as it is.
  virtual std::filesystem::path RealPath(const std::filesystem::path& path) = 0;
  /// A device has none: 0.
  virtual std::uintmax_t Size(const std::filesystem::path& path) = 0;
  /// Replaces `content` by the file's bytes; fails with std::errc::file_too_large above `limit`.
  virtual void Read(const std::filesystem::path& path, std::string& content, std::uintmax_t limit) = 0;
  /// Files and directories, links to them included, in no particular order.
  virtual std::vector<DirectoryEntry> List(const std::filesystem::path& directory) = 0;
  /// `Create` fails when the file exists; `Append` and `Overwrite`, which empties it, make it when it does not.
  virtual std::unique_ptr<OutputFile> Create(const std::filesystem::path& path) = 0;
  virtual std::unique_ptr<OutputFile> Append(const std::filesystem::path& path) = 0;
  virtual std::unique_ptr<OutputFile> Overwrite(const std::filesystem::path& path) = 0;
  /// Of a device nothing can be cut off, and nothing is.
  virtual void Truncate(const std::filesystem::path& path, std::uintmax_t size) = 0;
  /// Gives `to` the permissions and, where the user may, the group of `from`.
  virtual void CopyPermissions(const std::filesystem::path& from, const std::filesystem::path& to) = 0;
  /// Replaces `to` in one step; a link is replaced, not followed, here and in Remove.
  virtual void Rename(const std::filesystem::path& from, const std::filesystem::path& to) = 0;
  /// The entries of a directory are on the disk itself when this returns.
  virtual void FlushDirectory(const std::filesystem::path& directory) = 0;
  virtual void Remove(const std::filesystem::path& path) = 0;
  virtual void CreateDirectory(const std::filesystem::path& path) = 0;
};

/// The platform's own.
class NativeFileLayer final : public FileLayer {
 public:
  EntryKind Kind(const std::filesystem::path& path) override;
  std::optional<FileIdentity> Identity(const std::filesystem::path& path) override;
  bool CanEnter(const std::filesystem::path& path) override;
  bool IsReadOnly(const std::filesystem::path& path) override;
  std::filesystem::path RealPath(const std::filesystem::path& path) override;
  std::uintmax_t Size(const std::filesystem::path& path) override;
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
  void CreateDirectory(const std::filesystem::path& path) override;

 private:
  std::vector<char> m_buffer;  // for Read, kept so that a run over thousands of files allocates once
};

}  // namespace zova
