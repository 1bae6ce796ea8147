// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "platform/files/FileError.h"
#include "text/FieldReader.h"

namespace zova {

/// A fault in the data file `path` as a FileError that names the line: end of data, or the system's "out of range" for
/// a number beyond 16 bits.
FileError DataFileError(const FieldError& fault, const std::string& path);

/// Runs `parse`; rethrows its FieldError as the FileError of `path`.
template <typename Parse>
auto ParsingFile(const std::string& path, Parse&& parse) {
  try {
    return parse();
  } catch (const FieldError& fault) {
    throw DataFileError(fault, path);
  }
}

}  // namespace zova
