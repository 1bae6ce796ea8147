// SPDX-License-Identifier: GPL-3.0-or-later
//
// The file layer of Windows, by its own calls: the C and C++ libraries refuse long paths, and report a file that
// another program has open as a denied permission or an input/output error.

#ifdef _WIN32

#include <algorithm>
#include <limits>
#include <string_view>
#include <system_error>

#include "platform/files/FileLayer.h"
#include "platform/files/PathLookup.h"
#include "platform/files/PathParts.h"
#include "platform/files/WindowsFiles.h"

namespace zova {

namespace fs = std::filesystem;

namespace {

constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
constexpr std::wstring_view kLongPrefix = L"\\\\?\\";
constexpr std::wstring_view kLongServerPrefix = L"\\\\?\\UNC\\";

[[noreturn]] void Throw(std::errc code) { throw std::system_error(std::make_error_code(code)); }

void Require(BOOL succeeded) {
  if (succeeded == 0) ThrowLastError();
}

bool IsMissing(DWORD error) noexcept {
  return error == ERROR_FILE_NOT_FOUND || error == ERROR_PATH_NOT_FOUND || error == ERROR_INVALID_NAME ||
         error == ERROR_BAD_NETPATH || error == ERROR_INVALID_DRIVE || error == ERROR_NOT_READY;
}

bool IsLink(DWORD attributes) noexcept { return (attributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0; }

EntryKind KindOf(DWORD attributes) noexcept {
  return (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0 ? EntryKind::Directory : EntryKind::File;
}

// Windows reports a name that is too long as an invalid or a missing one.
[[noreturn]] void ThrowLastErrorOf(const fs::path& path) {
  constexpr std::size_t kLongestName = 255;
  if (path.filename().native().size() > kLongestName) Throw(std::errc::filename_too_long);
  ThrowLastError();
}

WindowsHandle Open(const fs::path& path, DWORD access, DWORD disposition) {
  const HANDLE handle =
      CreateFileW(WindowsName(path).c_str(), access, kShareAll, nullptr, disposition, FILE_ATTRIBUTE_NORMAL, nullptr);
  if (handle == INVALID_HANDLE_VALUE) ThrowLastErrorOf(path);
  return WindowsHandle(handle);
}

class WindowsInputFile final : public InputFile {
 public:
  explicit WindowsInputFile(const fs::path& path) : m_file(OpenFile(path)) {
    if (GetFileType(m_file.get()) != FILE_TYPE_DISK) Throw(std::errc::not_supported);
  }
  std::size_t Read(char* buffer, std::size_t size) override {
    DWORD got = 0;
    const std::size_t most = std::min<std::size_t>(size, (std::numeric_limits<DWORD>::max)());
    Require(ReadFile(m_file.get(), buffer, static_cast<DWORD>(most), &got, nullptr));
    return got;
  }

 private:
  static WindowsHandle OpenFile(const fs::path& path) {
    if (IsReservedName(path)) Throw(std::errc::not_supported);  // the console would wait for input
    return Open(path, GENERIC_READ, OPEN_EXISTING);
  }

  WindowsHandle m_file;
};

class WindowsOutputFile final : public OutputFile {
 public:
  explicit WindowsOutputFile(WindowsHandle file, WindowsHandle hold = nullptr)
      : m_hold(std::move(hold)), m_file(std::move(file)) {}

  void Write(std::string_view bytes) override {
    constexpr std::size_t kMostAtOnce = 1UL << 30U;
    while (!bytes.empty()) {
      DWORD written = 0;
      Require(WriteFile(m_file.get(), bytes.data(), static_cast<DWORD>(std::min(bytes.size(), kMostAtOnce)), &written,
                        nullptr));
      if (written == 0) Throw(std::errc::no_space_on_device);
      bytes.remove_prefix(written);
    }
  }
  void Flush() override { Require(FlushFileBuffers(m_file.get())); }
  void Close() override {
    if (m_file) Require(CloseHandle(m_file.release()));
  }

 private:
  WindowsHandle m_hold;  // keeps RemoveUnlocked away after Close, too
  WindowsHandle m_file;
};

std::unique_ptr<OutputFile> OpenOutput(const fs::path& path, DWORD access, DWORD disposition) {
  return std::make_unique<WindowsOutputFile>(Open(path, access, disposition));
}

// Without ".", "..", "/" and the current directory, worked out by the text alone, as Windows does.
std::wstring FullName(const fs::path& path) {
  std::wstring full(GetFullPathNameW(path.c_str(), 0, nullptr, nullptr), L'\0');
  full.resize(GetFullPathNameW(path.c_str(), static_cast<DWORD>(full.size()), full.data(), nullptr));
  return full;
}

// The path without links of what is open; empty for what has none.
fs::path FinalName(HANDLE file) {
  constexpr DWORD kLongestPath = 32768;
  std::wstring name(kLongestPath, L'\0');
  name.resize(GetFinalPathNameByHandleW(file, name.data(), kLongestPath, FILE_NAME_NORMALIZED));
  if (name.starts_with(kLongServerPrefix)) return L"\\\\" + name.substr(kLongServerPrefix.size());
  return name.starts_with(kLongPrefix) ? name.substr(kLongPrefix.size()) : name;
}

struct SearchCloser {
  using pointer = HANDLE;
  void operator()(HANDLE search) const noexcept { FindClose(search); }
};
using SearchHandle = std::unique_ptr<HANDLE, SearchCloser>;

// Calls `visit` for each entry of a directory.
template <typename Visit>
void ForEachEntry(const fs::path& directory, Visit&& visit) {
  WIN32_FIND_DATAW found = {};
  const HANDLE search = FindFirstFileExW(WindowsName(directory / L"*").c_str(), FindExInfoBasic, &found,
                                         FindExSearchNameMatch, nullptr, FIND_FIRST_EX_LARGE_FETCH);
  if (search == INVALID_HANDLE_VALUE) {
    if (GetLastError() == ERROR_FILE_NOT_FOUND) return;  // a drive without a file
    ThrowLastError();
  }
  const SearchHandle closer(search);
  do {
    const std::wstring_view name = &found.cFileName[0];
    if (name != L"." && name != L"..") visit(fs::path(name), found.dwFileAttributes);
  } while (FindNextFileW(search, &found) != 0);
  if (GetLastError() != ERROR_NO_MORE_FILES) ThrowLastError();
}

}  // namespace

void ThrowLastError() {
  const std::error_code code(static_cast<int>(GetLastError()), std::system_category());
  const std::error_condition portable = code.default_error_condition();
  // The portable error, except for a file in use, for which there is none.
  if (code.value() == ERROR_SHARING_VIOLATION || portable.category() != std::generic_category()) {
    throw std::system_error(code);
  }
  throw std::system_error(portable.value(), portable.category());
}

std::wstring WindowsName(const fs::path& path) {
  constexpr std::size_t kSafeLength = MAX_PATH - 12;  // a directory's path must leave room for a short file name
  const std::wstring& name = path.native();
  if (name.size() < kSafeLength || name.starts_with(kLongPrefix)) return name;
  const std::wstring full = FullName(path);  // behind the prefix Windows itself works out nothing
  return full.starts_with(L"\\\\") ? std::wstring(kLongServerPrefix) + full.substr(2)
                                   : std::wstring(kLongPrefix) + full;
}

WindowsHandle OpenForFacts(const std::wstring& name) noexcept {
  const HANDLE handle =
      CreateFileW(name.c_str(), 0, kShareAll, nullptr, OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr);
  return WindowsHandle(handle == INVALID_HANDLE_VALUE ? nullptr : handle);
}

bool IsReservedName(const fs::path& path) { return IsDeviceName(PathText(path.filename())); }

EntryKind NativeFileLayer::Kind(const fs::path& path) {
  if (IsReservedName(path)) return EntryKind::Device;
  const DWORD attributes = GetFileAttributesW(WindowsName(path).c_str());
  if (attributes == INVALID_FILE_ATTRIBUTES) {
    if (IsMissing(GetLastError())) return EntryKind::Missing;
    ThrowLastError();
  }
  if (IsLink(attributes) && !OpenForFacts(WindowsName(path))) return EntryKind::Missing;  // dangling
  return KindOf(attributes);
}

std::optional<FileIdentity> NativeFileLayer::Identity(const fs::path& path) {
  if (Kind(path) == EntryKind::Missing) return std::nullopt;
  const WindowsHandle handle = OpenForFacts(WindowsName(path));
  if (!handle) ThrowLastError();
  BY_HANDLE_FILE_INFORMATION facts = {};
  Require(GetFileInformationByHandle(handle.get(), &facts));
  const auto high = static_cast<std::uint64_t>(facts.nFileIndexHigh);
  const auto ticks = (static_cast<std::uint64_t>(facts.ftLastWriteTime.dwHighDateTime) << 32) |
                     facts.ftLastWriteTime.dwLowDateTime;  // of 100 ns, from 1601
  constexpr std::int64_t kTicksTo1970 = 116'444'736'000'000'000;
  return FileIdentity{facts.dwVolumeSerialNumber, (high << 32) | facts.nFileIndexLow, facts.nNumberOfLinks,
                      (static_cast<std::int64_t>(ticks) - kTicksTo1970) * 100};
}

bool NativeFileLayer::CanEnter(const fs::path& path) {
  try {
    if (Kind(path) != EntryKind::Directory) return false;
    ForEachEntry(path, [](const fs::path&, DWORD) {});  // only opening it reveals what its access list allows
    return true;
  } catch (const std::system_error&) {
    return false;
  }
}

bool NativeFileLayer::IsReadOnly(const fs::path& path) {
  const DWORD attributes = GetFileAttributesW(WindowsName(path).c_str());
  return attributes != INVALID_FILE_ATTRIBUTES && KindOf(attributes) == EntryKind::File &&
         (attributes & FILE_ATTRIBUTE_READONLY) != 0;
}

// What does not exist yet has no links, and stands below the longest part that exists.
fs::path NativeFileLayer::RealPath(const fs::path& path) {
  if (IsReservedName(path)) return path;
  fs::path existing = FullName(path);
  std::vector<fs::path> missing;
  WindowsHandle handle = OpenForFacts(WindowsName(existing));
  for (const fs::path root = RootOf(existing); !handle && existing != root;) {
    missing.push_back(existing.filename());
    existing = existing.parent_path();
    handle = OpenForFacts(WindowsName(existing));
  }
  fs::path real = handle ? FinalName(handle.get()) : fs::path();
  if (real.empty()) return path;
  for (auto name = missing.rbegin(); name != missing.rend(); ++name) real /= *name;
  return real;
}

std::uintmax_t NativeFileLayer::Size(const fs::path& path) {
  if (IsReservedName(path)) return 0;
  const WindowsHandle file = OpenForFacts(WindowsName(path));
  if (!file) ThrowLastError();
  LARGE_INTEGER size = {};
  Require(GetFileSizeEx(file.get(), &size));
  return static_cast<std::uintmax_t>(size.QuadPart);
}

std::unique_ptr<InputFile> NativeFileLayer::OpenInput(const fs::path& path) {
  return std::make_unique<WindowsInputFile>(path);
}

void NativeFileLayer::Read(const fs::path& path, std::string& content, std::uintmax_t limit) {
  WindowsInputFile file(path);
  constexpr std::size_t kReadSize = 64UL * 1024;
  m_buffer.resize(kReadSize);
  content.clear();
  while (const std::size_t got = file.Read(m_buffer.data(), kReadSize)) {
    content.append(m_buffer.data(), got);
    if (content.size() > limit) Throw(std::errc::file_too_large);
  }
}

std::vector<DirectoryEntry> NativeFileLayer::List(const fs::path& directory) {
  std::vector<DirectoryEntry> entries;
  ForEachEntry(directory, [&](const fs::path& name, DWORD attributes) {
    entries.push_back({PathText(name), IsLink(attributes) ? Kind(directory / name) : KindOf(attributes)});
  });
  return entries;
}

std::unique_ptr<OutputFile> NativeFileLayer::Create(const fs::path& path) {
  WindowsHandle file = Open(path, GENERIC_WRITE, CREATE_NEW);
  return std::make_unique<WindowsOutputFile>(std::move(file), Open(path, GENERIC_READ, OPEN_EXISTING));
}

std::unique_ptr<OutputFile> NativeFileLayer::Append(const fs::path& path) {
  return OpenOutput(path, FILE_APPEND_DATA | SYNCHRONIZE, OPEN_ALWAYS);
}

std::unique_ptr<OutputFile> NativeFileLayer::Overwrite(const fs::path& path) {
  return OpenOutput(path, GENERIC_WRITE, CREATE_ALWAYS);
}

void NativeFileLayer::Truncate(const fs::path& path, std::uintmax_t size) {
  if (IsReservedName(path)) return;
  const WindowsHandle file = Open(path, GENERIC_WRITE, OPEN_EXISTING);
  LARGE_INTEGER end = {};
  end.QuadPart = static_cast<LONGLONG>(size);
  Require(SetFilePointerEx(file.get(), end, nullptr, FILE_BEGIN));
  Require(SetEndOfFile(file.get()));
}

// Files inherit permissions from their directory; only attributes are their own.
void NativeFileLayer::CopyPermissions(const fs::path& from, const fs::path& to) {
  constexpr DWORD kKept = FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM |
                          FILE_ATTRIBUTE_ARCHIVE | FILE_ATTRIBUTE_NOT_CONTENT_INDEXED;
  const DWORD attributes = GetFileAttributesW(WindowsName(from).c_str());
  if (attributes == INVALID_FILE_ATTRIBUTES) ThrowLastError();
  const DWORD kept = attributes & kKept;
  Require(SetFileAttributesW(WindowsName(to).c_str(), kept == 0 ? FILE_ATTRIBUTE_NORMAL : kept));
}

void NativeFileLayer::Rename(const fs::path& from, const fs::path& to) {
  const std::wstring target = WindowsName(to);
  // Written through, since Windows cannot flush a directory.
  if (MoveFileExW(WindowsName(from).c_str(), target.c_str(), MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH) != 0) {
    return;
  }
  const DWORD error = GetLastError();
  // A target that another program has open is reported as "denied". Opening it for deletion gives the true reason.
  if (error == ERROR_ACCESS_DENIED && KindOf(GetFileAttributesW(target.c_str())) == EntryKind::File) {
    const HANDLE open = CreateFileW(target.c_str(), DELETE, kShareAll, nullptr, OPEN_EXISTING, 0, nullptr);
    if (open == INVALID_HANDLE_VALUE) ThrowLastError();
    CloseHandle(open);
  }
  SetLastError(error);
  ThrowLastErrorOf(to);
}

void NativeFileLayer::FlushDirectory(const fs::path&) {}

void NativeFileLayer::Remove(const fs::path& path) {
  const std::wstring name = WindowsName(path);
  const DWORD attributes = GetFileAttributesW(name.c_str());
  if (attributes == INVALID_FILE_ATTRIBUTES) {
    if (!IsMissing(GetLastError())) ThrowLastError();
    return;
  }
  Require(KindOf(attributes) == EntryKind::Directory ? RemoveDirectoryW(name.c_str()) : DeleteFileW(name.c_str()));
}

// Opened without sharing, which fails while a writer has the file open, and deleted when it is closed.
void NativeFileLayer::RemoveUnlocked(const fs::path& path) {
  const HANDLE file = CreateFileW(WindowsName(path).c_str(), DELETE, 0, nullptr, OPEN_EXISTING,
                                  FILE_FLAG_DELETE_ON_CLOSE | FILE_FLAG_OPEN_REPARSE_POINT, nullptr);
  if (file != INVALID_HANDLE_VALUE) CloseHandle(file);
}

void NativeFileLayer::CreateDirectory(const fs::path& path) {
  if (CreateDirectoryW(WindowsName(path).c_str(), nullptr) != 0) return;
  const DWORD error = GetLastError();
  if (error == ERROR_ALREADY_EXISTS && Kind(path) == EntryKind::Directory) return;
  SetLastError(error);
  ThrowLastErrorOf(path);
}

}  // namespace zova

#endif
