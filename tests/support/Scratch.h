// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <gtest/gtest.h>

#ifdef _WIN32
#include <process.h>
#endif

#include <chrono>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <map>
#include <random>
#include <string>
#include <string_view>

#include "platform/files/Disk.h"
#include "support/FailingFileLayer.h"

namespace zova::testing {

inline void WriteFile(const std::filesystem::path& path, std::string_view bytes) {
  std::ofstream file(path, std::ios::binary | std::ios::trunc);
  file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  ASSERT_TRUE(file.flush().good()) << "cannot write " << path;
}

/// Fails the test when the file cannot be read.
inline std::string ReadFile(const std::filesystem::path& path) {
  std::ifstream file(path, std::ios::binary);
  EXPECT_TRUE(file.is_open()) << "cannot read " << path;
  return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

/// Everything below `root`: relative names with "/" between components; a directory's ends with "/" and has no bytes.
using Tree = std::map<std::string, std::string>;
inline Tree TreeOf(const std::filesystem::path& root) {
  Tree tree;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(root)) {
    if (entry.path().filename() == ".zova-lock.tmp")
      continue;  // Windows' form of a directory's lock: nobody can read it
    const std::string name = entry.path().lexically_relative(root).generic_string();
    tree[name + (entry.is_directory() ? "/" : "")] = entry.is_directory() ? "" : ReadFile(entry.path());
  }
  return tree;
}

/// What went wrong in a call to a disk, or "".
inline std::string CauseOf(const std::function<void()>& call) {
  try {
    call();
  } catch (const FileError& error) {
    EXPECT_FALSE(error.Path().empty());
    if (error.Cause() == FileCause::System) return error.Code().default_error_condition().message();
    return error.Cause() == FileCause::PathNotFound ? "path not found" : "end of data";
  }
  return "";
}

#ifdef _WIN32
constexpr bool kIsWindows = true;
#else
constexpr bool kIsWindows = false;
#endif

/// A symbolic link to a file, or a hard one on Windows, where few users may make symbolic links.
inline void LinkFile(const std::filesystem::path& target, const std::filesystem::path& link) {
#ifdef _WIN32
  std::filesystem::create_hard_link(link.parent_path() / target, link);
#else
  std::filesystem::create_symlink(target, link);
#endif
}

#ifdef _WIN32
/// Wine makes and removes no junctions, but it shows a symbolic link of the system below it as one, and runs that
/// system's programs, without waiting for them. False on Windows itself.
inline bool RunBelowWine(const std::wstring& program, const wchar_t* option, const std::filesystem::path& path,
                         const std::filesystem::path& other = {}) {
  const std::wstring file = L"Z:\\bin\\" + program;
  if (!std::filesystem::exists(file)) return false;
  const auto below = [](const std::filesystem::path& p) {
    return p.empty() ? L"" : L'"' + p.generic_wstring().substr(2) + L'"';
  };
  _wspawnl(_P_WAIT, file.c_str(), program.c_str(), option, below(path).c_str(), below(other).c_str(), nullptr);
  return true;
}
#endif

/// A symbolic link to a directory, or a junction on Windows.
inline void LinkDirectory(const std::filesystem::path& target, const std::filesystem::path& link) {
#ifdef _WIN32
  if (!RunBelowWine(L"ln", L"-s", target, link)) {
    _wspawnlp(_P_WAIT, L"cmd", L"cmd", L"/c", L"mklink", L"/J", link.c_str(), target.c_str(), nullptr);
  }
  const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(20);
  while (!std::filesystem::exists(link) && std::chrono::steady_clock::now() < end) continue;
  ASSERT_TRUE(std::filesystem::exists(link)) << link;
#else
  std::filesystem::create_directory_symlink(target, link);
#endif
}

/// A directory of its own with the drives C: and D: in it, removed with all that it holds, and a disk over it whose
/// calls can fail.
class Scratch {
 public:
  Scratch()
      : m_root(std::filesystem::canonical(Parent()) /
               ("zova-test-" + std::to_string(std::random_device()()) + std::to_string(std::random_device()()))) {
    std::filesystem::create_directories(m_root / "C");
    std::filesystem::create_directory(m_root / "D");
  }
  ~Scratch() {
    std::error_code ignored;
    if (kIsWindows) {  // where a read-only file is not deleted
      for (const auto& entry : std::filesystem::recursive_directory_iterator(m_root, ignored)) {
        permissions(entry, std::filesystem::perms::owner_write, std::filesystem::perm_options::add, ignored);
      }
    }
    std::filesystem::remove_all(m_root, ignored);
#ifdef _WIN32
    if (std::filesystem::exists(m_root)) RunBelowWine(L"rm", L"-rf", m_root);  // a link is left
#endif
  }
  Scratch(const Scratch&) = delete;
  Scratch& operator=(const Scratch&) = delete;

  [[nodiscard]] const std::filesystem::path& Root() const noexcept { return m_root; }
  [[nodiscard]] DriveMap Drives() const { return DriveMap({{'C', m_root / "C"}, {'D', m_root / "D"}}); }
  /// The native path of `C:\...` or `D:\...`.
  [[nodiscard]] std::filesystem::path Native(std::string_view drivePath) const {
    return Drives().ToNative(drivePath).value();
  }
  [[nodiscard]] ResolvedPath At(std::string_view drivePath) const {
    return {std::string(drivePath), Native(drivePath)};
  }
  /// Another disk, over the platform's own files.
  [[nodiscard]] Disk MakeDisk() { return {m_layer, Drives()}; }
  [[nodiscard]] NativeFileLayer& Layer() noexcept { return m_layer; }

  void MakeDirectory(std::string_view drivePath) const { std::filesystem::create_directories(Native(drivePath)); }
  /// Makes the directories on the way.
  void Put(std::string_view drivePath, std::string_view bytes) const {
    std::filesystem::create_directories(Native(drivePath).parent_path());
    WriteFile(Native(drivePath), bytes);
  }
  [[nodiscard]] std::string Get(std::string_view drivePath) const { return ReadFile(Native(drivePath)); }
  [[nodiscard]] bool Has(std::string_view drivePath) const { return std::filesystem::exists(Native(drivePath)); }
  [[nodiscard]] Tree Snapshot() const { return TreeOf(m_root); }

 private:
  // On Windows the temporary directory lies on the real drive C:, which the scratch drive of that letter hides.
  static std::filesystem::path Parent() {
#ifdef _WIN32
    return std::filesystem::current_path();
#else
    return std::filesystem::temp_directory_path();
#endif
  }

  std::filesystem::path m_root;
  NativeFileLayer m_layer;

 public:
  FailingFileLayer Faults{m_layer};
  Disk Files{Faults, Drives()};
};

}  // namespace zova::testing
