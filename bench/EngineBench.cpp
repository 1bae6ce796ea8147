// SPDX-License-Identifier: GPL-3.0-or-later
//
// The three steps of a master run by themselves: reading a subject file, scoring a subject, building a row.

#include <benchmark/benchmark.h>

#include <algorithm>
#include <filesystem>
#include <numeric>
#include <random>
#include <stdexcept>

#include "master/columns/MasterLines.h"
#include "scoring/ScoreSubject.h"
#include "subjects/SubjectFile.h"

namespace zova {
namespace {

// All that a project can keep: minutes, ratings 1 to 7 on every test, 10 categories, two variables.
ProjectParameters FullProject(int tests, int items, int minutes) {
  ProjectParameters project;
  project.TestCount = static_cast<std::int16_t>(tests);
  project.ItemCount = static_cast<std::int16_t>(items);
  project.Categorized = 1;
  project.CategoryCount = 10;
  project.ItemsPerCategory = static_cast<std::int16_t>(items / project.CategoryCount);
  project.MinutesRecorded = 1;
  project.MaxMinutes = static_cast<std::int16_t>(minutes);
  project.Rated = 1;
  project.MaxRating = 7;
  project.VariableCount = 2;
  project.Abbreviation = "Bench";
  project.FormatMarker = kCurrentMarker;
  project.LevelCounts = {2, 3};
  project.VariableNames = {"Experimenter", "Interval"};
  project.RatedTests.fill("Y");
  return project;
}

// `recalled` different items per test in random order, in rising minutes; the same for every run.
SubjectRecord RandomSubject(const ProjectParameters& project, int recalled) {
  std::mt19937 random(1);
  SubjectRecord record;
  record.Levels = {1, 2};
  ResetLists(record, project);
  std::vector<std::int16_t> items(static_cast<std::size_t>(project.ItemCount));
  std::iota(items.begin(), items.end(), std::int16_t{1});
  for (int test = 1; test <= project.TestCount; ++test) {
    std::shuffle(items.begin(), items.end(), random);
    for (int position = 1; position <= recalled; ++position) {
      Recall& recall = record.Lists.At(test, position);
      recall.Item = items[static_cast<std::size_t>(position) - 1];
      recall.Minute = static_cast<std::int16_t>((position - 1) * project.MaxMinutes / recalled + 1);
      recall.Rating = static_cast<std::int16_t>(random() % 7 + 1);
    }
    record.Lists.RecallCount(test) = static_cast<std::int16_t>(recalled);
  }
  return record;
}

MeasureSelection AllMeasures(const ProjectParameters& project) {
  MeasureSelection selection;
  selection.SetDefaultMeasures(project);
  return selection;
}

void Require(bool holds, const char* what) {
  if (!holds) throw std::logic_error(what);
}

void ParseSubjectFromMemory(benchmark::State& state) {
  const ProjectParameters project = FullProject(5, 100, 5);
  const SubjectRecord written = RandomSubject(project, 60);
  const std::string bytes = FormatSubject(written, project);
  SubjectRecord record;
  for (auto _ : state) {
    ParseSubject(bytes, project, record);
    benchmark::DoNotOptimize(record);
  }
  Require(record.Lists == written.Lists, "the lists that were read are not those that were written");
  state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(bytes.size()));
}
BENCHMARK(ParseSubjectFromMemory);

void LoadSubjectFromDisk(benchmark::State& state) {
  namespace fs = std::filesystem;
  const ProjectParameters project = FullProject(5, 100, 5);
  const SubjectRecord written = RandomSubject(project, 60);
  const fs::path directory = fs::temp_directory_path() / ("zova-bench-" + std::to_string(std::random_device()()));
  fs::create_directory(directory);
  NativeFileLayer layer;
  Disk disk(layer, DriveMap({{'C', directory}}));
  const std::string path = "C:\\Bench Sub#1.dat";
  disk.Write(path, FormatSubject(written, project));
  SubjectRecord record;
  for (auto _ : state) {
    LoadSubjectFile(disk, path, project, record);
    benchmark::DoNotOptimize(record);
  }
  fs::remove_all(directory);
  Require(record.Lists == written.Lists, "the lists that were read are not those that were written");
}
BENCHMARK(LoadSubjectFromDisk);

// Arguments: items of the list, items recalled per test (not more than the 16-bit rules let pass).
void ScoreOneSubject(benchmark::State& state) {
  const ProjectParameters project = FullProject(5, static_cast<int>(state.range(0)), 5);
  const SubjectRecord record = RandomSubject(project, static_cast<int>(state.range(1)));
  const FamilySet shown = BuildMasterHeader(project, AllMeasures(project), MasterKind::Individual).Families;
  ScoringArrays scores;
  for (auto _ : state) {
    ScoreSubject(record.Lists, project, shown, scores);
    benchmark::DoNotOptimize(scores);
  }
  Require(scores.True.Net[5] == state.range(1), "the subject's net recall is wrong");
}
BENCHMARK(ScoreOneSubject)->Args({100, 60})->Args({999, 120});

// Argument: minutes per test; five tests have 19 columns for each.
void BuildOneRow(benchmark::State& state) {
  const ProjectParameters project = FullProject(5, 100, static_cast<int>(state.range(0)));
  const SubjectRecord record = RandomSubject(project, 60);
  const MeasureSelection selection = AllMeasures(project);
  const MasterHeaderLine header = BuildMasterHeader(project, selection, MasterKind::Individual);
  ScoringArrays scores;
  ScoreSubject(record.Lists, project, header.Families, scores);
  std::string row;
  for (auto _ : state) {
    BuildMasterRow("1", record.Levels, project, selection, scores, row);
    benchmark::DoNotOptimize(row);
  }
  Require(std::count(row.begin(), row.end(), ',') + 1 == header.MasterColumnCount, "the row does not fit the header");
  state.counters["columns"] = header.MasterColumnCount;
}
BENCHMARK(BuildOneRow)->Arg(7)->Arg(836);

}  // namespace
}  // namespace zova
