// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <random>
#include <string>
#include <string_view>

#include "platform/files/Disk.h"

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

/// A directory of its own with the drives C: and D: in it, removed with all that it holds.
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
    std::filesystem::remove_all(m_root, ignored);
  }
  Scratch(const Scratch&) = delete;
  Scratch& operator=(const Scratch&) = delete;

  [[nodiscard]] const std::filesystem::path& Root() const noexcept { return m_root; }
  [[nodiscard]] DriveMap Drives() const { return DriveMap({{'C', m_root / "C"}, {'D', m_root / "D"}}); }
  /// The native path of `C:\...` or `D:\...`.
  [[nodiscard]] std::filesystem::path Native(std::string_view drivePath) const {
    return Drives().ToNative(drivePath).value();
  }
  /// A disk of its own over the platform's own files.
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
};

}  // namespace zova::testing
