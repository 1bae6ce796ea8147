// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <system_error>
#include <utility>

#include "platform/files/FileLayer.h"

namespace zova::testing {

/// From one failing call to the next, in tests that let every call fail. Under Wine a call takes a hundred times as
/// long as on Linux; what follows a failed call is the same code.
#ifdef _WIN32
constexpr int kFailureStep = 9;
#else
constexpr int kFailureStep = 1;
#endif

/// Counts every call to a file layer, those to its open files included, and lets one of them fail, once.
/// Flushes are counted but not passed on: no test could see them, and they would take nearly all of its time.
class FailingFileLayer final : public FileLayer {
 public:
  using Path = std::filesystem::path;
  enum class Writes { Nothing, Half };

  explicit FailingFileLayer(FileLayer& inner) : m_inner(inner) {}

  /// Restarts the count; call `n` (from 1) throws `code`. A write that fails leaves nothing or the first half of its
  /// bytes.
  void FailAt(int n, std::errc code = std::errc::no_space_on_device, Writes writes = Writes::Nothing) {
    m_calls = 0;
    m_failAt = n;
    m_code = code;
    m_writes = writes;
    m_isKilled = false;
    m_failedCall.clear();
  }
  /// As when the program is killed during call `n` (none for 0): it and all later ones fail.
  void KillAt(int n) { FailAt(n, std::errc::io_error, Writes::Half), m_isKilled = true; }
  /// Restarts the count; no call fails.
  void FailNever() { FailAt(0); }
  [[nodiscard]] bool HasFailed() const noexcept { return !m_failedCall.empty(); }
  /// The name of the call that failed, or "".
  [[nodiscard]] const std::string& FailedCall() const noexcept { return m_failedCall; }

  EntryKind Kind(const Path& path) override { return Pass("Kind"), m_inner.Kind(path); }
  std::optional<FileIdentity> Identity(const Path& path) override { return Pass("Identity"), m_inner.Identity(path); }
  bool CanEnter(const Path& path) override { return Pass("CanEnter"), m_inner.CanEnter(path); }
  bool IsReadOnly(const Path& path) override { return Pass("IsReadOnly"), m_inner.IsReadOnly(path); }
  Path RealPath(const Path& path) override { return Pass("RealPath"), m_inner.RealPath(path); }
  std::uintmax_t Size(const Path& path) override { return Pass("Size"), m_inner.Size(path); }
  std::unique_ptr<InputFile> OpenInput(const Path& path) override {
    return Pass("OpenInput"), std::make_unique<Input>(*this, m_inner.OpenInput(path));
  }
  void Read(const Path& path, std::string& content, std::uintmax_t limit) override {
    Pass("Read"), m_inner.Read(path, content, limit);
  }
  std::vector<DirectoryEntry> List(const Path& path) override { return Pass("List"), m_inner.List(path); }
  std::unique_ptr<OutputFile> Create(const Path& path) override {
    return Pass("Create"), std::make_unique<File>(*this, m_inner.Create(path));
  }
  std::unique_ptr<OutputFile> Append(const Path& path) override {
    return Pass("Append"), std::make_unique<File>(*this, m_inner.Append(path));
  }
  std::unique_ptr<OutputFile> Overwrite(const Path& path) override {
    return Pass("Overwrite"), std::make_unique<File>(*this, m_inner.Overwrite(path));
  }
  void Truncate(const Path& path, std::uintmax_t size) override { Pass("Truncate"), m_inner.Truncate(path, size); }
  void CopyPermissions(const Path& from, const Path& to) override {
    Pass("CopyPermissions"), m_inner.CopyPermissions(from, to);
  }
  void Rename(const Path& from, const Path& to) override { Pass("Rename"), m_inner.Rename(from, to); }
  void FlushDirectory(const Path&) override { Pass("FlushDirectory"); }
  void Remove(const Path& path) override { Pass("Remove"), m_inner.Remove(path); }
  void RemoveUnlocked(const Path& path) override { Pass("RemoveUnlocked"), m_inner.RemoveUnlocked(path); }
  void CreateDirectory(const Path& path) override { Pass("CreateDirectory"), m_inner.CreateDirectory(path); }

 private:
  class Input final : public InputFile {
   public:
    Input(FailingFileLayer& layer, std::unique_ptr<InputFile> inner) : m_layer(layer), m_inner(std::move(inner)) {}
    std::size_t Read(char* buffer, std::size_t size) override {
      return m_layer.Pass("InputRead"), m_inner->Read(buffer, size);
    }

   private:
    FailingFileLayer& m_layer;
    std::unique_ptr<InputFile> m_inner;
  };
  class File final : public OutputFile {
   public:
    File(FailingFileLayer& layer, std::unique_ptr<OutputFile> inner) : m_layer(layer), m_inner(std::move(inner)) {}
    void Write(std::string_view bytes) override {
      const bool fails = m_layer.m_calls + 1 == m_layer.m_failAt;
      if (fails && m_layer.m_writes == Writes::Half) m_inner->Write(bytes.substr(0, bytes.size() / 2));
      m_layer.Pass("Write"), m_inner->Write(bytes);
    }
    void Flush() override { m_layer.Pass("Flush"); }
    void Close() override { m_layer.Pass("Close"), m_inner->Close(); }

   private:
    FailingFileLayer& m_layer;
    std::unique_ptr<OutputFile> m_inner;
  };

  void Pass(const char* call) {
    ++m_calls;
    if (m_failAt == 0 || (m_isKilled ? m_calls < m_failAt : m_calls != m_failAt)) return;
    if (m_failedCall.empty()) m_failedCall = call;
    throw std::system_error(std::make_error_code(m_code));
  }

  FileLayer& m_inner;
  int m_calls = 0;
  int m_failAt = 0;
  std::errc m_code = std::errc::no_space_on_device;
  Writes m_writes = Writes::Nothing;
  bool m_isKilled = false;
  std::string m_failedCall;
};

}  // namespace zova::testing
