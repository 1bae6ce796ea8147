// SPDX-License-Identifier: GPL-3.0-or-later

#include "subjects/SubjectFiles.h"

#include <algorithm>

#include "platform/desktop/FileErrorBoxes.h"
#include "project/DirectoryRules.h"
#include "subjects/SubjectFile.h"
#include "text/Encoding.h"

namespace zova {

namespace {

// For `Sdata` and `Unfinished`; the primary and the backup directory are never created.
void EnsureDirectory(Disk& disk, const std::string& directory) {
  if (!disk.DirectoryExists(directory)) disk.CreateDirectory(directory);
}

// One of the two files of a save.
struct Copy {
  std::string Destination;  ///< the primary or the backup directory
  std::string Directory;    ///< below it
  std::string Path;
};

std::vector<Copy> CopiesOf(const SubjectRecord& record, const ProjectParameters& project) {
  std::vector<Copy> copies;
  for (const std::string& destination : {project.PrimaryDir, project.BackupDir}) {
    if (!copies.empty() && IsNoDirectory(destination)) continue;
    const std::string directory =
        record.UnfinishedNote.empty() ? SubjectDirectory(destination) : UnfinishedDirectory(destination);
    copies.push_back({destination, directory, JoinPath(directory, SubjectFileName(project, record.SubjectId))});
  }
  return copies;
}

void WriteCopy(Disk& disk, const Copy& copy, const std::string& content) {
  RequireDirectory(disk, copy.Destination, FileOperation::Write, copy.Path);
  EnsureDirectory(disk, SubjectDirectory(copy.Destination));
  EnsureDirectory(disk, copy.Directory);
  disk.Write(copy.Path, content);
}

// What a save would replace; no content when nothing would be lost.
struct Replaced {
  std::string Name;  // as spelt on the disk
  std::string Content;
  bool WasKnown = false;  // it has changed since
};

Replaced FindReplaced(Disk& disk, const std::string& path, const std::string& content,
                      const std::vector<KnownFile>& known) {
  const ResolvedPath file = disk.Resolve(path, FileOperation::Write);
  Replaced replaced{.Name = NameOf(file), .Content = {}};
  if (disk.Kind(file, FileOperation::Write) != EntryKind::File) return replaced;
  disk.Read(file, replaced.Content);
  const auto isSeen = [&](const KnownFile& seen) { return seen.Content == replaced.Content; };
  if (replaced.Content == content || std::any_of(known.begin(), known.end(), isSeen)) return {};
  replaced.WasKnown =
      std::any_of(known.begin(), known.end(), [&](const KnownFile& seen) { return disk.IsSame(seen.Path, path); });
  return replaced;
}

// All questions come before the first file is written, so that No leaves everything as it is. Also false when a file
// cannot be read and the user cancels.
bool MayReplace(const std::vector<Copy>& copies, const std::string& content, std::vector<KnownFile> known,
                const Platform& platform) {
  for (const Copy& copy : copies) {
    Replaced replaced;
    if (!WithRetry(platform.Boxes, [&] { replaced = FindReplaced(platform.Files, copy.Path, content, known); })) {
      return false;
    }
    if (replaced.Content.empty()) continue;
    const BoxAnswer answer = platform.Boxes.Show(
        {.Text = replaced.WasKnown
                     ? "The data for this subject have changed on the disk since they were read.  Do you wish to "
                       "replace them?"
                     : "The file '" + replaced.Name +
                           "' already holds another entry of this subject.  Do you wish to replace it?",
         .Icon = BoxIcon::Exclamation,
         .Buttons = BoxButtons::YesNo,
         .Default = BoxAnswer::No,
         .Title = "Warning",
         .Details = "'" + copy.Path + "'"});
    if (answer != BoxAnswer::Yes) return false;
    known.push_back({copy.Path, std::move(replaced.Content)});  // the backup mostly holds the same
  }
  return true;
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

bool WriteCopies(SubjectRecord& record, const ProjectParameters& project, const Platform& platform) {
  const std::string content = FormatSubject(record, project);
  const std::vector<Copy> copies = CopiesOf(record, project);
  if (!MayReplace(copies, content, record.KnownFiles, platform)) return false;
  for (const Copy& copy : copies) {
    if (!WithRetry(platform.Boxes, [&] { WriteCopy(platform.Files, copy, content); })) return false;
    NoteKnownFile(record, copy.Path, content);
  }
  // Not earlier: what the primary held is also what the backup holds.
  std::erase_if(record.KnownFiles, [&](const KnownFile& file) {
    const auto isAt = [&](const Copy& copy) { return copy.Path == file.Path; };
    return file.Content != content && std::any_of(copies.begin(), copies.end(), isAt);
  });
  return true;
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
    if (!WriteCopies(record, project, platform)) return outcome;
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
