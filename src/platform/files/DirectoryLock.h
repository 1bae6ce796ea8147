// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <filesystem>

namespace zova {

/// Keeps a second copy of the program off a directory. The operating system gives the lock back when the program ends
/// in whatever way; nothing is left behind in the directory, and no listing shows the lock.
class DirectoryLock {
 public:
  enum class Outcome {
    Held,
    InUse,       ///< another program, or another lock of this one, has it
    Unavailable  ///< missing, read-only, or on a file system without locks: one goes without
  };

  DirectoryLock() = default;
  ~DirectoryLock() { Release(); }
  DirectoryLock(const DirectoryLock&) = delete;
  DirectoryLock& operator=(const DirectoryLock&) = delete;

  /// Takes `directory` (a native path), then gives back what this held before; with InUse that stays held. A directory
  /// that this holds already is Held.
  Outcome Acquire(const std::filesystem::path& directory);
  void Release() noexcept;

 private:
  std::intptr_t m_handle = -1;
};

}  // namespace zova
