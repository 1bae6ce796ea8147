// SPDX-License-Identifier: GPL-3.0-or-later
//
// The subject file, for V variables, T tests and N items:
//
//   "Subject#","<identifier>","n, Item #(recall order), Min(recall order), Rating(recall order)","*"
//   "<variable name>",<level>                         V lines
//   <position>,<item>,<minute>,<rating>               T*N lines, test by test; blanks as zeros
//
// In a project with the marker "Old ZOVA" (in any case) the last lines have no rating. The autosave file has two lines
// instead of the first one: the project file's name and the identifier.

#include "subjects/SubjectFile.h"

#include <algorithm>

#include "platform/files/DataFileError.h"
#include "project/ProjectFile.h"
#include "project/ProjectLayout.h"
#include "text/Encoding.h"
#include "text/FieldReader.h"
#include "text/Records.h"

namespace zova {

namespace {

bool HasRatingColumn(const ProjectParameters& project) { return UpperCase(project.FormatMarker) != "OLD ZOVA"; }

void WriteLevelsAndLists(RecordWriter& out, const SubjectRecord& record, const ProjectParameters& project) {
  constexpr std::size_t kLongestUsualLine = 16;
  const RecallLists& lists = record.Lists;
  out.Reserve(1024 + static_cast<std::size_t>(lists.TestCount() * lists.PositionCount()) * kLongestUsualLine);
  for (std::size_t v = 0; v < static_cast<std::size_t>(project.VariableCount); ++v) {
    out.Text(project.VariableNames[v]).Number(record.Levels[v]).EndLine();
  }
  const bool rated = HasRatingColumn(project);
  const bool keepsMinutes = project.MinutesRecorded == 1;
  const bool keepsRatings = project.Rated == 1;
  for (int test = 1; test <= lists.TestCount(); ++test) {
    for (int position = 1; position <= lists.PositionCount(); ++position) {
      const Recall& recall = lists.At(test, position);
      out.Number(position).Number(recall.Item).Number(keepsMinutes ? recall.Minute : 0);
      if (rated) out.Number(keepsRatings ? recall.Rating : 0);
      out.EndLine();
    }
  }
}

// `Count` is 4, or 3 without ratings.
template <std::size_t Count>
Recall ReadPosition(FieldReader& reader) {
  std::array<std::int16_t, Count> line{};
  if (!reader.ReadPlainLine(line)) {
    reader.Skip();
    for (std::size_t field = 1; field < Count; ++field) line[field] = reader.NextNumber();
  }
  return {line[1], line[2], Count > 3 ? line[Count - 1] : std::int16_t{0}};
}

// True when a blank stands between two items of a test.
template <std::size_t Count>
bool ReadLists(FieldReader& reader, RecallLists& lists) {
  bool hasBlankInside = false;
  for (int test = 1; test <= lists.TestCount(); ++test) {
    std::int16_t count = 0;
    int length = 0;  // up to the last item
    Recall* const entries = lists.Test(test);
    for (int position = 0; position < lists.PositionCount(); ++position) {
      entries[position] = ReadPosition<Count>(reader);
      if (entries[position].Item < 1) continue;
      ++count;
      length = position + 1;
    }
    lists.RecallCount(test) = count;
    hasBlankInside |= length != count;
  }
  return hasBlankInside;
}

SubjectOddities ReadLevelsAndLists(FieldReader& reader, const ProjectParameters& project, SubjectRecord& record) {
  for (std::size_t v = 0; v < static_cast<std::size_t>(project.VariableCount); ++v) {
    reader.Skip();
    record.Levels[v] = reader.NextNumber();
  }
  const bool hasBlankInside =
      HasRatingColumn(project) ? ReadLists<4>(reader, record.Lists) : ReadLists<3>(reader, record.Lists);
  return {reader.HasReadText(), hasBlankInside};
}

// `bytes` are the file's, `content` is their text; `readStart` reads what precedes the levels.
template <typename ReadStart>
SubjectOddities ParseRecord(std::string_view bytes, std::string_view content, const ProjectParameters& project,
                            SubjectRecord& record, ReadStart&& readStart) {
  record.Levels.fill(0);
  ResetLists(record, project);
  try {
    RequireDataText(bytes);
    FieldReader reader(content);
    readStart(reader);
    return ReadLevelsAndLists(reader, project, record);
  } catch (const FieldError&) {
    record.Levels.fill(0);
    ResetLists(record, project);
    throw;
  }
}

}  // namespace

void ResetLists(SubjectRecord& record, const ProjectParameters& project) {
  record.Lists.Reset(project.TestCount, project.ItemCount);
}

void NoteKnownFile(SubjectRecord& record, const std::string& path, const std::string& content) {
  const KnownFile file{path, content};
  if (std::find(record.KnownFiles.begin(), record.KnownFiles.end(), file) != record.KnownFiles.end()) return;
  record.KnownFiles.push_back(file);
}

std::string FormatSubject(const SubjectRecord& record, const ProjectParameters& project) {
  RecordWriter out;
  out.Text("Subject#").Text(record.SubjectId);
  out.Text("n, Item #(recall order), Min(recall order), Rating(recall order)").Text("*").EndLine();
  WriteLevelsAndLists(out, record, project);
  return out.Release();
}

SubjectOddities ParseSubject(std::string_view bytes, const ProjectParameters& project, SubjectRecord& record) {
  // Only numbers are read, so the encoding does not matter.
  return ParseRecord(bytes, WithoutMarks(bytes), project, record, [](FieldReader& reader) { reader.SkipLine(); });
}

void LoadSubjectFile(Disk& disk, const std::string& path, const ProjectParameters& project, SubjectRecord& record) {
  std::string bytes;
  disk.Read(path, bytes);
  ParsingFile(path, [&] { ParseSubject(bytes, project, record); });
  NoteKnownFile(record, path, bytes);
}

std::string FormatAutosave(const SubjectRecord& record, const ProjectParameters& project) {
  RecordWriter out;
  out.Text(project.ProjectFileName).EndLine();
  out.Text(record.SubjectId).EndLine();
  WriteLevelsAndLists(out, record, project);
  return out.Release();
}

std::string ParseAutosaveProject(std::string_view bytes) {
  RequireDataText(bytes);
  const DataText text(bytes);
  return std::string(FieldReader(text.Content()).Next());
}

void ParseAutosave(std::string_view bytes, const ProjectParameters& project, SubjectRecord& record) {
  const DataText text(bytes);
  std::string_view subjectId;
  ParseRecord(bytes, text.Content(), project, record, [&](FieldReader& reader) {
    reader.Skip();
    subjectId = reader.Next();
    const bool isName = !subjectId.empty() && subjectId.find_first_of("\\/") == std::string_view::npos;
    if (!isName) reader.Refuse(FieldFault::BadIdentifier);
  });
  record.SubjectId = subjectId;
}

void WriteAutosaveFile(Disk& disk, const std::string& paramDir, const SubjectRecord& record,
                       const ProjectParameters& project) {
  disk.Write(AutosavePath(paramDir, record.Which), FormatAutosave(record, project));
}

std::string ReadAutosaveProject(Disk& disk, const std::string& path) {
  std::string bytes;
  disk.Read(path, bytes);
  return ParsingFile(path, [&] { return ParseAutosaveProject(bytes); });
}

void ReadAutosaveFile(Disk& disk, const std::string& path, const ProjectParameters& project, SubjectRecord& record) {
  std::string bytes;
  disk.Read(path, bytes);
  ParsingFile(path, [&] { ParseAutosave(bytes, project, record); });
}

namespace {

bool CanBeRestored(Disk& disk, const std::string& paramDir, const std::string& path) {
  try {
    const ProjectParameters project = ReadProjectFile(disk, JoinPath(paramDir, ReadAutosaveProject(disk, path)));
    SubjectRecord record;
    ReadAutosaveFile(disk, path, project, record);
    return project.FormatMarker != kBackupMarker;
  } catch (const FileError&) {
    return false;
  }
}

bool HaveSameContent(Disk& disk, const std::string& left, const std::string& right) {
  if (!disk.FileExists(left) || !disk.FileExists(right)) return false;
  std::string content, other;
  disk.Read(left, content);
  disk.Read(right, other);
  return content == other;
}

// Moves the files up until Temp 1.txt may be replaced. A move that was cut short has left two equal neighbours.
void FreeFirstKept(Disk& disk, const std::string& paramDir, WhichEntry entry) {
  const auto kept = [&](int number) { return KeptAutosavePath(paramDir, number, entry); };
  int free = 1;
  while (disk.FileExists(kept(free)) && !HaveSameContent(disk, kept(free), kept(free + 1))) ++free;
  for (; free > 1; --free) disk.Copy(kept(free - 1), kept(free));
}

}  // namespace

std::string KeepAutosaveFile(Disk& disk, const std::string& paramDir, WhichEntry entry) {
  constexpr int kKept = 3;
  const std::string path = AutosavePath(paramDir, entry);
  std::string kept = KeptAutosavePath(paramDir, 1, entry);
  if (!disk.FileExists(path)) return {};
  if (!HaveSameContent(disk, path, kept)) {
    FreeFirstKept(disk, paramDir, entry);
    disk.Copy(path, kept);
  }
  for (int number = kKept + 1; disk.FileExists(KeptAutosavePath(paramDir, number, entry)); ++number) {
    const std::string old = KeptAutosavePath(paramDir, number, entry);
    if (CanBeRestored(disk, paramDir, old)) disk.Delete(old);
  }
  disk.Delete(path);
  return kept;
}

void DeleteAutosaveFile(Disk& disk, const std::string& paramDir, WhichEntry entry) {
  const std::string path = AutosavePath(paramDir, entry);
  if (disk.FileExists(path)) disk.Delete(path);
}

}  // namespace zova
