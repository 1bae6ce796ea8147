// SPDX-License-Identifier: GPL-3.0-or-later
//
// The file layer of POSIX systems (Windows: WindowsFileLayer.cpp). Uses the standard library, and system calls for what
// it lacks: flushing files and directories, and this user's permissions. Directories are listed by system calls, since
// the library builds a path for every entry, which is several times slower.

#ifndef _WIN32

#include <dirent.h>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <string>
#include <system_error>
#include <utility>

#include "platform/files/DriveMap.h"
#include "platform/files/FileLayer.h"

namespace zova {

namespace fs = std::filesystem;

namespace {

constexpr std::size_t kReadSize = 64UL * 1024;

[[noreturn]] void Throw(int code) { throw std::system_error(code, std::generic_category()); }
[[noreturn]] void ThrowErrno() { Throw(errno != 0 ? errno : EIO); }

void Check(const std::error_code& code) {
  if (code) throw std::system_error(code);
}

std::FILE* Open(const fs::path& path, const char* mode) {
  errno = 0;
  std::FILE* file = std::fopen(path.c_str(), mode);
  if (file == nullptr) ThrowErrno();
  return file;
}

// Neither opening nor reading waits for the other end of a pipe.
int OpenForReading(const fs::path& path) {
  errno = 0;
  const int handle = open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
  if (handle < 0) errno == ENXIO ? Throw(ENOTSUP) : ThrowErrno();  // a socket
  return handle;
}

// True when this user may; an error that is no denial is reported as itself.
bool MayAccess(const fs::path& path, int mode) {
  errno = 0;
  if (access(path.c_str(), mode) == 0) return true;
  if (errno == EACCES || errno == EPERM || errno == EROFS) return false;
  ThrowErrno();
}

int FlushToDisk(int handle) {
#ifdef F_FULLFSYNC  // macOS: fsync leaves the bytes in the drive's own cache, which not every file system can flush
  if (fcntl(handle, F_FULLFSYNC) == 0) return 0;
  errno = 0;
#endif
  return fsync(handle);
}

struct FileCloser {
  void operator()(std::FILE* file) const noexcept { (void)std::fclose(file); }
};
using FileHandle = std::unique_ptr<std::FILE, FileCloser>;

class Descriptor {
 public:
  explicit Descriptor(int number) noexcept : m_number(number) {}
  ~Descriptor() {
    if (m_number >= 0) (void)close(m_number);
  }
  Descriptor(Descriptor&& other) noexcept : m_number(std::exchange(other.m_number, -1)) {}
  Descriptor& operator=(Descriptor&&) = delete;
  [[nodiscard]] int Number() const noexcept { return m_number; }

 private:
  int m_number;
};

struct DirectoryCloser {
  void operator()(DIR* directory) const noexcept { (void)closedir(directory); }
};

class NativeInputFile final : public InputFile {
 public:
  explicit NativeInputFile(const fs::path& path) : m_file(OpenForReading(path)) {
    struct stat status = {};
    if (fstat(m_file.Number(), &status) != 0) ThrowErrno();
    if (S_ISDIR(status.st_mode)) Throw(EISDIR);
    if (!S_ISREG(status.st_mode)) Throw(ENOTSUP);
  }
  std::size_t Read(char* buffer, std::size_t size) override {
    for (;;) {
      errno = 0;
      const ssize_t got = read(m_file.Number(), buffer, size);
      if (got >= 0) return static_cast<std::size_t>(got);
      if (errno != EINTR) ThrowErrno();
    }
  }

 private:
  Descriptor m_file;
};

class NativeOutputFile final : public OutputFile {
 public:
  explicit NativeOutputFile(std::FILE* file, Descriptor lock = Descriptor(-1)) : m_lock(std::move(lock)), m_file(file) {
    // One write reaches the system as one call: a row of a master is in the file whole, or its fault is reported at
    // once.
    (void)std::setvbuf(file, nullptr, _IONBF, 0);
  }

  void Write(std::string_view bytes) override {
    if (bytes.empty()) return;
    errno = 0;
    if (std::fwrite(bytes.data(), 1, bytes.size(), m_file.get()) != bytes.size()) ThrowErrno();
  }
  void Flush() override {
    errno = 0;
    if (FlushToDisk(fileno(m_file.get())) != 0) ThrowErrno();
  }
  void Close() override {
    errno = 0;
    if (m_file && std::fclose(m_file.release()) != 0) ThrowErrno();
  }

