// SPDX-License-Identifier: GPL-3.0-or-later

#include "project/ProjectFile.h"
#include "project/ProjectLayout.h"
#include "text/Records.h"

#include "platform/desktop/FileErrorBoxes.h"

namespace zova {

namespace {

void WriteFirstLine(RecordWriter& out, const ProjectParameters& project, std::string_view marker,
                    std::string_view previousBackupDir) {
  out.Number(project.TestCount).Number(project.ItemCount).Number(project.Categorized);
  out.Number(project.CategoryCount).Number(project.ItemsPerCategory);
  out.Number(project.MinutesRecorded).Number(project.MaxMinutes);
  if (previousBackupDir.empty()) {
    out.Empty();
  } else {
    out.Text(previousBackupDir);
  }
  out.Empty().Number(project.Rated).Number(project.MaxRating).Empty().Number(project.VariableCount);
  out.Text(project.Abbreviation).Text(project.PrimaryDir).Text(project.BackupDir).Text(project.ProjectFileName);
  out.Number(project.FalseMemory).Empty().Text(marker).EndLine();
}

void WriteLists(RecordWriter& out, const ProjectParameters& project) {
  const auto variables = static_cast<std::size_t>(project.VariableCount);
  for (std::size_t v = 0; v < variables; ++v) out.Number(project.LevelCounts[v]).EndLine();
  for (std::size_t v = 0; v < variables; ++v) {
    out.Text(project.VariableNames[v]).EndLine();
    const auto levels = static_cast<std::size_t>(project.LevelCounts[v]);
    for (std::size_t level = 0; level < levels; ++level) out.Text(project.LevelNames[v][level]).EndLine();
  }
  if (project.Rated != 1) return;
  const auto tests = static_cast<std::size_t>(project.TestCount);
  for (std::size_t t = 0; t < tests; ++t) out.Text(project.RatedTests[t]).EndLine();
}

bool WriteWithSdata(const ProjectParameters& project, const std::string& directory, const std::string& content,
                    Disk& disk, MessageBoxes& boxes) {
  return WithRetry(boxes, [&] {
    const std::string sdata = SubjectDirectory(directory);
    if (!disk.DirectoryExists(sdata)) disk.CreateDirectory(sdata);
    disk.Write(ParameterFilePath(directory, project), content);
  });
}

}  // namespace

std::string FormatProject(const ProjectParameters& project, std::string_view marker,
                          std::string_view previousBackupDir) {
  RecordWriter out;
  WriteFirstLine(out, project, marker, previousBackupDir);
  WriteLists(out, project);
  return out.Release();
}

bool WriteProjectFile(ProjectParameters& project, const std::string& paramDir, bool restoring, Disk& disk,
                      MessageBoxes& boxes) {
  const std::string content = FormatProject(project, kCurrentMarker);
  if (!WithRetry(boxes, [&] { disk.Write(ParameterFilePath(paramDir, project), content); })) return false;
  if (!IsNoDirectory(project.PrimaryDir) && !WriteWithSdata(project, project.PrimaryDir, content, disk, boxes)) {
    return false;
  }
  if (!restoring && !IsNoDirectory(project.BackupDir) &&
      !WriteWithSdata(project, project.BackupDir, content, disk, boxes)) {
    return false;
  }
  project.FormatMarker = kCurrentMarker;
  return true;
}

}  // namespace zova
