// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <filesystem>

namespace zova {

/// Keeps a second copy of the program off a directory. The operating system gives the lock back when the program ends
/// in whatever way, and nothing stands in the directory that could be left behind or copied.
class DirectoryLock {
 public:
  enum class Outcome {
    Held,
    InUse,       ///< another program, or another lock of this one, has it
    Unavailable  ///< the directory is read-only, or its file system knows no locks: one goes without
  };

  DirectoryLock() = default;
  ~DirectoryLock() { Release(); }
  DirectoryLock(const DirectoryLock&) = delete;
  DirectoryLock& operator=(const DirectoryLock&) = delete;

  /// Gives back what this held before, then takes `directory` (a native path).
  Outcome Acquire(const std::filesystem::path& directory);
  void Release() noexcept;

 private:
  std::intptr_t m_handle = -1;
};

}  // namespace zova
