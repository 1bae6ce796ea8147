// SPDX-License-Identifier: GPL-3.0-or-later
//
// A file is replaced by writing ".zova-<n>.tmp" beside it, flushing, and renaming over it. The writer keeps it locked
// until it has its name. One that can be locked is the trace of a save that was killed; the next save into the
// directory removes it.

#include "platform/files/Disk.h"

#include <algorithm>
#include <system_error>

#include "platform/files/FileFaults.h"
#include "platform/files/FilePlace.h"
#include "platform/files/PathLookup.h"
#include "text/Encoding.h"

namespace zova {

namespace fs = std::filesystem;

namespace {

// A damaged directory does not hide the others; opening it reports its fault.
bool MayBeEntered(FileLayer& layer, const fs::path& directory) {
  try {
    return layer.CanEnter(directory);
  } catch (const std::system_error&) {
    return true;
  }
}

// A file system without permissions is no reason to refuse a save.
void KeepPermissions(FileLayer& layer, const fs::path& from, const fs::path& to) {
  try {
    if (layer.Kind(from) == EntryKind::File) layer.CopyPermissions(from, to);
  } catch (const std::system_error&) {
  }
}

}  // namespace

// Runs a call to the layer and turns its errors into file errors that name the path as the caller spelt it.
template <typename Call>
auto Disk::Guarded(FileOperation operation, const ResolvedPath& path, Call&& call) {
  try {
    return call();
  } catch (const std::system_error& error) {
    ThrowFileError(m_layer, operation, path, error.code());
  }
}

std::optional<ResolvedPath> Disk::ResolveIfReady(std::string_view path, FileOperation operation) {
  const auto native = m_drives.ToNative(path);
  if (!native) return std::nullopt;
  ResolvedPath resolved{std::string(path), *native};
  const auto found = Guarded(operation, resolved, [&] { return LookUp(m_layer, *native); });
  if (!found) return std::nullopt;
  resolved.Native = *found;
  return resolved;
}

ResolvedPath Disk::Resolve(std::string_view path, FileOperation operation) {
  auto resolved = ResolveIfReady(path, operation);
  if (!resolved) throw FileError(operation, std::string(path), FileCause::PathNotFound);
  return *std::move(resolved);
}

ResolvedPath Disk::ResolveLinks(const ResolvedPath& path, FileOperation operation) {
  return {path.Shown, Guarded(operation, path, [&] { return m_layer.RealPath(path.Native); })};
}

bool Disk::IsSame(std::string_view left, std::string_view right) {
  const auto one = ResolveIfReady(left, FileOperation::Read);
  const auto other = ResolveIfReady(right, FileOperation::Read);
  return one && other ? IsSame(*one, *other) : EqualsIgnoringCase(left, right);
}

bool Disk::IsSame(const ResolvedPath& left, const ResolvedPath& right) {
  return Guarded(FileOperation::Read, left, [&] { return IsSameEntry(m_layer, left.Native, right.Native); });
}

bool Disk::LiesInside(std::string_view inner, std::string_view outer) {
  const auto place = ResolveIfReady(inner, FileOperation::Read);
  const auto other = ResolveIfReady(outer, FileOperation::Read);
  if (!place || !other) return false;
  return Guarded(FileOperation::Read, *place, [&] { return LiesBelow(m_layer, place->Native, other->Native); });
}

std::vector<std::string> Disk::NamesOf(const ResolvedPath& file, const ResolvedPath& directory) {
  std::vector<std::string> names;
  Guarded(FileOperation::List, directory, [&] {
    const auto wanted = m_layer.Identity(file.Native);
    if (!wanted || m_layer.Kind(directory.Native) != EntryKind::Directory) return;
    for (DirectoryEntry& entry : m_layer.List(directory.Native)) {
      if (entry.Kind != EntryKind::File || IsTemporary(entry.Name)) continue;
      const auto identity = m_layer.Identity(directory.Native / PathFromText(entry.Name));
      if (identity && IsSameFile(*identity, *wanted)) names.push_back(std::move(entry.Name));
    }
  });
  return names;
}

std::int64_t Disk::ChangedAt(std::string_view path) { return ChangedAt(Resolve(path, FileOperation::Read)); }

std::int64_t Disk::ChangedAt(const ResolvedPath& file) {
  return Guarded(FileOperation::Read, file,
                 [&] { return m_layer.Identity(file.Native).value_or(FileIdentity{}).Changed; });
}

std::uintmax_t Disk::LinkCount(const ResolvedPath& file) {
  return Guarded(FileOperation::Read, file,
                 [&] { return m_layer.Identity(file.Native).value_or(FileIdentity{}).Links; });
}

EntryKind Disk::Kind(const ResolvedPath& path, FileOperation operation) {
  return Guarded(operation, path, [&] { return m_layer.Kind(path.Native); });
}

bool Disk::FileExists(std::string_view path) {
  const auto file = ResolveIfReady(path, FileOperation::Read);
  return file && Kind(*file, FileOperation::Read) == EntryKind::File;
}

bool Disk::DirectoryExists(std::string_view path) {
  const auto directory = ResolveIfReady(path, FileOperation::List);
  return directory && Kind(*directory, FileOperation::List) == EntryKind::Directory;
}

bool Disk::IsDevice(std::string_view path) {
  const auto file = ResolveIfReady(path, FileOperation::Write);
  return file && Kind(*file, FileOperation::Write) == EntryKind::Device;
}

void Disk::Read(std::string_view path, std::string& content) { Read(Resolve(path, FileOperation::Read), content); }

void Disk::Read(const ResolvedPath& path, std::string& content) {
  Guarded(FileOperation::Read, path, [&] {
    try {
      m_layer.Read(path.Native, content, kMaxFileSize);
    } catch (const std::system_error& error) {
      RefusePipe(path, error.code());
      if (error.code() != std::errc::file_too_large) throw;
      throw FileError(FileOperation::Read, path.Shown, FileCause::EndOfData, "The file is larger than 64 MiB.");
    }
  });
}

SequentialFile Disk::OpenForRead(std::string_view path) {
  ResolvedPath file = Resolve(path, FileOperation::Read);
  return Guarded(FileOperation::Read, file, [&]() -> SequentialFile {
    try {
      auto open = m_layer.OpenInput(file.Native);
      return {m_layer, std::move(file), std::move(open)};
    } catch (const std::system_error& error) {
      RefusePipe(file, error.code());
      throw;
    }
  });
}

void Disk::ReplaceFile(const fs::path& target, std::string_view content, Durability durability) {
  const fs::path temporary = target.parent_path() / NewTemporaryName();
  try {
    const std::unique_ptr<OutputFile> file = m_layer.Create(temporary);
    file->Write(content);
    if (durability != Durability::Buffered) file->Flush();
    file->Close();
    KeepPermissions(m_layer, target, temporary);
    m_layer.Rename(temporary, target);
  } catch (const std::system_error&) {
    try {
      m_layer.Remove(temporary);
    } catch (const std::system_error&) {
      // The next save into this directory deletes it.
    }
    throw;
  }
  if (durability == Durability::OnDisk) m_layer.FlushDirectory(target.parent_path());
}

void Disk::Write(std::string_view path, std::string_view content, Durability durability) {
  Write(Resolve(path, FileOperation::Write), content, durability, Leftovers::Remove);
}

void Disk::Write(const ResolvedPath& path, std::string_view content, Durability durability, Leftovers leftovers) {
  Guarded(FileOperation::Write, path, [&] {
    const ResolvedPath target{path.Shown, m_layer.RealPath(path.Native)};
    RequireWritable(m_layer, FileOperation::Write, target, Devices::Refuse);  // the file would replace it
    if (leftovers == Leftovers::Remove) RemoveLeftoversIn(target.Native.parent_path());
    ReplaceFile(target.Native, content, durability);
  });
}

void Disk::FlushDirectory(const ResolvedPath& directory) {
  Guarded(FileOperation::Write, directory, [&] { m_layer.FlushDirectory(m_layer.RealPath(directory.Native)); });
}

void Disk::WriteInPlace(std::string_view path, std::string_view content) {
  const ResolvedPath target = Resolve(path, FileOperation::Write);
  Guarded(FileOperation::Write, target, [&] {
    RequireWritable(m_layer, FileOperation::Write, target, Devices::Allow);
    std::unique_ptr<OutputFile> file = m_layer.Overwrite(target.Native);
    try {
      file->Write(content);
      file->Close();
    } catch (const std::system_error&) {
      file.reset();
      try {
        m_layer.Truncate(target.Native, 0);
      } catch (const std::system_error&) {
        // The first fault is the one reported.
      }
      throw;
    }
  });
}

void Disk::RemoveLeftovers(std::string_view directory) {
  const ResolvedPath target = Resolve(directory, FileOperation::List);
  Guarded(FileOperation::List, target, [&] { RemoveLeftoversIn(target.Native); });
}

void Disk::RemoveLeftoversIn(const fs::path& directory) {
  for (const DirectoryEntry& entry : m_layer.List(directory)) {
    if (entry.Kind != EntryKind::File || !IsTemporary(entry.Name)) continue;
    try {
      m_layer.RemoveUnlocked(directory / PathFromText(entry.Name));
    } catch (const std::system_error&) {
      // Perhaps another user's. It does not stop a save.
    }
  }
}

AppendFile Disk::OpenForAppend(std::string_view path) { return {m_layer, Resolve(path, FileOperation::Append)}; }

void Disk::Copy(std::string_view from, std::string_view to) {
  std::string content;
  ReadForCopy(Resolve(from, FileOperation::Copy), content);
  Write(to, content);
}

void Disk::Copy(const ResolvedPath& from, const ResolvedPath& to) {
  std::string content;
  ReadForCopy(from, content);
  Write(to, content, Durability::OnDisk, Leftovers::Keep);
}

void Disk::ReadForCopy(const ResolvedPath& from, std::string& content) {
  Guarded(FileOperation::Copy, from, [&] { m_layer.Read(from.Native, content, UINTMAX_MAX); });
}

void Disk::Delete(std::string_view path) {
  const ResolvedPath target = Resolve(path, FileOperation::Delete);
  Guarded(FileOperation::Delete, target, [&] { m_layer.Remove(target.Native); });
}

// Files that are flushed to the disk below it would be lost with the directory.
void Disk::CreateFlushed(const fs::path& directory) {
  m_layer.CreateDirectory(directory);
  try {
    m_layer.FlushDirectory(directory.parent_path());
  } catch (const std::system_error&) {
    // The directory is there all the same.
  }
}

void Disk::CreateDirectory(std::string_view path) {
  const ResolvedPath target = Resolve(path, FileOperation::CreateDirectory);
  Guarded(FileOperation::CreateDirectory, target, [&] { CreateFlushed(target.Native); });
}

void Disk::CreateDirectories(std::string_view path) {
  const ResolvedPath target = Resolve(path, FileOperation::CreateDirectory);
  Guarded(FileOperation::CreateDirectory, target, [&] {
    fs::path level = target.Native.root_path();
    EntryKind last = EntryKind::Directory;
    for (const fs::path& part : target.Native.relative_path()) {
      level /= part;
      last = m_layer.Kind(level);
      if (last == EntryKind::Missing) CreateFlushed(level);
    }
    if (last != EntryKind::Missing && last != EntryKind::Directory)
      throw std::system_error(std::make_error_code(std::errc::file_exists));
  });
}

void Disk::RemoveDirectory(std::string_view path) {
  const ResolvedPath target = Resolve(path, FileOperation::RemoveDirectory);
  Guarded(FileOperation::RemoveDirectory, target, [&] {
    RemoveLeftoversIn(target.Native);
    m_layer.Remove(target.Native);
  });
}

bool Disk::IsEmptyDirectory(std::string_view path) {
  const ResolvedPath target = Resolve(path, FileOperation::List);
  return Guarded(FileOperation::List, target, [&] {
    if (m_layer.Kind(target.Native) != EntryKind::Directory) return false;
    const auto entries = m_layer.List(target.Native);
    return std::all_of(entries.begin(), entries.end(), [](const DirectoryEntry& e) { return IsTemporary(e.Name); });
  });
}

std::vector<std::string> Disk::ListFiles(std::string_view directory, std::string_view prefix, std::string_view suffix) {
  return ListEntries(EntryChoice::Files, directory, prefix, suffix);
}

std::vector<std::string> Disk::ListDanglingLinks(std::string_view directory, std::string_view prefix,
                                                 std::string_view suffix) {
  return ListEntries(EntryChoice::DanglingLinks, directory, prefix, suffix);
}

std::vector<std::string> Disk::ListEntries(EntryChoice choice, std::string_view directory, std::string_view prefix,
                                           std::string_view suffix) {
  if (!DirectoryExists(directory)) return {};
  const ResolvedPath target = Resolve(directory, FileOperation::List);
  return Guarded(FileOperation::List, target,
                 [&] { return NamesOfFiles(m_layer.List(target.Native), choice, prefix, suffix); });
}

std::vector<std::string> Disk::ListDirectories(std::string_view directory) {
  const ResolvedPath target = Resolve(directory, FileOperation::List);
  return Guarded(FileOperation::List, target, [&] {
    std::vector<std::string> names;
    for (DirectoryEntry& entry : m_layer.List(target.Native)) {
      if (entry.Kind != EntryKind::Directory || IsHidden(entry.Name) || !FitsStoredPath(entry.Name)) continue;
      if (MayBeEntered(m_layer, target.Native / PathFromText(entry.Name))) names.push_back(std::move(entry.Name));
    }
    if (!m_layer.CanEnter(target.Native)) throw std::system_error(std::make_error_code(std::errc::permission_denied));
    return InListingOrder(std::move(names));
  });
}

std::optional<std::string> ReadIfThere(Disk& disk, const ResolvedPath& path) {
  if (disk.Kind(path, FileOperation::Read) == EntryKind::Missing) return std::nullopt;
  std::optional<std::string> content(std::in_place);
  disk.Read(path, *content);
  return content;
}

void RequireDirectory(Disk& disk, std::string_view directory, FileOperation operation, std::string_view path) {
  if (disk.DirectoryExists(directory)) return;
  throw FileError(operation, std::string(path.empty() ? directory : path), FileCause::PathNotFound);
}

}  // namespace zova