 private:
  Descriptor m_lock;  // the same open file: its lock lasts until the last descriptor of it is closed
  FileHandle m_file;
};

// What cannot be looked at may be a file.
EntryKind KindOf(const fs::file_status& status) noexcept {
  switch (status.type()) {
    case fs::file_type::not_found: return EntryKind::Missing;
    case fs::file_type::directory: return EntryKind::Directory;
    case fs::file_type::character: return EntryKind::Device;
    case fs::file_type::block:
    case fs::file_type::fifo:
    case fs::file_type::socket: return EntryKind::Other;
    default: return EntryKind::File;
  }
}

FileIdentity IdentityOf(const struct stat& status) {
#ifdef __APPLE__
  const timespec& changed = status.st_mtimespec;
#else
  const timespec& changed = status.st_mtim;
#endif
  constexpr std::int64_t kNanoseconds = 1'000'000'000;
  // A device number has a sign on macOS.
  return {static_cast<std::uint64_t>(status.st_dev), status.st_ino, status.st_nlink,
          changed.tv_sec * kNanoseconds + changed.tv_nsec};
}

// Omits an entry that has vanished.
void AddEntry(std::string name, fs::file_type type, bool isLink, std::vector<DirectoryEntry>& entries) {
  const EntryKind kind = KindOf(fs::file_status(type));
  if (kind != EntryKind::Missing || isLink) entries.push_back({std::move(name), kind});
}

bool IsDevice(const fs::path& path) {
  std::error_code code;
  return KindOf(fs::status(path, code)) == EntryKind::Device;
}

}  // namespace

EntryKind NativeFileLayer::Kind(const fs::path& path) {
  std::error_code code;
  const fs::file_status status = fs::status(path, code);
  if (status.type() == fs::file_type::not_found) return EntryKind::Missing;
  Check(code);
  return KindOf(status);
}

std::optional<FileIdentity> NativeFileLayer::Identity(const fs::path& path) {
  struct stat status = {};
  if (stat(path.c_str(), &status) == 0) return IdentityOf(status);
  if (errno == ENOENT || errno == ENOTDIR) return std::nullopt;
  ThrowErrno();
}

bool NativeFileLayer::CanEnter(const fs::path& path) {
  struct stat status = {};
  if (stat(path.c_str(), &status) != 0) {
    if (errno == ENOENT || errno == ENOTDIR || errno == EACCES) return false;
    ThrowErrno();
  }
  return S_ISDIR(status.st_mode) && MayAccess(path, R_OK | X_OK);
}

bool NativeFileLayer::IsReadOnly(const fs::path& path) {
  std::error_code code;
  const fs::file_status status = fs::status(path, code);
  constexpr fs::perms kAnyWrite = fs::perms::owner_write | fs::perms::group_write | fs::perms::others_write;
  if (status.type() == fs::file_type::not_found) return false;
  Check(code);
  if ((status.permissions() & kAnyWrite) == fs::perms::none) return true;  // for root, too
  return !MayAccess(path, W_OK);
}

fs::path NativeFileLayer::RealPath(const fs::path& path) {
  constexpr int kMostLinks = 40;  // ends a cycle of links, as the system does
  std::error_code code;
  fs::path real = path;
  for (int link = 0; link < kMostLinks && fs::is_symlink(real, code); ++link) {
    real = real.parent_path() / fs::read_symlink(real, code);
    if (code) return path;
  }
  const fs::path whole = fs::weakly_canonical(real, code);
  return code ? real : whole;
}

std::uintmax_t NativeFileLayer::Size(const fs::path& path) {
  if (IsDevice(path)) return 0;
  std::error_code code;
  const std::uintmax_t size = fs::file_size(path, code);
  Check(code);
  return size;
}

std::unique_ptr<InputFile> NativeFileLayer::OpenInput(const fs::path& path) {
  return std::make_unique<NativeInputFile>(path);
}

void NativeFileLayer::Read(const fs::path& path, std::string& content, std::uintmax_t limit) {
  NativeInputFile file(path);
  // Until the end, not by the size in the status: a growing file outgrows it.
  m_buffer.resize(kReadSize);
  content.clear();
  while (const std::size_t got = file.Read(m_buffer.data(), kReadSize)) {
    content.append(m_buffer.data(), got);
    if (content.size() > limit) Throw(EFBIG);
  }
}

std::vector<DirectoryEntry> NativeFileLayer::List(const fs::path& directory) {
  errno = 0;
  const std::unique_ptr<DIR, DirectoryCloser> handle(opendir(directory.c_str()));
  if (!handle) ThrowErrno();
  std::vector<DirectoryEntry> entries;
  errno = 0;
  while (const dirent* entry = readdir(handle.get())) {
    const std::string_view name = entry->d_name;
    if (name == "." || name == "..") continue;
    // The directory knows the type of nearly every entry; only links have to be followed.
    std::error_code unreadable;
    const fs::file_type type = entry->d_type == DT_REG   ? fs::file_type::regular
                               : entry->d_type == DT_DIR ? fs::file_type::directory
                                                         : fs::status(directory / name, unreadable).type();
    AddEntry(std::string(name), type, entry->d_type == DT_LNK, entries);
    errno = 0;
  }
  if (errno != 0) ThrowErrno();
  return entries;
}

std::unique_ptr<OutputFile> NativeFileLayer::Create(const fs::path& path) {
  for (;;) {
    FileHandle file(Open(path, "wbx"));
    Descriptor lock(fcntl(fileno(file.get()), F_DUPFD_CLOEXEC, 0));
    // Another program's sweep may hold the new file for the moment before its lock; then the file is gone with it. A
    // file system without locks has no sweep that could take the file, either.
    if (lock.Number() < 0 || flock(lock.Number(), LOCK_EX) != 0)
      return std::make_unique<NativeOutputFile>(file.release());
    struct stat status = {};
    if (fstat(lock.Number(), &status) != 0) ThrowErrno();
    if (status.st_nlink > 0) return std::make_unique<NativeOutputFile>(file.release(), std::move(lock));
  }
}

std::unique_ptr<OutputFile> NativeFileLayer::Append(const fs::path& path) {
  return std::make_unique<NativeOutputFile>(Open(path, "ab"));
}

std::unique_ptr<OutputFile> NativeFileLayer::Overwrite(const fs::path& path) {
  return std::make_unique<NativeOutputFile>(Open(path, "wb"));
}

void NativeFileLayer::Truncate(const fs::path& path, std::uintmax_t size) {
  if (IsDevice(path)) return;
  std::error_code code;
  fs::resize_file(path, size, code);
  Check(code);
}

void NativeFileLayer::CopyPermissions(const fs::path& from, const fs::path& to) {
  struct stat owner = {};
  // The group too, if the user may: colleagues who share the old file share the new one.
  if (stat(from.c_str(), &owner) == 0 && chown(to.c_str(), static_cast<uid_t>(-1), owner.st_gid) != 0) errno = 0;
  std::error_code code;
  const fs::perms permissions = fs::status(from, code).permissions();
  Check(code);
  fs::permissions(to, permissions, code);
  Check(code);
}

void NativeFileLayer::Rename(const fs::path& from, const fs::path& to) {
  std::error_code code;
  fs::rename(from, to, code);
  Check(code);
}

void NativeFileLayer::FlushDirectory(const fs::path& directory) {
  const int handle = open(directory.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (handle < 0) return;     // a directory that may be written but not read cannot be flushed
  (void)FlushToDisk(handle);  // some network file systems refuse this; the file itself is flushed already
  (void)close(handle);
}

void NativeFileLayer::Remove(const fs::path& path) {
  std::error_code code;
  fs::remove(path, code);
  Check(code);
}

void NativeFileLayer::RemoveUnlocked(const fs::path& path) {
  const Descriptor file(open(path.c_str(), O_WRONLY | O_NONBLOCK | O_NOFOLLOW | O_CLOEXEC));
  if (file.Number() >= 0 && flock(file.Number(), LOCK_EX | LOCK_NB) == 0) Remove(path);
}

void NativeFileLayer::CreateDirectory(const fs::path& path) {
  std::error_code code;
  fs::create_directory(path, code);
  Check(code);
}

}  // namespace zova

#endif
