// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/desktop/FileErrorBoxes.h"
#include "project/ProjectFile.h"
#include "project/ProjectLayout.h"
#include "text/FieldReader.h"

namespace zova {

ProjectParameters ExampleProject(const std::string& programDir) {
  ProjectParameters project;
  project.TestCount = 3;
  project.ItemCount = 66;
  project.Categorized = 1;
  project.CategoryCount = 6;
  project.ItemsPerCategory = 11;
  project.MinutesRecorded = 1;
  project.MaxMinutes = 7;
  project.Rated = 1;
  project.MaxRating = 6;
  project.VariableCount = 2;
  project.Abbreviation = "Example";
  project.PrimaryDir = JoinPath(programDir, "Sample Data");
  project.BackupDir = kNoDirectory;
  project.ProjectFileName = ParameterFileName("Example");
  project.FalseMemory = 1;
  project.FormatMarker = kCurrentMarker;
  project.LevelCounts = {2, 3};
  project.VariableNames = {"Experimenter", "Interval"};
  project.LevelNames[0] = {"Joe", "Jane"};
  project.LevelNames[1] = {"24 Hours", "1 Week", "2 Weeks"};
  project.RatedTests = {"N", "N", "Y"};
  return project;
}

namespace {

// The example of a program in another directory.
bool IsExample(std::string_view content, const ProjectParameters& example) {
  try {
    ProjectParameters project = ParseProject(content, "");
    project.PrimaryDir = example.PrimaryDir;
    return project == example;
  } catch (const FieldError&) {
    return false;
  }
}

void WriteToSampleData(const ProjectParameters& example, const std::string& content, Disk& disk) {
  const std::string file = ParameterFilePath(example.PrimaryDir, example);
  if (disk.FileExists(file)) {
    std::string there;
    disk.Read(file, there);
    if (there == content || !IsExample(there, example)) return;
  }
  if (!disk.DirectoryExists(example.PrimaryDir)) disk.CreateDirectories(example.PrimaryDir);
  disk.Write(file, content);
}

}  // namespace

bool WriteExampleProject(const std::string& paramDir, const std::string& programDir, Disk& disk, MessageBoxes& boxes) {
  const ProjectParameters example = ExampleProject(programDir);
  const std::string content = FormatProject(example, kCurrentMarker);
  const std::string file = ParameterFilePath(paramDir, example);
  const auto write = [&] {
    if (!disk.FileExists(file)) disk.Write(file, content);  // a project of that name is its user's own
  };
  if (!WithRetry(boxes, write)) return false;
  // The copy is for whoever looks there; a program's directory that may not be written does not hold anyone up.
  WithRetry(boxes, [&] { WriteToSampleData(example, content, disk); });
  return true;
}

}  // namespace zova
