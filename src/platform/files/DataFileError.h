// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "platform/files/FileError.h"
#include "text/FieldReader.h"

namespace zova {

/// The file error that stands for a fault in the data file `path`: the end of the data, or, for a number beyond the
/// 16-bit range, the system's "out of range"; either names the line.
FileError DataFileError(const FieldError& fault, const std::string& path);

/// What `parse` makes of the file `path`, a FieldError of it turned into the FileError.
template <typename Parse>
auto ParsingFile(const std::string& path, Parse&& parse) {
  try {
    return parse();
  } catch (const FieldError& fault) {
    throw DataFileError(fault, path);
  }
}

}  // namespace zova
