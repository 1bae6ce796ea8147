// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <memory>

#include "platform/files/FileLayer.h"
#include "platform/files/ResolvedPath.h"

namespace zova {

/// A file that is read piece by piece.
class SequentialFile {
 public:
  SequentialFile(FileLayer& layer, ResolvedPath path, std::unique_ptr<InputFile> file);
  /// Fills `buffer` with the next bytes; returns how many, 0 at the end of the file. Throws FileError.
  std::size_t Read(char* buffer, std::size_t size);
  [[nodiscard]] const ResolvedPath& Path() const noexcept { return m_path; }

 private:
  FileLayer& m_layer;
  ResolvedPath m_path;
  std::unique_ptr<InputFile> m_file;
};

}  // namespace zova
