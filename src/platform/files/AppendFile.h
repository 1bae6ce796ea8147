// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <string_view>

#include "platform/files/FileLayer.h"
#include "platform/files/ResolvedPath.h"

namespace zova {

/// A file that rows are added to, held open between them.
class AppendFile {
 public:
  AppendFile(FileLayer& layer, ResolvedPath path);
  /// Adds `bytes` whole or not at all: what a failed call left behind is cut off again. Throws FileError.
  void Append(std::string_view bytes);
  /// Tells of faults that only closing shows; the next Append would open the file again. Throws FileError.
  void Close();
  [[nodiscard]] const std::filesystem::path& Native() const noexcept { return m_path.Native; }

 private:
  void CutBack();

  FileLayer& m_layer;
  ResolvedPath m_path;
  std::unique_ptr<OutputFile> m_file;
  std::uintmax_t m_size = 0;
  bool m_cutBackDue = false;
};

}  // namespace zova
