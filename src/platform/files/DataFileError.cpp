// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/files/DataFileError.h"

namespace zova {

FileError DataFileError(const FieldError& fault, const std::string& path) {
  const std::string detail = "Line " + std::to_string(fault.Line()) + ": " + fault.what() + ".";
  if (fault.Fault() == FieldFault::OutOfRange16) {
    return {FileOperation::Read, path, std::make_error_code(std::errc::result_out_of_range), detail};
  }
  return {FileOperation::Read, path, FileCause::EndOfData, detail};
}

}  // namespace zova
