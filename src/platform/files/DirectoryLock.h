// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <filesystem>

namespace zova {

/// Keeps a second copy of the program out of a directory. The operating system releases the lock when the process ends,
/// also when it is killed; no file remains, and no listing shows the lock.
class DirectoryLock {
 public:
  enum class Outcome {
    Held,
    InUse,       ///< locked by another program, or by another lock of this one
    Unavailable  ///< missing, read-only, or on a file system without locks: it is used unlocked
  };

  DirectoryLock() = default;
  ~DirectoryLock() { Release(); }
  DirectoryLock(const DirectoryLock&) = delete;
  DirectoryLock& operator=(const DirectoryLock&) = delete;

  /// Locks `directory` (a native path), then releases the previous lock, which stays held on InUse. Held also for a
  /// directory that this lock already holds.
  Outcome Acquire(const std::filesystem::path& directory);
  void Release() noexcept;

 private:
  std::intptr_t m_handle = -1;
};

}  // namespace zova
