// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "platform/desktop/MessageBoxes.h"
#include "platform/files/Disk.h"

namespace zova {

/// The content of a drive list and a directory list: the drives, the parents of the open directory, and its
/// subdirectories that can be entered, without hidden ones. Paths are drive-letter paths; a drive's root is "C:\".
class DirectoryBrowser {
 public:
  struct Entry {
    std::string Name;  ///< "C:\" for the root
    std::string Path;
    int Depth = 0;  ///< 0 for the root; shown as indentation
  };

  /// `notReadyText` is the warning for a drive or directory that cannot be entered. Starts as after Reset.
  DirectoryBrowser(Disk& disk, MessageBoxes& boxes, std::string notReadyText);

  /// Letters of the drives whose root can be entered.
  [[nodiscard]] const std::vector<char>& Drives() const noexcept { return m_drives; }
  [[nodiscard]] char Drive() const noexcept { return m_path.front(); }
  /// The open directory.
  [[nodiscard]] const std::string& Path() const noexcept { return m_path; }
  [[nodiscard]] const std::vector<Entry>& Entries() const noexcept { return m_entries; }
  /// The open directory's index in Entries.
  [[nodiscard]] std::size_t OpenEntry() const noexcept { return m_openEntry; }

  /// Searches for drives again and opens the root of "C:", or of the first drive. Shows no message.
  void Reset();
  /// Opens `path`, in the disk's spelling. A native path and trailing backslashes are allowed. False, with no message
  /// and no change, when it cannot be entered.
  bool TryOpen(const std::string& path);
  /// Like TryOpen, on the user's command: a failure shows a message and reads the list again (an open directory that is
  /// gone is replaced by its nearest existing parent). A drive opens at its root.
  bool SelectDrive(char letter);
  bool Open(std::size_t entry);

 private:
  void FindDrives();
  void ReadAgain();
  bool OpenOrWarn(const std::string& path);

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
