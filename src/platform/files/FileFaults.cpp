// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/files/FileFaults.h"

#include <utility>

namespace zova {

namespace fs = std::filesystem;

namespace {

bool IsDirectoryMissing(FileLayer& layer, const fs::path& native) {
  try {
    return layer.Kind(native.parent_path()) != EntryKind::Directory;
  } catch (const std::system_error&) {
    return false;
  }
}

}  // namespace

void ThrowFileError(FileLayer& layer, FileOperation operation, std::string path, const fs::path& native,
                    const std::error_code& code) {
  const bool notThere = code == std::errc::no_such_file_or_directory || code == std::errc::not_a_directory;
  if (notThere && IsDirectoryMissing(layer, native)) {
    throw FileError(operation, std::move(path), FileCause::PathNotFound);
  }
  throw FileError(operation, std::move(path), code);
}

void RequireWritable(FileLayer& layer, FileOperation operation, std::string_view path, const fs::path& target,
                     Devices devices) {
  const EntryKind kind = layer.Kind(target);
  if (kind == EntryKind::Directory) throw std::system_error(std::make_error_code(std::errc::is_a_directory));
  if (kind == EntryKind::Other || (kind == EntryKind::Device && devices == Devices::Refuse)) {
    throw FileError(operation, std::string(path), std::make_error_code(std::errc::not_supported),
                    "This is neither a file nor the name of a new one.");
  }
  if (layer.IsReadOnly(target)) throw std::system_error(std::make_error_code(std::errc::permission_denied));
}

}  // namespace zova
