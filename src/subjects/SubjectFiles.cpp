// SPDX-License-Identifier: GPL-3.0-or-later

#include "subjects/SubjectFiles.h"

#include <algorithm>

#include "platform/desktop/FileErrorBoxes.h"
#include "project/DirectoryRules.h"
#include "subjects/SubjectFile.h"
#include "text/Encoding.h"

namespace zova {

namespace {

// Creates `Sdata` or `Unfinished` if missing; a missing primary or backup directory is an error, since its disk may be
// absent.
void EnsureDirectory(Disk& disk, const std::string& directory) {
  if (!disk.DirectoryExists(directory)) disk.CreateDirectory(directory);
}

void WriteCopy(Disk& disk, const std::string& destination, const std::string& fileName, const std::string& content,
               bool unfinished) {
  const std::string directory = unfinished ? UnfinishedDirectory(destination) : SubjectDirectory(destination);
  const std::string path = JoinPath(directory, fileName);
  if (!disk.DirectoryExists(destination)) throw FileError(FileOperation::Write, path, FileCause::PathNotFound);
  EnsureDirectory(disk, SubjectDirectory(destination));
  if (unfinished) EnsureDirectory(disk, directory);
  disk.Write(path, content);
}

// Case-sensitive on every file system: "a1" and "A1" are two subjects.
void DeleteExactly(Disk& disk, const ProjectParameters& project, const std::string& directory,
                   const std::string& fileName) {
  const std::vector<std::string> names = ListSubjectFiles(disk, project, directory);
  if (std::find(names.begin(), names.end(), fileName) != names.end()) disk.Delete(JoinPath(directory, fileName));
}

void RemoveIfEmpty(Disk& disk, const std::string& directory) {
  if (disk.IsEmptyDirectory(directory)) disk.RemoveDirectory(directory);
}

// Each step can be retried separately. The primary directory comes last, since it shows what is left to do.
bool RemoveUnfinishedCopies(Disk& disk, const ProjectParameters& project, const std::string& fileName,
                            MessageBoxes& boxes, bool& emptied) {
  const std::string primary = UnfinishedDirectory(project.PrimaryDir);
  const std::string backup = UnfinishedDirectory(project.BackupDir);
  const bool hasBackup = !IsNoDirectory(project.BackupDir);
  std::vector<std::string> listed;
  if (!WithRetry(boxes, [&] { listed = ListSubjectFiles(disk, project, primary); })) return false;
  if (listed.empty()) return true;
  const bool hasCopy = std::find(listed.begin(), listed.end(), fileName) != listed.end();
  if (hasCopy && hasBackup && !WithRetry(boxes, [&] { DeleteExactly(disk, project, backup, fileName); })) return false;
  if (hasCopy && !WithRetry(boxes, [&] { DeleteExactly(disk, project, primary, fileName); })) return false;
  if (!WithRetry(boxes, [&] { emptied = disk.IsEmptyDirectory(primary); })) return false;
  if (!emptied) return true;
  if (hasBackup && !WithRetry(boxes, [&] { RemoveIfEmpty(disk, backup); })) return false;
  return WithRetry(boxes, [&] { RemoveIfEmpty(disk, primary); });
}

bool WriteCopies(const SubjectRecord& record, const ProjectParameters& project, Disk& disk, MessageBoxes& boxes) {
  const std::string content = FormatSubject(record, project);
  const std::string fileName = SubjectFileName(project, record.SubjectId);
  const bool unfinished = !record.UnfinishedNote.empty();
  const auto write = [&](const std::string& destination) {
    return WithRetry(boxes, [&] { WriteCopy(disk, destination, fileName, content, unfinished); });
  };
  return write(project.PrimaryDir) && (IsNoDirectory(project.BackupDir) || write(project.BackupDir));
}

}  // namespace

bool IsSubjectId(std::string_view text) {
  return text.find_first_not_of(' ') != std::string_view::npos && CharacterCount(text) <= kMaxSubjectIdLength &&
         IsFileNamePart(text) && IsValidUtf8(text);
}

SaveOutcome SaveSubject(SubjectRecord& record, const ProjectParameters& project, const std::string& paramDir,
                        const Platform& platform) {
  SaveOutcome outcome;
  const bool complete = record.UnfinishedNote.empty();
  {
    const BusyPointer busy(platform.Pointer);
    if (!WriteCopies(record, project, platform.Files, platform.Boxes)) return outcome;
    // Not earlier: until both complete copies exist, the unfinished ones are the only ones.
    if (complete && !RemoveUnfinishedCopies(platform.Files, project, SubjectFileName(project, record.SubjectId),
                                            platform.Boxes, outcome.UnfinishedEmptied)) {
      return outcome;
    }
    // A failure is reported, but the subject is saved.
    WithRetry(platform.Boxes, [&] { DeleteAutosaveFile(platform.Files, paramDir); });
  }
  outcome.Saved = true;
  record.HasUnsavedChanges = false;
  Inform(platform.Boxes, complete ? "Completed subject saved." : "Incomplete subject saved.");
  if (complete) ResetLists(record, project);
  return outcome;
}

}  // namespace zova
