// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/files/AppendFile.h"

#include <system_error>

#include "platform/files/FileFaults.h"

namespace zova {

namespace fs = std::filesystem;

AppendFile::AppendFile(FileLayer& layer, std::string path, fs::path native)
    : m_layer(layer), m_path(std::move(path)), m_native(std::move(native)) {}

void AppendFile::CutBack() {
  m_file.reset();
  m_layer.Truncate(m_native, m_size);
  m_cutBackDue = false;
}

void AppendFile::Append(std::string_view bytes) {
  try {
    if (m_cutBackDue) CutBack();
    if (!m_file) {
      RequireWritable(m_layer, FileOperation::Append, m_path, m_native, Devices::Allow);
      m_size = m_layer.Kind(m_native) == EntryKind::Missing ? 0 : m_layer.Size(m_native);
      m_file = m_layer.Append(m_native);
    }
    m_cutBackDue = true;
    m_file->Write(bytes);
    m_cutBackDue = false;
    m_size += bytes.size();
  } catch (const std::system_error& error) {
    try {
      if (m_cutBackDue) CutBack();
    } catch (const std::system_error&) {
      // Still due: the next attempt begins with it.
    }
    ThrowFileError(m_layer, FileOperation::Append, m_path, m_native, error.code());
  }
}

void AppendFile::Close() {
  const std::unique_ptr<OutputFile> file = std::move(m_file);  // it is closed also when closing fails
  try {
    if (file) file->Close();
  } catch (const std::system_error& error) {
    ThrowFileError(m_layer, FileOperation::Append, m_path, m_native, error.code());
  }
}

}  // namespace zova
