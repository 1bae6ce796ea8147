// SPDX-License-Identifier: GPL-3.0-or-later

#include "master/run/RunStart.h"

#include "platform/desktop/FileErrorBoxes.h"
#include "project/ProjectLayout.h"
#include "scoring/ScoringError.h"

namespace zova {

namespace {

// Before anything is written there is nothing to retry.
void ShowRunStopped(const ScoringError& error, MessageBoxes& boxes) {
  boxes.Show({.Text = ScoringFaultText(error.Fault()),
              .Icon = BoxIcon::Exclamation,
              .Buttons = BoxButtons::Cancel,
              .Default = BoxAnswer::Cancel,
              .Details = error.what()});
}

}  // namespace

std::optional<int> CountSubjectFiles(const ProjectParameters& project, Disk& disk, MessageBoxes& boxes) {
  std::size_t found = 0;
  const bool listed = WithRetry(boxes, [&] {
    const std::string sdata = SubjectDirectory(project.PrimaryDir);
    // Only `Sdata` may be missing.
    if (!IsNoDirectory(project.PrimaryDir)) RequireDirectory(disk, project.PrimaryDir, FileOperation::List, sdata);
    found = ListSubjectFiles(disk, project, sdata).size();
  });
  if (!listed) return std::nullopt;
  if (found > kMaxSubjects) {
    ShowRunStopped(
        {ScoringFault::Overflow, "There are " + std::to_string(found) + " subject files; a master can have " +
                                     std::to_string(kMaxSubjects) + "."},
        boxes);
    return std::nullopt;
  }
  const int count = static_cast<int>(found);
  if (count == 0) {
    std::string details;
    for (const std::string& name : DanglingSubjectLinks(project, disk)) {
      details += (details.empty() ? "" : "\n") + ("The link '" + name + "' leads to no file.");
    }
    Warn(boxes, "There is no data yet entered for this project.", details);
  }
  return count;
}

std::vector<std::string> DanglingSubjectLinks(const ProjectParameters& project, Disk& disk) {
  try {
    return disk.ListDanglingLinks(SubjectDirectory(project.PrimaryDir), project.Abbreviation, kDataFileEnd);
  } catch (const FileError&) {
    return {};  // where the files are listed the fault is reported
  }
}

bool BuildHeader(const ProjectParameters& project, const MeasureSelection& selection, MasterKind kind,
                 MessageBoxes& boxes, MasterHeaderLine& header) {
  try {
    header = BuildMasterHeader(project, selection, kind);
    return true;
  } catch (const ScoringError& error) {
    ShowRunStopped(error, boxes);
    return false;
  }
}

}  // namespace zova
