// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "master/columns/MasterLines.h"
#include "master/run/RowFile.h"
#include "platform/desktop/PercentProgress.h"
#include "platform/desktop/Platform.h"
#include "scoring/ScoringArrays.h"
#include "subjects/SubjectReader.h"

namespace zova {

/// The working state of a run of either kind of master. Records and texts reuse their memory from row to row.
struct RunContext {
  /// `rowCount` is the number of subjects or groups.
  RunContext(const ProjectParameters& project, const MeasureSelection& selection, int rowCount,
             const Platform& platform)
      : Project(project),
        Selection(selection),
        Files(platform.Files),
        Boxes(platform.Boxes),
        Subjects(project, platform.Files, platform.Bar),
        Master(platform.Files, platform.Boxes, Written),
        Bar(platform.Bar, static_cast<std::size_t>(rowCount), "The master is ", "% Complete.") {}
  RunContext(const RunContext&) = delete;
  RunContext& operator=(const RunContext&) = delete;

  const ProjectParameters& Project;
  const MeasureSelection& Selection;
  Disk& Files;
  MessageBoxes& Boxes;

  std::vector<ResolvedPath> Written;  ///< each file once
  SubjectReader Subjects;
  RowFile Master;
  PercentProgress Bar;

  MasterHeaderLine Header;
  SubjectRecord Record;  ///< the last subject read
  ScoringArrays Scores;  ///< of the last subject or group scored
  std::string Row;       ///< its line of the master
};

}  // namespace zova
