// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/files/FileError.h"

#include <utility>

namespace zova {

const char* OperationText(FileOperation operation) {
  switch (operation) {
    case FileOperation::Read: return "Reading";
    case FileOperation::Write: return "Writing";
    case FileOperation::Append: return "Adding to";
    case FileOperation::Copy: return "Copying";
    case FileOperation::Delete: return "Deleting";
    case FileOperation::List: return "Listing";
    case FileOperation::CreateDirectory: return "Creating the directory";
    case FileOperation::RemoveDirectory: return "Removing the directory";
  }
  return "";
}

FileError::FileError(FileOperation operation, std::string path, FileCause cause, std::string detail)
    : std::runtime_error(std::string(OperationText(operation)) + " '" + path + "'"),
      m_operation(operation),
      m_path(std::move(path)),
      m_cause(cause),
      m_detail(std::move(detail)) {}

void FileError::AddDetail(const std::string& line) {
  if (!m_detail.empty()) m_detail += '\n';
  m_detail += line;
}

FileError::FileError(FileOperation operation, std::string path, std::error_code code, std::string detail)
    : FileError(operation, std::move(path), FileCause::System, std::move(detail)) {
  m_code = code;
}

}  // namespace zova
