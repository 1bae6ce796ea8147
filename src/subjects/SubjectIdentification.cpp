// SPDX-License-Identifier: GPL-3.0-or-later

#include "subjects/SubjectIdentification.h"

#include <algorithm>
#include <array>

#include "platform/desktop/FileErrorBoxes.h"
#include "project/ProjectLayout.h"
#include "subjects/SubjectFile.h"
#include "subjects/SubjectFiles.h"
#include "subjects/SubjectListing.h"
#include "subjects/SubjectStore.h"
#include "text/Encoding.h"
#include "text/LeadingNumber.h"
#include "text/TypedText.h"

namespace zova {

namespace {

// "" for a file that is not one of this project's subjects, or whose name no autosave could hold. Keeps blanks around
// the identifier, since they are part of the file's name.
std::string IdentifierOfFile(const ProjectParameters& project, std::string_view path) {
  const std::string_view name = LastPathComponent(path);
  if (!IsOwnSubjectFile(project, name)) return {};
  if (name.size() - ExpectedPrefix(project).size() <= kDataFileEnd.size()) return {};
  const bool canBeStored = std::none_of(name.begin(), name.end(), BreaksField) && IsValidUtf8(name);
  return canBeStored ? SubjectIdFromFileName(project, path) : std::string();
}

constexpr const char* kForeignFile =
    "This file is not a subject file for this experiment.  Please select another file.";

// False when the user cancels; sets `endedEarly` for a file of the wrong format.
template <typename Step>
bool ReadFile(const Platform& platform, bool& endedEarly, Step&& step) {
  const BusyPointer busy(platform.Pointer);
  return WithRetry(platform.Boxes, [&] {
    try {
      step();
    } catch (const FileError& error) {
      endedEarly = error.Cause() == FileCause::EndOfData;
      throw;
    }
  });
}

// Heading and instruction by purpose.
constexpr std::array<std::array<const char*, 2>, 4> kTexts = {{
    {"Subject Information", ""},
    {"Read Old Data",
     "If you enter the subject identifier, ZOVA will search the primary path for the data.  If you prefer to browse "
     "for the appropriate file on your own, please select the 'Browse' button."},
    {"Unfinished Business",
     "Please enter in the subject identifier to be completed.  If you are not sure of the identifier, please select "
     "the 'Browse' button."},
    {"Second Entry",
     "Enter a complete subject again from its protocol, without a look at the first entry.  Both entries are then "
     "compared."},
}};

}  // namespace

void SubjectIdentification::Open(Purpose purpose, const ProjectParameters& project, const std::string& paramDir) {
  m_purpose = purpose;
  m_project = &project;
  m_paramDir = paramDir;
  m_subjectText.clear();
  m_record = {};
  m_record.Which = purpose == Purpose::SecondEntry ? WhichEntry::Second : WhichEntry::First;
  ResetLists(m_record, project);
  GoTo(1);
}

void SubjectIdentification::Leave() {
  m_subjectText.clear();
  GoTo(1);
}

std::string SubjectIdentification::Heading() const { return kTexts[static_cast<std::size_t>(m_purpose)][0]; }
std::string SubjectIdentification::Instruction() const { return kTexts[static_cast<std::size_t>(m_purpose)][1]; }

std::string SubjectIdentification::Counter() const { return std::to_string(m_step) + " of " + std::to_string(Steps()); }

std::string SubjectIdentification::LevelsList() const {
  if (m_step == 1) return {};
  const auto variable = static_cast<std::size_t>(m_step - 2);
  std::string list = "The levels for the " + InCapitals(m_project->VariableNames[variable]) + " variable are: \n\n";
  for (std::size_t level = 1; level <= static_cast<std::size_t>(m_project->LevelCounts[variable]); ++level) {
    list += "     " + std::to_string(level) + ". " + m_project->LevelNames[variable][level - 1] + "\n";
  }
  return list;
}

std::vector<std::string> SubjectIdentification::LevelNames() const {
  std::vector<std::string> names;
  if (m_step == 1) return names;
  const auto variable = static_cast<std::size_t>(m_step - 2);
  names.reserve(static_cast<std::size_t>(m_project->LevelCounts[variable]));
  for (int level = 1; level <= m_project->LevelCounts[variable]; ++level) {
    names.push_back(LevelLabel(*m_project, variable, level));
  }
  return names;
}

int SubjectIdentification::ChosenLevel() const {
  const int level = DigitsInteger16(m_levelText).value_or(0);
  return level <= static_cast<int>(LevelNames().size()) ? level : 0;
}

void SubjectIdentification::SetSubjectText(const std::string& text) { m_subjectText = ColumnText(text); }

SubjectIdentification::Outcome SubjectIdentification::StayInBox() {
  ++m_cursorRevision;
  return Outcome::Stay;
}

SubjectIdentification::Outcome SubjectIdentification::Refuse(const std::string& text, const std::string& details) {
  Warn(m_platform.Boxes, text, details);
  return StayInBox();
}

SubjectIdentification::Outcome SubjectIdentification::GoTo(int step) {
  m_step = step;
  const int level = step == 1 ? 0 : m_record.Levels[static_cast<std::size_t>(step - 2)];
  m_levelText = level == 0 ? "" : std::to_string(level);
  return StayInBox();
}

bool SubjectIdentification::StoreLevel() {
  const auto variable = static_cast<std::size_t>(m_step - 2);
  const std::int16_t level = LeadingInteger16(m_levelText).value_or(0);
  if (level < 1 || level > m_project->LevelCounts[variable]) return false;
  m_record.Levels[variable] = level;
  return true;
}

bool SubjectIdentification::AcceptBox() {
  m_subjectText = std::string(WithoutOuterBlanks(m_subjectText));
  if (m_step == 1 ? IsSubjectId(m_subjectText) : StoreLevel()) return true;
  if (m_step == 1) {
    m_platform.Pointer.Beep();
    m_subjectText.clear();
  }
  Refuse("Invalid Format.");
  return false;
}

SubjectIdentification::Outcome SubjectIdentification::Next() {
  if (!CanGoNext() || !AcceptBox()) return Outcome::Stay;
  const auto begun = BeginSecondEntry();
  return begun ? *begun : GoTo(m_step + 1);
}

void SubjectIdentification::Back() {
  if (!CanGoBack()) return;
  StoreLevel();
  GoTo(m_step - 1);
}

std::string SubjectIdentification::Directory() const {
  return m_purpose == Purpose::Unfinished ? UnfinishedDirectory(m_project->PrimaryDir)
                                          : SubjectDirectory(m_project->PrimaryDir);
}

// A second entry needs a first one. nullopt when a new one is to be made, and for other purposes.
std::optional<SubjectIdentification::Outcome> SubjectIdentification::BeginSecondEntry() {
  if (m_purpose != Purpose::SecondEntry || m_step != 1) return std::nullopt;
  Disk& disk = m_platform.Files;
  std::string complete, begun;
  const bool isListed = WithRetry(m_platform.Boxes, [&] {
    begun.clear();
    complete = ListedName(SubjectDirectory(m_project->PrimaryDir));
    if (complete.empty()) return;
    const ResolvedPath file = FindSubjectFile(disk, *m_project, m_project->PrimaryDir, SubjectPlace::SecondUnfinished,
                                              complete, FileOperation::Read);
    if (disk.Kind(file, FileOperation::Read) == EntryKind::File) begun = file.Shown;
  });
  if (!isListed) return StayInBox();
  if (complete.empty()) {
    return Refuse("There is no complete subject '" + m_subjectText + "'.  Only a complete subject is entered again.");
  }
  const std::string identifier = IdentifierOfFile(*m_project, complete);
  if (!identifier.empty()) m_subjectText = identifier;
  if (begun.empty()) return std::nullopt;
  bool endedEarly = false;
  return Load(begun, m_subjectText, endedEarly);
}

// Also false when the search fails and the user cancels. Notes the accepted file in `record`. The first entry of a
// settled subject may be there without its data; to enter it anew deletes it, to complete it may be a correction.
bool SubjectIdentification::MayReplaceComplete(const std::string& subjectId, SubjectRecord& record) {
  Disk& disk = m_platform.Files;
  const std::string file = ExpectedPrefix(*m_project).append(subjectId).append(kDataFileEnd);
  const SubjectPlace place = CompletePlace(record.Which);
  const std::string directory = PlaceDirectory(m_project->PrimaryDir, place);
  const std::string path = JoinPath(directory, file);
  bool hasFirst = false;
  std::optional<std::string> content;
  const bool isKnown = WithRetry(m_platform.Boxes, [&] {
    RequireDirectory(disk, m_project->PrimaryDir, FileOperation::List);
    content = ReadIfThere(disk, TargetOf(disk, *m_project, {m_project->PrimaryDir, directory, path, place}));
    if (content || record.Which == WhichEntry::Second) return;
    const ResolvedPath first =
        FindSubjectFile(disk, *m_project, m_project->PrimaryDir, SubjectPlace::First, file, FileOperation::Read);
    hasFirst = disk.Kind(first, FileOperation::Read) == EntryKind::File;
  });
  if (!isKnown) return false;
  record.IsCorrection = hasFirst && m_purpose != Purpose::NewSubject;
  if (!content && (!hasFirst || record.IsCorrection)) return true;
  if (Confirm(m_platform.Boxes,
              {.Text = "Subject ID '" + subjectId +
                       "' already exists!  When this subject is saved it will delete the old data.  Are you "
                       "sure you want to do this?"})) {
    if (content) NoteKnownFile(record, path, *content);
    return true;
  }
  GoTo(1);
  return false;
}

SubjectIdentification::Outcome SubjectIdentification::Finish() {
  if (!CanFinish() || !AcceptBox()) return Outcome::Stay;
  if (const auto begun = BeginSecondEntry()) return *begun;
  if (!MayReplaceComplete(m_subjectText, m_record)) return StayInBox();
  m_record.SubjectId = m_subjectText;
  return Outcome::OpenEntry;
}

SubjectIdentification::Outcome SubjectIdentification::Load(const std::string& path, const std::string& subjectId,
                                                           bool& endedEarly) {
  // An unfinished subject, once completed, replaces a complete one of the same identifier.
  SubjectRecord loaded;
  loaded.Which = m_record.Which;
  if (m_purpose != Purpose::OldData && !MayReplaceComplete(subjectId, loaded)) return StayInBox();
  const bool replacesComplete = !loaded.KnownFiles.empty();
  const bool isRead =
      ReadFile(m_platform, endedEarly, [&] { LoadSubjectFile(m_platform.Files, path, *m_project, loaded); });
  if (!isRead) return StayInBox();
  m_record = std::move(loaded);
  m_record.SubjectId = subjectId;
  // Perhaps a correction that was paused.
  m_record.IsCorrection = m_purpose == Purpose::OldData || replacesComplete || m_record.IsCorrection;
  return Outcome::OpenEntry;
}

SubjectIdentification::Outcome SubjectIdentification::LoadAutosave(const std::string& path, bool& endedEarly) {
  SubjectRecord restored;
  bool isOurs = false;
  const bool isRead = ReadFile(m_platform, endedEarly, [&] {
    isOurs = EqualsIgnoringCase(ReadAutosaveProject(m_platform.Files, path), m_project->ProjectFileName);
    if (isOurs) ReadAutosaveFile(m_platform.Files, path, *m_project, restored);
  });
  if (!isRead) return StayInBox();
  if (!isOurs) return Refuse(kForeignFile);
  restored.Which = IsSecondAutosaveName(LastPathComponent(path)) ? WhichEntry::Second : WhichEntry::First;
  if (m_purpose == Purpose::Unfinished && !MayReplaceComplete(restored.SubjectId, restored)) return StayInBox();
  m_record = std::move(restored);
  m_record.IsCorrection = true;  // perhaps; what cannot be typed again is not deleted
  m_record.HasUnsavedChanges = true;
  return Outcome::OpenEntry;
}

// The subject's file as spelt on the disk; that spelling of the identifier is the one that is completed or corrected.
std::string SubjectIdentification::ListedName(const std::string& directory) const {
  RequireDirectory(m_platform.Files, m_project->PrimaryDir, FileOperation::List);
  const std::string wanted = SubjectFileName(*m_project, m_subjectText);
  std::string found;
  for (const std::string& name : ListSubjectFiles(m_platform.Files, *m_project, directory)) {
    if (name == wanted) return name;
    if (found.empty() && EqualsIgnoringCase(name, wanted)) found = name;
  }
  return found;
}

// Only adds to a refusal, so a directory that cannot be listed is not reported.
bool SubjectIdentification::IsUnfinished() const {
  try {
    return m_purpose == Purpose::OldData && !ListedName(UnfinishedDirectory(m_project->PrimaryDir)).empty();
  } catch (const FileError&) {
    return false;
  }
}

bool SubjectIdentification::IsAutosave(const std::string& path) const {
  try {
    const std::string_view name = LastPathComponent(path);
    return IsAutosaveName(name) && m_platform.Files.IsSame(DirectoryOfPath(path), m_paramDir);
  } catch (const FileError&) {
    return false;
  }
}

SubjectIdentification::Outcome SubjectIdentification::LoadTyped() {
  if (!LooksForExisting() || !AcceptBox()) return Outcome::Stay;
  std::string name;
  if (!WithRetry(m_platform.Boxes, [&] { name = ListedName(Directory()); })) return StayInBox();
  if (name.empty()) {
    return Refuse(
        "The subject identified does not exist. You can edit the subject identifier, or you could try browsing.  If "
        "you are trying to read data from a different project, you have to cancel the 'Read Old Data' screen and go to "
        "the 'file', 'Open Existing Project' menu first.",
        IsUnfinished() ? "The data of this subject are unfinished.  To complete them, select 'Options', 'Unfinished "
                         "Business'."
                       : "");
  }
  bool endedEarly = false;  // reported; the user may type another identifier
  const std::string identifier = IdentifierOfFile(*m_project, name);
  return Load(JoinPath(Directory(), name), identifier.empty() ? m_subjectText : identifier, endedEarly);
}

SubjectIdentification::Outcome SubjectIdentification::LoadListed(const std::string& file) {
  const std::string identifier = IdentifierOfFile(*m_project, file);
  if (identifier.empty()) return Refuse(kForeignFile);
  bool endedEarly = false;
  return Load(JoinPath(Directory(), file), identifier, endedEarly);
}

SubjectIdentification::Outcome SubjectIdentification::Browse() {
  if (!LooksForExisting()) return Outcome::Stay;
  const FileQuestion question = {.Title = "Select Data File",
                                 .Directory = Directory(),
                                 .Filters = {{"DAT files (*.dat)", "*.dat"}, {"All files (*.*)", "*"}}};
  for (;;) {
    const std::optional<std::string> path = m_platform.Dialogs.ChooseFile(question);
    if (!path) return Outcome::Stay;
    const std::string identifier = IdentifierOfFile(*m_project, *path);
    // Checks the directory first: in an old project the name may look like a subject's.
    const bool isAutosave = IsAutosave(*path);
    if (!isAutosave && identifier.empty()) return Refuse(kForeignFile);
    bool offersAgain = false;
    const Outcome outcome = isAutosave ? LoadAutosave(*path, offersAgain) : Load(*path, identifier, offersAgain);
    if (!offersAgain) return outcome;
  }
}

}  // namespace zova
