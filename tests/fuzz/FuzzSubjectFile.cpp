// SPDX-License-Identifier: GPL-3.0-or-later
//
// Any bytes as a subject file and as an autosave file, in a project that the last bytes choose: either a FieldError,
// and then a blank record in the project's shape, or a record that is what a plain reading field by field gives, and
// that comes back the same when written. Such a record is scored; only a ScoringError may be thrown.

#include <fuzzer/FuzzedDataProvider.h>

#include <optional>
#include <string>

#include "Require.h"
#include "master/columns/MasterLines.h"
#include "master/columns/MeasureSelection.h"
#include "scoring/ScoreSubject.h"
#include "subjects/SubjectFile.h"
#include "text/Encoding.h"
#include "text/FieldReader.h"
#include "text/LeadingNumber.h"

using namespace zova;

namespace {

// Every number by itself: a parameter file may hold a category size that has nothing to do with the number of items.
// Few tests, since the master has 2^tests columns for the item patterns.
ProjectParameters ChooseProject(FuzzedDataProvider& data) {
  const auto upTo = [&](std::int16_t largest) { return data.ConsumeIntegralInRange<std::int16_t>(0, largest); };
  ProjectParameters project;
  project.TestCount = upTo(6);
  project.ItemCount = upTo(20);
  project.VariableCount = upTo(kMaxVariables);
  project.FormatMarker = data.ConsumeBool() ? "OLD Zova" : kCurrentMarker;
  project.Categorized = upTo(1);
  project.CategoryCount = upTo(20);
  project.ItemsPerCategory = upTo(20);
  project.FalseMemory = upTo(1);
  project.MinutesRecorded = upTo(1);
  project.MaxMinutes = upTo(9);
  project.Rated = upTo(1);
  project.MaxRating = upTo(9);
  project.RatedTests.fill(data.ConsumeBool() ? "Y" : "N");
  project.ProjectFileName = "Fuzz.prm";
  return project;
}

// Reads into the record of an earlier subject, of which nothing may remain; false after a FieldError.
template <typename Parse>
bool Reads(Parse&& parse, std::string_view bytes, const ProjectParameters& project, SubjectRecord& record) {
  record.SubjectId = "7";
  record.Levels.fill(9);
  record.Lists.Reset(1, 1);
  record.Lists.At(1, 1) = {8, 7, 6};
  try {
    parse(bytes, project, record);
    return true;
  } catch (const FieldError&) {
    SubjectRecord blank;
    ResetLists(blank, project);
    Require(record.Levels == blank.Levels && record.Lists == blank.Lists, "a record that failed is blank");
    return false;
  }
}

// The reader takes usual lines in one go; this one never does. False when the file should have been refused.
bool ReadPlainly(std::string_view bytes, const ProjectParameters& project, SubjectRecord& record) {
  if (!LooksLikeDataText(bytes)) return false;
  ResetLists(record, project);
  FieldReader reader(WithoutMarks(bytes));
  const auto number = [&] { return LeadingInteger16(reader.Next()).value(); };
  try {
    reader.SkipLine();
    for (std::size_t v = 0; v < static_cast<std::size_t>(project.VariableCount); ++v) {
      reader.Skip();
      record.Levels[v] = number();
    }
    for (int test = 1; test <= project.TestCount; ++test) {
      for (int position = 1; position <= project.ItemCount; ++position) {
        reader.Skip();
        Recall& recall = record.Lists.At(test, position);
        recall.Item = number();
        recall.Minute = number();
        if (project.FormatMarker == kCurrentMarker) recall.Rating = number();
        if (recall.Item >= 1) ++record.Lists.RecallCount(test);
      }
    }
  } catch (const std::exception&) {  // a FieldError, or a number beyond the limits
    return false;
  }
  return true;
}

void TryToScore(const SubjectRecord& record, const ProjectParameters& project) {
  MeasureSelection selection;
  selection.SetDefaultMeasures(project);
  const MasterHeaderLine header = BuildMasterHeader(project, selection, MasterKind::Individual);
  static ScoringArrays scores;  // one set serves a whole run, so nothing of an earlier subject may break the next
  std::string row;
  try {
    ScoreSubject(record.Lists, project, header.Families, scores);
    BuildMasterRow(record.SubjectId, record.Levels, project, selection, scores, row);
  } catch (const ScoringError&) {
  }
}

// What the project does not keep is not written.
void DropUnkept(SubjectRecord& record, const ProjectParameters& project) {
  for (int test = 1; test <= project.TestCount; ++test) {
    for (int position = 1; position <= project.ItemCount; ++position) {
      Recall& recall = record.Lists.At(test, position);
      if (project.MinutesRecorded != 1) recall.Minute = 0;
      if (project.Rated != 1) recall.Rating = 0;
    }
  }
}

void TryAsSubject(std::string_view bytes, const ProjectParameters& project) {
  SubjectRecord record;
  SubjectRecord again;
  SubjectRecord plain{.SubjectId = "7"};
  const bool isReadable = Reads(ParseSubject, bytes, project, record);
  Require(isReadable == ReadPlainly(bytes, project, plain), "only what a plain reading refuses is refused");
  if (!isReadable) return;
  Require(record == plain, "a record is what a plain reading gives");
  TryToScore(record, project);
  DropUnkept(record, project);
  Require(Reads(ParseSubject, FormatSubject(record, project), project, again) && again == record,
          "a written subject is read back the same");
}

void TryAsAutosave(std::string_view bytes, const ProjectParameters& project) {
  SubjectRecord record;
  SubjectRecord again;
  if (!Reads(ParseAutosave, bytes, project, record)) return;
  (void)ParseAutosaveProject(bytes);  // what holds a whole subject holds the project's name
  // The layout escapes nothing: an identifier with a quote in it (possible in an unquoted field) cannot come back.
  if (record.SubjectId.find('"') != std::string::npos) return;
  DropUnkept(record, project);
  const std::string written = FormatAutosave(record, project);
  Require(Reads(ParseAutosave, written, project, again) && again == record, "a written autosave is read back the same");
  Require(ParseAutosaveProject(written) == project.ProjectFileName, "an autosave names its project");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  FuzzedDataProvider provider(data, size);
  const ProjectParameters project = ChooseProject(provider);
  const std::string bytes = provider.ConsumeRemainingBytesAsString();
  TryAsSubject(bytes, project);
  TryAsAutosave(bytes, project);
  return 0;
}
