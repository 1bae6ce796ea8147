// SPDX-License-Identifier: GPL-3.0-or-later

#include "subjects/SubjectStore.h"

#include <algorithm>
#include <utility>

#include "platform/desktop/FileErrorBoxes.h"
#include "project/ProjectLayout.h"
#include "subjects/SubjectFile.h"
#include "subjects/SubjectListing.h"
#include "text/Encoding.h"

namespace zova {

namespace {

// For `Sdata` and `Unfinished`; the primary and the backup directory are never created.
void EnsureDirectory(Disk& disk, const std::string& directory) {
  if (!disk.DirectoryExists(directory)) disk.CreateDirectory(directory);
}

// By its own spelling on every file system: where "a1" and "A1" stand side by side, they are two subjects.
void DeleteExactly(Disk& disk, const ProjectParameters& project, const std::string& directory,
                   const std::string& fileName) {
  const std::vector<std::string> names = ListSubjectFiles(disk, project, directory);
  if (std::find(names.begin(), names.end(), fileName) != names.end()) disk.Delete(JoinPath(directory, fileName));
}

void RemoveIfEmpty(Disk& disk, const std::string& directory) {
  if (disk.IsEmptyDirectory(directory)) disk.RemoveDirectory(directory);
}

}  // namespace

std::vector<SubjectCopy> CopiesOf(const SubjectRecord& record, const ProjectParameters& project) {
  std::vector<SubjectCopy> copies;
  for (const std::string& destination : {project.PrimaryDir, project.BackupDir}) {
    if (!copies.empty() && IsNoDirectory(destination)) continue;
    const SubjectPlace place =
        record.UnfinishedNote.empty() ? CompletePlace(record.Which) : UnfinishedPlace(record.Which);
    const std::string directory = PlaceDirectory(destination, place);
    copies.push_back({destination, directory, JoinPath(directory, SubjectFileName(project, record.SubjectId)), place});
  }
  return copies;
}

ResolvedPath TargetOf(Disk& disk, const ProjectParameters& project, const SubjectCopy& copy) {
  if (copy.Place == SubjectPlace::Complete) return disk.Resolve(copy.Path, FileOperation::Write);
  const std::string name(LastPathComponent(copy.Path));
  return FindSubjectFile(disk, project, copy.Destination, copy.Place, name, FileOperation::Write);
}

SubjectStore::OpenDirectory& SubjectStore::Open(const SubjectCopy& copy) {
  const auto known = std::find_if(m_directories.begin(), m_directories.end(),
                                  [&](const OpenDirectory& directory) { return directory.Path == copy.Directory; });
  if (known != m_directories.end()) return *known;
  RequireDirectory(m_disk, copy.Destination, FileOperation::Write, copy.Path);
  EnsureDirectory(m_disk, SubjectDirectory(copy.Destination));
  if (IsOfSecond(copy.Place)) EnsureDirectory(m_disk, PlaceDirectory(copy.Destination, SubjectPlace::Second));
  EnsureDirectory(m_disk, copy.Directory);
  m_disk.RemoveLeftovers(copy.Directory);
  OpenDirectory directory{copy.Directory, m_disk.Resolve(copy.Directory, FileOperation::Write), {}};
  for (const std::string& name : m_disk.ListFiles(copy.Directory, "", "")) directory.Names.insert(UpperCase(name));
  return m_directories.emplace_back(std::move(directory));
}

// A name that is there, in whatever case, is looked up as for any file; a new one needs no listing.
void SubjectStore::Write(const SubjectCopy& copy, const std::string& content) {
  OpenDirectory& directory = Open(copy);
  const std::string name(LastPathComponent(copy.Path));
  const bool isThere = directory.Names.contains(UpperCase(name));
  const ResolvedPath path = isThere ? TargetOf(m_disk, m_project, copy) : Below(directory.Resolved, name);
  m_disk.WriteOneOfMany({copy.Path, path.Native}, content, m_durability);
}

bool SubjectStore::FlushNames(MessageBoxes& boxes) {
  if (m_durability != Disk::Durability::NameLater) return true;
  return std::all_of(m_directories.begin(), m_directories.end(), [&](const OpenDirectory& directory) {
    return WithRetry(boxes, [&] { m_disk.FlushDirectory(directory.Resolved); });
  });
}

// Each step can be retried separately. The primary directory comes last, since it shows what is left to do.
bool SubjectStore::RemoveUnfinishedCopies(const SubjectRecord& record, MessageBoxes& boxes) {
  std::string fileName = SubjectFileName(m_project, record.SubjectId);
  const std::string primary = PlaceDirectory(m_project.PrimaryDir, UnfinishedPlace(record.Which));
  const std::string backup = PlaceDirectory(m_project.BackupDir, UnfinishedPlace(record.Which));
  const bool hasBackup = !IsNoDirectory(m_project.BackupDir);
  const auto list = [&] { m_unfinished = ListSubjectFiles(m_disk, m_project, primary); };
  if (!m_unfinished && !WithRetry(boxes, list)) return false;
  if (m_unfinished->empty()) return true;
  const auto findName = [&] {
    fileName = NameOf(FindSubjectFile(m_disk, m_project, m_project.PrimaryDir, UnfinishedPlace(record.Which), fileName,
                                      FileOperation::Delete));
  };
  if (record.Which == WhichEntry::Second && !WithRetry(boxes, findName)) return false;
  const auto listed = std::find(m_unfinished->begin(), m_unfinished->end(), fileName);
  const bool hasCopy = listed != m_unfinished->end();
  if (hasCopy && !FlushNames(boxes)) return false;
  if (hasCopy && hasBackup && !WithRetry(boxes, [&] { DeleteExactly(m_disk, m_project, backup, fileName); })) {
    return false;
  }
  if (hasCopy && !WithRetry(boxes, [&] { DeleteExactly(m_disk, m_project, primary, fileName); })) return false;
  if (hasCopy) m_unfinished->erase(listed);
  if (!WithRetry(boxes, [&] { m_hasEmptied = m_disk.IsEmptyDirectory(primary); })) return false;
  if (!m_hasEmptied) return true;
  if (hasBackup && !WithRetry(boxes, [&] { RemoveIfEmpty(m_disk, backup); })) return false;
  return WithRetry(boxes, [&] { RemoveIfEmpty(m_disk, primary); });
}

// The primary directory comes last, since it shows what is left to do.
bool SubjectStore::RemoveSettlement(const SubjectRecord& record, SubjectPlace place, MessageBoxes& boxes) {
  const auto list = [&] {
    m_settled.emplace();
    for (const std::string& name :
         ListSubjectFiles(m_disk, m_project, PlaceDirectory(m_project.PrimaryDir, SubjectPlace::First))) {
      m_settled->insert(UpperCase(name));
    }
  };
  if (!m_settled && !WithRetry(boxes, list)) return false;
  const std::string fileName = SubjectFileName(m_project, record.SubjectId);
  if (!m_settled->contains(UpperCase(fileName))) return true;
  if (!FlushNames(boxes)) return false;
  for (const std::string& destination : {m_project.BackupDir, m_project.PrimaryDir}) {
    if (IsNoDirectory(destination)) continue;
    const auto remove = [&] {
      const std::string path = JoinPath(SubjectDirectory(m_project.PrimaryDir), fileName);
      const std::string subject = NameOf(m_disk.Resolve(path, FileOperation::Delete));  // as the save finds it, too
      const ResolvedPath file = FindSubjectFile(m_disk, m_project, destination, place, subject, FileOperation::Delete);
      if (m_disk.Kind(file, FileOperation::Delete) == EntryKind::File) {
        m_disk.Delete(JoinPath(PlaceDirectory(destination, place), NameOf(file)));
      }
    };
    if (!WithRetry(boxes, remove)) return false;
  }
  return true;
}

bool SubjectStore::WriteCopies(SubjectRecord& record, MessageBoxes& boxes) {
  const std::string content = FormatSubject(record, m_project);
  const std::vector<SubjectCopy> copies = CopiesOf(record, m_project);
  for (const SubjectCopy& copy : copies) {
    if (!WithRetry(boxes, [&] { Write(copy, content); })) return false;
    NoteKnownFile(record, copy.Path, content);
  }
  // Not earlier: what the primary held is also what the backup holds.
  std::erase_if(record.KnownFiles, [&](const KnownFile& file) {
    const auto isAt = [&](const SubjectCopy& copy) { return copy.Path == file.Path; };
    return file.Content != content && std::any_of(copies.begin(), copies.end(), isAt);
  });
  return true;
}

bool SubjectStore::Save(SubjectRecord& record, MessageBoxes& boxes) {
  m_hasEmptied = false;
  const bool isComplete = record.UnfinishedNote.empty();
  const bool isAnew = isComplete && record.Which == WhichEntry::First && !record.IsCorrection;
  // Earlier: a subject that was settled must not seem so with other data. The entry as it was typed goes last.
  if (isAnew && !RemoveSettlement(record, SubjectPlace::Settled, boxes)) return false;
  if (!WriteCopies(record, boxes)) return false;
  // Not earlier: until both complete copies exist, the unfinished ones are the only ones.
  if (!isComplete) return true;
  return (!isAnew || RemoveSettlement(record, SubjectPlace::First, boxes)) && RemoveUnfinishedCopies(record, boxes);
}

}  // namespace zova
