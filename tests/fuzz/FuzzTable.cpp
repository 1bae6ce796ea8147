// SPDX-License-Identifier: GPL-3.0-or-later
//
// Any bytes as a table, read with options that the last bytes choose into a small project: either a FileError that says
// why, or a plan whose counts add up, with a report that is a CSV and the same when the table is planned again.

#include <fuzzer/FuzzedDataProvider.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <string>

#include "Require.h"
#include "tables/import/ImportPlan.h"
#include "tables/import/ImportReport.h"
#include "text/CsvReader.h"

using namespace zova;

namespace {

ImportOptions ChooseOptions(FuzzedDataProvider& data) {
  ImportOptions options;
  const auto maybe = [&](const char* name, std::initializer_list<const char*> values) {
    const auto choice = data.ConsumeIntegralInRange<std::size_t>(0, values.size());
    if (choice > 0)
      Require(SetImportOption(options, name, *(values.begin() + choice - 1)).empty(), "a known value is taken");
  };
  maybe("--encoding", {"utf-8", "windows-1252"});
  maybe("--delimiter", {"comma", "tab", "semicolon"});
  maybe("--shape", {"long", "lists", "wide"});
  maybe("--separator", {"blank", ";", "ab"});
  maybe("--columns", {"subject=#1,test=#2,word=#3", "item=#1", "position=#2,minute=#1", "Group=#2"});
  maybe("--where", {"#1=a", "list=1"});
  maybe("--tests", {"labels", "rank"});
  maybe("--items", {"pool", "position"});
  maybe("--first-item", {"0", "1"});
  maybe("--order", {"rows"});
  maybe("--times", {"s", "ms", "min"});
  maybe("--accents", {"exact"});
  maybe("--accept-distance", {"1", "2"});
  maybe("--others", {"intrusion", "skip"});
  maybe("--repeats", {"keep"});
  maybe("--too-long", {"cut", "leave-out"});
  maybe("--ids", {"number"});
  maybe("--no-header", {""});
  return options;
}

ImportContext SmallProject(bool hasWords) {
  ProjectParameters project;
  project.TestCount = 2;
  project.ItemCount = 4;
  project.MinutesRecorded = project.Rated = 1;
  project.MaxMinutes = project.MaxRating = 3;
  project.RatedTests.fill("Y");
  project.VariableCount = 1;
  project.VariableNames[0] = "Group";
  project.LevelCounts[0] = 2;
  project.LevelNames[0][0] = "a";
  project.Abbreviation = "F";
  project.FormatMarker = kCurrentMarker;
  WordList words;
  if (hasWords) words.Words = {{"apple", ""}, {"yo-yo", ""}, {"crème", ""}, {"na", ""}};
  return NewImportContext(project, std::move(words));
}

void RequireCsv(const std::string& report) {
  CsvReader reader(TextSource(report));
  while (reader.Next()) Require(reader.Fields().size() == 7, "a row of the report has seven fields");
}

void RequireSums(const ImportPlan& plan) {
  const ImportCounts& c = plan.Findings.Counts;
  Require(c.Recalls >= c.Exact + c.Taken + c.Open, "a recall is counted once");
  Require(c.Taken <= c.Proposed && c.Proposed <= c.Taken + c.Open, "what is proposed is taken or open");
  std::size_t subjects = 0;
  for (const std::size_t count : plan.ActionCounts) subjects += count;
  Require(plan.Subjects.empty() || subjects == plan.Subjects.size(), "each subject has an action");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  static NativeFileLayer layer;
  static const std::filesystem::path directory = std::filesystem::temp_directory_path();
  static Disk disk(layer, DriveMap({{'C', directory}}));
  static const std::string name = "zova-fuzz-" + std::to_string(getpid()) + ".csv";
  FuzzedDataProvider data(bytes, size);
  const ImportOptions options = ChooseOptions(data);
  const bool hasWords = data.ConsumeBool();
  const std::string table = data.ConsumeRemainingBytesAsString();
  std::ofstream(directory / name, std::ios::binary).write(table.data(), static_cast<std::streamsize>(table.size()));
  try {
    ImportDraft draft = DraftImport(disk, "C:\\" + name, options, SmallProject(hasWords));
    const std::string report = FormatImportReport(draft.Plan);
    RequireCsv(report);
    RequireSums(draft.Plan);
    RefreshImport(disk, draft);
    Require(FormatImportReport(draft.Plan) == report, "the same plan has the same report");
  } catch (const FileError& error) {
    Require(error.Cause() == FileCause::EndOfData && !error.Detail().empty(), "a fault says what is wrong");
    RequireCsv(FormatImportReport(error));
  }
  return 0;
}
