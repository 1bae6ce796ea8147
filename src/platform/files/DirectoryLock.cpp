// SPDX-License-Identifier: GPL-3.0-or-later
//
// POSIX systems lock the directory itself. Windows cannot, so a file in the directory represents the lock, opened
// without sharing and deleted by the system when its handle is closed. It has the name of a temporary file: listings
// omit it, and the removal of leftovers cannot delete it while it is open.

#include "platform/files/DirectoryLock.h"

#include <utility>

#ifdef _WIN32
#include <string>

#include "platform/files/WindowsFiles.h"
#else
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#endif

namespace zova {

namespace {

using Outcome = DirectoryLock::Outcome;

constexpr std::intptr_t kNone = -1;

struct Attempt {
  Outcome Result;
  std::intptr_t Handle = kNone;
};

#ifdef _WIN32

HANDLE AsHandle(std::intptr_t handle) noexcept { return reinterpret_cast<HANDLE>(handle); }

void Close(std::intptr_t handle) noexcept { CloseHandle(AsHandle(handle)); }

bool IsSameFile(HANDLE left, HANDLE right) {
  BY_HANDLE_FILE_INFORMATION leftFacts = {};
  BY_HANDLE_FILE_INFORMATION rightFacts = {};
  return GetFileInformationByHandle(left, &leftFacts) != 0 && GetFileInformationByHandle(right, &rightFacts) != 0 &&
         leftFacts.dwVolumeSerialNumber == rightFacts.dwVolumeSerialNumber &&
         leftFacts.nFileIndexHigh == rightFacts.nFileIndexHigh && leftFacts.nFileIndexLow == rightFacts.nFileIndexLow;
}

bool IsHeldOn(const std::wstring& name, std::intptr_t held) {
  const WindowsHandle present = OpenForFacts(name);
  return held != kNone && present && IsSameFile(present.get(), AsHandle(held));
}

// A deleted file denies everything, its attributes included, until all programs that have it open have closed it. What
// the directory denies leaves the attributes.
bool IsBeingDeleted(const std::wstring& name) {
  return GetFileAttributesW(name.c_str()) == INVALID_FILE_ATTRIBUTES && GetLastError() == ERROR_ACCESS_DENIED;
}

Attempt TryLock(const std::filesystem::path& directory, std::intptr_t held) {
  constexpr int kMostTries = 50;
  constexpr DWORD kPause = 20;  // milliseconds
  const std::wstring name = WindowsName(directory / L".zova-lock.tmp");
  if (IsHeldOn(name, held)) return {Outcome::Held, held};
  for (int tries = 1;; ++tries) {
    const HANDLE file = CreateFileW(name.c_str(), GENERIC_WRITE, 0, nullptr, OPEN_ALWAYS,
                                    FILE_ATTRIBUTE_HIDDEN | FILE_FLAG_DELETE_ON_CLOSE, nullptr);
    if (file != INVALID_HANDLE_VALUE) return {Outcome::Held, reinterpret_cast<std::intptr_t>(file)};
    const DWORD error = GetLastError();
    if (error == ERROR_SHARING_VIOLATION) return {Outcome::InUse};
    if (tries == kMostTries || error != ERROR_ACCESS_DENIED || !IsBeingDeleted(name)) return {Outcome::Unavailable};
    Sleep(kPause);
  }
}

#else

void Close(std::intptr_t handle) noexcept { (void)close(static_cast<int>(handle)); }

// Compares the directory itself, not its path: a directory deleted and created again is another one.
bool IsLockOn(std::intptr_t held, const struct stat& directory) {
  struct stat own = {};
  return held != kNone && fstat(static_cast<int>(held), &own) == 0 && own.st_dev == directory.st_dev &&
         own.st_ino == directory.st_ino;
}

Attempt TryLock(const std::filesystem::path& directory, std::intptr_t held) {
  constexpr mode_t kAnyWrite = S_IWUSR | S_IWGRP | S_IWOTH;
  const int handle = open(directory.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (handle < 0) return {Outcome::Unavailable};
  struct stat status = {};
  Attempt attempt = {Outcome::Unavailable};
  if (fstat(handle, &status) == 0 && IsLockOn(held, status)) {
    attempt = {Outcome::Held, held};
  } else if ((status.st_mode & kAnyWrite) == 0 || access(directory.c_str(), W_OK) != 0) {
    // Read-only, also for the system's administrator.
  } else if (flock(handle, LOCK_EX | LOCK_NB) == 0) {
    return {Outcome::Held, handle};
  } else if (errno == EWOULDBLOCK) {
    attempt = {Outcome::InUse};
  }
  Close(handle);
  return attempt;
}

#endif

}  // namespace

DirectoryLock::Outcome DirectoryLock::Acquire(const std::filesystem::path& directory) {
  const Attempt attempt = TryLock(directory, m_handle);
  if (attempt.Result == Outcome::InUse || attempt.Handle == m_handle) return attempt.Result;
  Release();
  m_handle = attempt.Handle;
  return attempt.Result;
}

void DirectoryLock::Release() noexcept {
  if (m_handle != kNone) Close(std::exchange(m_handle, kNone));
}

}  // namespace zova
