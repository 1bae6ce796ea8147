// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>
#include <unordered_set>
#include <vector>

#include "platform/desktop/MessageBoxes.h"
#include "platform/files/Disk.h"
#include "subjects/SubjectRecord.h"

namespace zova {

/// One of the two files of a save.
struct SubjectCopy {
  std::string Destination;  ///< the primary or the backup directory
  std::string Directory;    ///< below it, the one of the place
  std::string Path;
  SubjectPlace Place = SubjectPlace::Complete;
};

/// The primary directory's copy, then the backup directory's if there is one.
std::vector<SubjectCopy> CopiesOf(const SubjectRecord& record, const ProjectParameters& project);

/// The file that a copy replaces, or where a new one is made. A complete subject replaces one whose name differs in
/// case alone, other entries only their own subject's (SubjectListing). Throws FileError.
ResolvedPath TargetOf(Disk& disk, const ProjectParameters& project, const SubjectCopy& copy);

/// The save of subjects, which asks nothing but Retry: both copies are written, each atomically; then a completed
/// subject's unfinished copies are deleted, and what it was settled from when it was entered anew. Directories are
/// looked up and listed once for all subjects of a store, so that saving many takes time linear in their number. They
/// are all first entries, or all second ones.
class SubjectStore {
 public:
  /// `project` and `disk` must outlive the store. With Durability::NameLater the files' names are safe after
  /// FlushNames, and before anything is deleted.
  SubjectStore(const ProjectParameters& project, Disk& disk, Disk::Durability durability = Disk::Durability::OnDisk)
      : m_project(project), m_disk(disk), m_durability(durability) {}

  /// False when the user cancels after a fault; copies already written stay and are noted in the record.
  bool Save(SubjectRecord& record, MessageBoxes& boxes);
  /// False when the user cancels after a fault.
  bool FlushNames(MessageBoxes& boxes);
  /// The last save left the directory of unfinished subjects empty, and deleted it.
  [[nodiscard]] bool HasEmptiedUnfinished() const noexcept { return m_hasEmptied; }

 private:
  struct OpenDirectory {
    std::string Path;
    ResolvedPath Resolved;
    std::unordered_set<std::string> Names;  // upper-cased
  };

  bool WriteCopies(SubjectRecord& record, MessageBoxes& boxes);
  bool RemoveUnfinishedCopies(const SubjectRecord& record, MessageBoxes& boxes);
  bool RemoveSettlement(const SubjectRecord& record, SubjectPlace place, MessageBoxes& boxes);
  void Write(const SubjectCopy& copy, const std::string& content);
  OpenDirectory& Open(const SubjectCopy& copy);

  const ProjectParameters& m_project;
  Disk& m_disk;
  Disk::Durability m_durability;
  std::vector<OpenDirectory> m_directories;                  // that were written to
  std::optional<std::vector<std::string>> m_unfinished;      // in the primary directory
  std::optional<std::unordered_set<std::string>> m_settled;  // the first entries of settled subjects, upper-cased
  bool m_hasEmptied = false;
};

}  // namespace zova
