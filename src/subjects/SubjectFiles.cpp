// SPDX-License-Identifier: GPL-3.0-or-later

#include "subjects/SubjectFiles.h"

#include <algorithm>

#include "platform/desktop/FileErrorBoxes.h"
#include "project/DirectoryRules.h"
#include "subjects/SubjectFile.h"
#include "subjects/SubjectStore.h"
#include "text/Encoding.h"

namespace zova {

namespace {

// What a save would replace; no content when nothing would be lost.
struct Replaced {
  std::string Name;  // as spelt on the disk
  std::string Content;
  bool WasKnown = false;  // it has changed since
};

Replaced FindReplaced(Disk& disk, const ProjectParameters& project, const SubjectCopy& copy, const std::string& content,
                      const std::vector<KnownFile>& known) {
  const ResolvedPath file = TargetOf(disk, project, copy);
  Replaced replaced{.Name = NameOf(file), .Content = {}};
  if (disk.Kind(file, FileOperation::Write) != EntryKind::File) return replaced;
  disk.Read(file, replaced.Content);
  const auto isSeen = [&](const KnownFile& seen) { return seen.Content == replaced.Content; };
  if (replaced.Content == content || std::any_of(known.begin(), known.end(), isSeen)) return {};
  replaced.WasKnown =
      std::any_of(known.begin(), known.end(), [&](const KnownFile& seen) { return disk.IsSame(seen.Path, copy.Path); });
  return replaced;
}

// All questions come before the first file is written, so that No leaves everything as it is. Also false when a file
// cannot be read and the user cancels.
bool MayReplace(const ProjectParameters& project, const std::vector<SubjectCopy>& copies, const std::string& content,
                std::vector<KnownFile> known, const Platform& platform) {
  for (const SubjectCopy& copy : copies) {
    Replaced replaced;
    const auto find = [&] { replaced = FindReplaced(platform.Files, project, copy, content, known); };
    if (!WithRetry(platform.Boxes, find)) return false;
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
    const std::string content = FormatSubject(record, project);
    if (!MayReplace(project, CopiesOf(record, project), content, record.KnownFiles, platform)) return outcome;
    SubjectStore store(project, platform.Files);
    const bool isStored = store.Save(record, platform.Boxes);
    outcome.UnfinishedEmptied = store.HasEmptiedUnfinished();
    if (!isStored) return outcome;
    // A failure is reported, but the subject is saved.
    WithRetry(platform.Boxes, [&] { DeleteAutosaveFile(platform.Files, paramDir, record.Which); });
  }
  outcome.Saved = true;
  record.HasUnsavedChanges = false;
  Inform(platform.Boxes, complete ? "Completed subject saved." : "Incomplete subject saved.");
  if (complete) ResetLists(record, project);
  return outcome;
}

}  // namespace zova
