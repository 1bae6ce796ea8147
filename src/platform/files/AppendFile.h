// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string_view>

#include "platform/files/FileLayer.h"
#include "platform/files/ResolvedPath.h"

namespace zova {

/// A file to which rows are appended; it stays open between rows.
class AppendFile {
 public:
  AppendFile(FileLayer& layer, ResolvedPath path);
  /// Appends all of `bytes` or none: truncates what a failed call has written. Throws FileError.
  void Append(std::string_view bytes);
  /// Takes back all that was appended. Throws FileError.
  void TakeBack();
  /// Throws FileError for a fault that only closing reveals. The next Append opens the file again.
  void Close();
  [[nodiscard]] const ResolvedPath& Path() const noexcept { return m_path; }

 private:
  void CutBack();

  FileLayer& m_layer;
  ResolvedPath m_path;
  std::unique_ptr<OutputFile> m_file;
  std::optional<std::uintmax_t> m_sizeBefore;  // of the file, at its first opening
  std::uintmax_t m_size = 0;
  bool m_cutBackDue = false;
};

}  // namespace zova
