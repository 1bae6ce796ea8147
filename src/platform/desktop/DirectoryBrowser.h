// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "platform/desktop/MessageBoxes.h"
#include "platform/files/Disk.h"

namespace zova {

/// What a drive list and a directory list show: the drives, the directories on the way to the open one, and those in
/// it, only such as can be entered, hidden ones aside. It speaks drive-letter paths; a drive's root is "C:\".
class DirectoryBrowser {
 public:
  struct Entry {
    std::string Name;  ///< "C:\" for the root, else the directory's own name
    std::string Path;
    int Depth = 0;  ///< 0 for the root; shown as indentation
  };

  /// `notReadyText` is said of a drive or directory that cannot be entered (exclamation).
  /// It starts as after Reset.
  DirectoryBrowser(Disk& disk, MessageBoxes& boxes, std::string notReadyText);

  /// Letters of the drives whose root can be entered now.
  [[nodiscard]] const std::vector<char>& Drives() const noexcept { return m_drives; }
  [[nodiscard]] char Drive() const noexcept { return m_path.front(); }
  /// The open directory.
  [[nodiscard]] const std::string& Path() const noexcept { return m_path; }
  [[nodiscard]] const std::vector<Entry>& Entries() const noexcept { return m_entries; }
  /// Index in Entries of the open directory.
  [[nodiscard]] std::size_t OpenEntry() const noexcept { return m_openEntry; }

  /// To the root of "C:" (or of the first drive there is), with the drives looked for anew. Silent.
  void Reset();
  /// Silent; false, and all stays, when `path` cannot be entered. It may be a native one, or end with backslashes; it
  /// is shown in the disk's spelling.
  bool TryOpen(const std::string& path);
  /// The same on the user's command: told when it fails, and the list is read anew (a directory that is gone closes,
  /// up to the nearest one that is left). A drive opens at its root.
  bool SelectDrive(char letter);
  bool Open(std::size_t entry);

 private:
  void FindDrives();
  void ReadAnew();
  bool OpenOrTell(const std::string& path);

  Disk& m_disk;
  MessageBoxes& m_boxes;
  std::string m_notReadyText;
  std::string m_fault;  // why the last directory could not be opened
  std::vector<char> m_drives;
  std::string m_path = "C:\\";
  std::vector<Entry> m_entries;
  std::size_t m_openEntry = 0;
};

}  // namespace zova
