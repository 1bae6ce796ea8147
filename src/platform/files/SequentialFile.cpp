// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/files/SequentialFile.h"

#include <system_error>
#include <utility>

#include "platform/files/FileFaults.h"

namespace zova {

SequentialFile::SequentialFile(FileLayer& layer, ResolvedPath path, std::unique_ptr<InputFile> file)
    : m_layer(layer), m_path(std::move(path)), m_file(std::move(file)) {}

std::size_t SequentialFile::Read(char* buffer, std::size_t size) {
  try {
    return m_file->Read(buffer, size);
  } catch (const std::system_error& error) {
    ThrowFileError(m_layer, FileOperation::Read, m_path, error.code());
  }
}

}  // namespace zova
