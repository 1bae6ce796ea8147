// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/desktop/DirectoryBrowser.h"

#include <algorithm>
#include <optional>
#include <system_error>
#include <utility>

#include "platform/desktop/FileErrorBoxes.h"
#include "platform/files/SystemText.h"

namespace zova {

namespace {

char UpperLetter(char c) noexcept { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; }

std::string RootOf(char letter) { return {letter, ':', '\\'}; }

bool CanEnter(Disk& disk, const std::string& path) {
  try {
    const auto native = disk.Drives().ToNative(path);
    return native && disk.Layer().CanEnter(*native);
  } catch (const std::system_error&) {
    return false;
  }
}

using Components = std::vector<std::string>;

std::string Joined(char letter, const Components& parts) {
  std::string path = RootOf(letter);
  for (const std::string& part : parts) path = JoinPath(path, part);
  return path;
}

// Replaces the names by their spelling on the disk. The lookup keeps the number of components.
void UseDiskSpelling(Disk& disk, char letter, Components& parts) {
  ResolvedPath path = disk.Resolve(Joined(letter, parts), FileOperation::List);
  for (std::size_t left = parts.size(); left > 0; --left) {
    parts[left - 1] = NameOf(path);
    path = DirectoryOf(path);
  }
}

}  // namespace

DirectoryBrowser::DirectoryBrowser(Disk& disk, MessageBoxes& boxes, std::string notReadyText)
    : m_disk(disk), m_boxes(boxes), m_notReadyText(std::move(notReadyText)) {
  Reset();
}

void DirectoryBrowser::FindDrives() {
  m_drives.clear();
  for (char letter = 'A'; letter <= 'Z'; ++letter) {
    if (CanEnter(m_disk, RootOf(letter))) m_drives.push_back(letter);
  }
}

void DirectoryBrowser::Reset() {
  FindDrives();
  if (TryOpen(RootOf('C'))) return;
  if (std::any_of(m_drives.begin(), m_drives.end(), [this](char letter) { return TryOpen(RootOf(letter)); })) return;
  m_path = RootOf('C');
  m_entries = {{m_path, m_path, 0}};
  m_openEntry = 0;
}

bool DirectoryBrowser::TryOpen(const std::string& path) {
  m_fault.clear();
  try {
    const std::string drivePath = m_disk.Drives().ToDrivePath(path);
    if (!HasDrive(drivePath)) return false;
    const char letter = UpperLetter(drivePath.front());
    const std::vector<std::string_view> names = ResolvedComponents(drivePath);
    Components parts(names.begin(), names.end());
    UseDiskSpelling(m_disk, letter, parts);
    const Components children = m_disk.ListDirectories(Joined(letter, parts));

    std::vector<Entry> entries = {{RootOf(letter), RootOf(letter), 0}};
    for (const std::string& part : parts) {
      entries.push_back({part, JoinPath(entries.back().Path, part), entries.back().Depth + 1});
    }
    m_openEntry = parts.size();
    m_path = entries.back().Path;
    const int depth = entries.back().Depth + 1;
    for (const std::string& child : children) entries.push_back({child, JoinPath(m_path, child), depth});
    m_entries = std::move(entries);
    return true;
  } catch (const FileError& error) {
    m_fault = FaultText(error);
  } catch (const std::exception& error) {  // what a name that the platform cannot spell throws
    m_fault = SystemText(error);
  }
  return false;
}

void DirectoryBrowser::ReadAgain() {
  FindDrives();
  // The open directory may be gone: falls back to its nearest existing parent.
  for (std::size_t entry = m_openEntry + 1; entry > 0; --entry) {
    if (TryOpen(std::string(m_entries[entry - 1].Path))) return;
  }
  Reset();
}

bool DirectoryBrowser::OpenOrWarn(const std::string& path) {
  if (TryOpen(path)) return true;
  Warn(m_boxes, m_notReadyText, m_fault);
  ReadAgain();
  return false;
}

bool DirectoryBrowser::SelectDrive(char letter) { return OpenOrWarn(RootOf(letter)); }

bool DirectoryBrowser::Open(std::size_t entry) {
  return entry < m_entries.size() && OpenOrWarn(std::string(m_entries[entry].Path));
}

}  // namespace zova
