// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <stdexcept>
#include <string>
#include <system_error>

namespace zova {

enum class FileCause {
  EndOfData,        ///< 62: the file ends early, or is not a data file
  PathNotFound,     ///< 76: a directory of the path is missing, or the drive is not ready
  DialogCancelled,  ///< 32755: the user cancelled a file dialog
  System            ///< the operating system's error, in `Code`
};

/// The operation that failed; see `OperationText`.
enum class FileOperation { Read, Write, Append, Copy, Delete, List, CreateDirectory, RemoveDirectory };

const char* OperationText(FileOperation operation);

/// A failed file operation. Thrown by everything that accesses files.
class FileError : public std::runtime_error {
 public:
  FileError(FileOperation operation, std::string path, FileCause cause, std::string detail = {});
  FileError(FileOperation operation, std::string path, std::error_code code, std::string detail = {});

  [[nodiscard]] FileOperation Operation() const noexcept { return m_operation; }
  /// As the caller spelt it.
  [[nodiscard]] const std::string& Path() const noexcept { return m_path; }
  [[nodiscard]] FileCause Cause() const noexcept { return m_cause; }
  /// Meaningful when the cause is `System`.
  [[nodiscard]] std::error_code Code() const noexcept { return m_code; }
  void AddDetail(const std::string& line);
  /// The place of the fault ("line 12: ..."), or "".
  [[nodiscard]] const std::string& Detail() const noexcept { return m_detail; }

 private:
  FileOperation m_operation;
  std::string m_path;
  FileCause m_cause;
  std::error_code m_code;
  std::string m_detail;
};

}  // namespace zova
