// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/files/AppendFile.h"

#include <system_error>

#include "platform/files/FileFaults.h"

namespace zova {

AppendFile::AppendFile(FileLayer& layer, ResolvedPath path) : m_layer(layer), m_path(std::move(path)) {}

void AppendFile::CutBack() {
  m_file.reset();
  m_layer.Truncate(m_path.Native, m_size);
  m_cutBackDue = false;
}

void AppendFile::Append(std::string_view bytes) {
  try {
    if (m_cutBackDue) CutBack();
    if (!m_file) {
      RequireWritable(m_layer, FileOperation::Append, m_path, Devices::Allow);
      m_size = m_layer.Kind(m_path.Native) == EntryKind::Missing ? 0 : m_layer.Size(m_path.Native);
      m_file = m_layer.Append(m_path.Native);
      if (!m_sizeBefore) m_sizeBefore = m_size;
    }
    m_cutBackDue = true;
    m_file->Write(bytes);
    m_cutBackDue = false;
    m_size += bytes.size();
  } catch (const std::system_error& error) {
    try {
      if (m_cutBackDue) CutBack();
    } catch (const std::system_error&) {
      // The next attempt truncates first.
    }
    ThrowFileError(m_layer, FileOperation::Append, m_path, error.code());
  }
}

void AppendFile::TakeBack() {
  if (!m_sizeBefore) return;
  try {
    m_size = *m_sizeBefore;
    CutBack();
  } catch (const std::system_error& error) {
    ThrowFileError(m_layer, FileOperation::Append, m_path, error.code());
  }
}

// Closed without having been open: closing has failed before. It succeeds when the system has all bytes on the disk.
void AppendFile::Close() {
  try {
    const bool isAgain = m_file == nullptr && m_layer.Kind(m_path.Native) == EntryKind::File;
    if (isAgain && m_layer.Size(m_path.Native) != m_size) {
      throw std::system_error(std::make_error_code(std::errc::io_error));  // rows are lost for good
    }
    if (isAgain) m_file = m_layer.Append(m_path.Native);
    const std::unique_ptr<OutputFile> file = std::move(m_file);  // it is closed also when closing fails
    if (isAgain) file->Flush();
    if (file) file->Close();
  } catch (const std::system_error& error) {
    ThrowFileError(m_layer, FileOperation::Append, m_path, error.code());
  }
}

}  // namespace zova
