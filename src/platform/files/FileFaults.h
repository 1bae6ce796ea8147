// SPDX-License-Identifier: GPL-3.0-or-later
//
// Turns the file layer's errors into file errors, for Disk and AppendFile.
#pragma once

#include <system_error>

#include "platform/files/FileError.h"
#include "platform/files/FileLayer.h"
#include "platform/files/ResolvedPath.h"

namespace zova {

/// Throws the FileError for `code`: PathNotFound when the directory is missing.
[[noreturn]] void ThrowFileError(FileLayer& layer, FileOperation operation, const ResolvedPath& path,
                                 const std::error_code& code);

/// Throws a FileError if reading failed with `code` since this is a pipe, whose other end it would wait for, or a
/// device.
void RefusePipe(const ResolvedPath& path, const std::error_code& code);

enum class Devices { Allow, Refuse };

/// To be called before a file is opened for writing: opening a pipe would wait for its reader, and a disk's device node
/// would destroy its files. Throws FileError, or std::system_error for a directory and for a file that may not be
/// written.
void RequireWritable(FileLayer& layer, FileOperation operation, const ResolvedPath& target, Devices devices);

/// Opens the file for writing and leaves it as it was; one that does not exist is not left behind. Throws FileError.
void RequireOpens(FileLayer& layer, const ResolvedPath& path);

}  // namespace zova
