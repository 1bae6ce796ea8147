// SPDX-License-Identifier: GPL-3.0-or-later

#include "project/ProjectFile.h"
#include "project/ProjectLayout.h"

#include "platform/desktop/FileErrorBoxes.h"

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

void CopyToSampleData(const std::string& file, const std::string& directory, Disk& disk) {
  const std::string copy = JoinPath(directory, LastPathComponent(file));
  std::string wanted;
  std::string there;
  disk.Read(file, wanted);
  if (disk.FileExists(copy)) disk.Read(copy, there);
  if (there == wanted) return;
  if (!disk.DirectoryExists(directory)) disk.CreateDirectories(directory);
  disk.Write(copy, wanted);
}

}  // namespace

bool WriteExampleProject(const std::string& paramDir, const std::string& programDir, Disk& disk, MessageBoxes& boxes) {
  const ProjectParameters project = ExampleProject(programDir);
  const std::string file = ParameterFilePath(paramDir, project);
  if (!WithRetry(boxes, [&] { disk.Write(file, FormatProject(project, kCurrentMarker)); })) return false;
  // The copy is optional: the program's directory may be read-only.
  WithRetry(boxes, [&] { CopyToSampleData(file, project.PrimaryDir, disk); });
  return true;
}

}  // namespace zova
