// SPDX-License-Identifier: GPL-3.0-or-later
//
// What Disk and AppendFile share: the file layer's errors as file errors.
#pragma once

#include <system_error>

#include "platform/files/FileError.h"
#include "platform/files/FileLayer.h"
#include "platform/files/ResolvedPath.h"

namespace zova {

/// Throws the FileError for `code`: path not found where it is the directory that is missing.
[[noreturn]] void ThrowFileError(FileLayer& layer, FileOperation operation, const ResolvedPath& path,
                                 const std::error_code& code);

enum class Devices { Allow, Refuse };

/// Asked before a file is opened for writing: a pipe would wait for its reader, and a disk's node holds all files of
/// the disk. Throws FileError, or std::system_error for a directory and for a file that may not be written.
void RequireWritable(FileLayer& layer, FileOperation operation, const ResolvedPath& target, Devices devices);

/// Opens the file for writing and leaves it as it was; one that does not exist is not left behind. Throws FileError.
void RequireOpens(FileLayer& layer, const ResolvedPath& path);

}  // namespace zova
