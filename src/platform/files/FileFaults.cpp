// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/files/FileFaults.h"

namespace zova {

namespace {

bool IsDirectoryMissing(FileLayer& layer, const ResolvedPath& path) {
  try {
    return layer.Kind(path.Native.parent_path()) != EntryKind::Directory;
  } catch (const std::system_error&) {
    return false;
  }
}

}  // namespace

void ThrowFileError(FileLayer& layer, FileOperation operation, const ResolvedPath& path, const std::error_code& code) {
  const bool notThere = code == std::errc::no_such_file_or_directory || code == std::errc::not_a_directory;
  if (notThere && IsDirectoryMissing(layer, path)) {
    throw FileError(operation, path.Shown, FileCause::PathNotFound);
  }
  throw FileError(operation, path.Shown, code);
}

void RefusePipe(const ResolvedPath& path, const std::error_code& code) {
  if (code != std::errc::not_supported) return;
  throw FileError(FileOperation::Read, path.Shown, code, "This is a pipe or a device, not a file.");
}

void RequireWritable(FileLayer& layer, FileOperation operation, const ResolvedPath& target, Devices devices) {
  const EntryKind kind = layer.Kind(target.Native);
  if (kind == EntryKind::Directory) throw std::system_error(std::make_error_code(std::errc::is_a_directory));
  if (kind == EntryKind::Other || (kind == EntryKind::Device && devices == Devices::Refuse)) {
    throw FileError(operation, target.Shown, std::make_error_code(std::errc::not_supported),
                    "This is neither a file nor the name of a new one.");
  }
  if (layer.IsReadOnly(target.Native)) throw std::system_error(std::make_error_code(std::errc::permission_denied));
}

void RequireOpens(FileLayer& layer, const ResolvedPath& path) {
  try {
    const ResolvedPath target{path.Shown, layer.RealPath(path.Native)};
    RequireWritable(layer, FileOperation::Write, target, Devices::Allow);
    const bool isNew = layer.Kind(target.Native) == EntryKind::Missing;
    layer.Append(target.Native).reset();
    if (isNew) layer.Remove(target.Native);
  } catch (const std::system_error& error) {
    ThrowFileError(layer, FileOperation::Write, path, error.code());
  }
}

}  // namespace zova
