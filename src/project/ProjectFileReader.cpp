// SPDX-License-Identifier: GPL-3.0-or-later
//
// The parameter file. Line 1, current layout (20 fields):
//
//   tests, items, categorized, categories, items per category, minutes kept, minutes, previous backup directory,
//   -, rated, highest rating, -, variables, abbreviation, primary directory, backup directory, file name,
//   false memory, -, marker
//
// Intermediate layout (marker "Sc..."): the same, but field 8 is 1 when a primary directory was given, field 9 is 1
// when a backup directory was given, 15 is the backup directory, 16 the primary one (both without drive, with a last
// character too many), 17 the backup drive's letter.
//
// Oldest layout (14 fields):
//
//   tests, items, categorized, categories, items per category, minutes kept, minutes, primary given, backup given,
//   variables, abbreviation, backup directory, primary directory, backup drive
//
// Then, in all layouts, when there are variables: a line per variable with its level count; per variable its name and
// its levels' names, a line each. Then, not in the oldest layout, when ratings are kept: a line "Y" or "N" per test.

#include "platform/files/DataFileError.h"
#include "project/ProjectFile.h"
#include "text/Encoding.h"
#include "text/FieldReader.h"
#include "text/LeadingNumber.h"

namespace zova {

namespace {

constexpr int kOldestFieldCount = 14;

// An abbreviation in field 11 identifies the oldest layout; if it is all digits, the number of fields decides.
bool IsOldestLayout(std::string_view content) {
  FieldReader reader(content);
  int fieldsInLine = 0;
  bool inFirstLine = true;
  std::string_view eleventh;
  for (int field = 1; field <= 11; ++field) {
    eleventh = reader.Next();
    if (inFirstLine) ++fieldsInLine;
    if (reader.AtLineStart()) inFirstLine = false;
  }
  if (!eleventh.empty() && !IsWholeNumberText(eleventh)) return true;
  while (inFirstLine && !reader.AtEnd()) {
    reader.Skip();
    ++fieldsInLine;
    if (reader.AtLineStart()) inFirstLine = false;
  }
  return fieldsInLine == kOldestFieldCount;
}

void ReadCommonStart(FieldReader& reader, ProjectParameters& project) {
  project.TestCount = reader.NextCount(kMaxTests);
  project.ItemCount = reader.NextCount();
  project.Categorized = reader.NextStrictNumber();
  project.CategoryCount = reader.NextCount();
  project.ItemsPerCategory = reader.NextCount();
  project.MinutesRecorded = reader.NextStrictNumber();
  project.MaxMinutes = reader.NextCount();
}

void ReadLevels(FieldReader& reader, ProjectParameters& project) {
  const auto variables = static_cast<std::size_t>(project.VariableCount);
  for (std::size_t v = 0; v < variables; ++v) project.LevelCounts[v] = reader.NextCount(kMaxLevels);
  for (std::size_t v = 0; v < variables; ++v) {
    project.VariableNames[v] = reader.Next();
    const auto levels = static_cast<std::size_t>(project.LevelCounts[v]);
    for (std::size_t level = 0; level < levels; ++level) project.LevelNames[v][level] = reader.Next();
  }
}

// Reads line 1 of the current layout, also for a first look at the intermediate one.
void ReadCurrentLine(FieldReader& reader, ProjectParameters& project) {
  ReadCommonStart(reader, project);
  project.PreviousBackupDir = reader.Next();
  reader.Skip();
  project.Rated = reader.NextStrictNumber();
  project.MaxRating = reader.NextCount();
  reader.Skip();
  project.VariableCount = reader.NextCount(kMaxVariables);
  project.Abbreviation = reader.Next();
  project.PrimaryDir = reader.Next();
  project.BackupDir = reader.Next();
  project.ProjectFileName = reader.Next();
  project.FalseMemory = reader.NextStrictNumber();
  reader.Skip();
  project.FormatMarker = reader.Next();
}

void ReadCurrentLists(FieldReader reader, ProjectParameters& project) {
  if (project.VariableCount < 1 && project.Rated != 1) return;
  reader.SkipLine();
  ReadLevels(reader, project);
  if (project.Rated != 1) return;
  const auto tests = static_cast<std::size_t>(project.TestCount);
  for (std::size_t t = 0; t < tests; ++t) project.RatedTests[t] = reader.Next();
}

// Stored with one extra character at the end and sometimes blanks.
std::string OlderDirectory(bool given, std::string_view drive, std::string_view stored) {
  if (!given) return kNoDirectory;
  std::string directory = UpperCase(drive);
  directory += ":\\";
  directory += WithoutLastCharacter(stored);
  while (!directory.empty() && (directory.back() == ' ' || directory.back() == '\\')) directory.pop_back();
  return directory;
}

void ReadIntermediateLine(FieldReader reader, ProjectParameters& project) {
  for (int field = 1; field <= 7; ++field) reader.Skip();
  const bool primaryGiven = reader.NextStrictNumber() == 1;
  const bool backupGiven = reader.NextStrictNumber() == 1;
  for (int field = 10; field <= 14; ++field) reader.Skip();
  const std::string_view backup = reader.Next();
  const std::string_view primary = reader.Next();
  const std::string_view backupDrive = reader.Next();
  project.PrimaryDir = OlderDirectory(primaryGiven, "C", primary);
  project.BackupDir = OlderDirectory(backupGiven, backupDrive, backup);
  project.PreviousBackupDir.clear();  // field 8 was the flag
  for (std::string& flag : project.RatedTests) flag = UpperCase(flag);
}

void ReadOldest(FieldReader reader, ProjectParameters& project) {
  ReadCommonStart(reader, project);
  const bool primaryGiven = reader.NextStrictNumber() == 1;
  const bool backupGiven = reader.NextStrictNumber() == 1;
  project.VariableCount = reader.NextCount(kMaxVariables);
  project.Abbreviation = reader.Next();
  const std::string_view backup = reader.Next();
  const std::string_view primary = reader.Next();
  const std::string_view backupDrive = reader.Next();
  project.PrimaryDir = OlderDirectory(primaryGiven, "C", primary);
  project.BackupDir = OlderDirectory(backupGiven, backupDrive, backup);
  ReadLevels(reader, project);
  project.FormatMarker = kOldestMarker;
}

}  // namespace

ProjectParameters ParseProject(std::string_view bytes, std::string_view path) {
  RequireDataText(bytes);
  const DataText text(bytes);
  const FieldReader start(text.Content());
  ProjectParameters project;
  if (IsOldestLayout(text.Content())) {
    ReadOldest(start, project);
    project.ProjectFileName = LastPathComponent(path);
    return project;
  }
  FieldReader line = start;
  ReadCurrentLine(line, project);
  ReadCurrentLists(start, project);
  if (project.FormatMarker.starts_with("Sc")) {
    ReadIntermediateLine(start, project);
    project.ProjectFileName = LastPathComponent(path);
  }
  return project;
}

ProjectParameters ReadProjectFile(Disk& disk, const std::string& path) {
  std::string bytes;
  disk.Read(path, bytes);
  return ParsingFile(path, [&] { return ParseProject(bytes, path); });
}

}  // namespace zova
