// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "master/columns/MeasureSelection.h"
#include "master/exports/ScoredSubject.h"
#include "master/groups/SerialPositions.h"
#include "platform/desktop/Platform.h"
#include "project/ProjectParameters.h"

namespace zova {

/// What a run is asked for; fixed when it starts.
struct MasterRequest {
  MeasureSelection Selection;
  /// Number of subject files when the master was asked for. With fewer at the start, the run stops with a file error
  /// after the last; additional ones are not read.
  int SubjectFileCount = 0;
  std::string Destination;           ///< content of the destination box
  std::optional<SerialOrder> Order;  ///< asks for the serial-position master; every position once
  /// Ask for a CSV of the measures, of the recalls (CleanExport.h, LongExport.h): a path like `Destination`; "" is
  /// "AB Clean.csv", "AB Long.csv" in the destination's directory.
  std::optional<std::string> CleanFile = std::nullopt;
  std::optional<std::string> LongFile = std::nullopt;
  bool CombinedFollows = false;       ///< a combined master is to be made next, so that nothing may take its place
  ScoredSubjectSink* Sink = nullptr;  ///< gets every subject; not owned
};

/// The subjects for whom a score could not be computed, as notices; "" when there is none.
struct MasterNotices {
  std::string ArcFailureList;
  std::string BiItrFailureList;
};

struct MasterRunResult {
  bool Completed = false;  ///< false: the run stopped; rows written until then stay
  MasterNotices Notices;
  std::vector<std::filesystem::path> Written;  ///< each file once, in the order of writing
};

/// Writes the individual master: header first, to the destination; then a row per subject file, to the master in the
/// primary directory, whatever the destination. A master of more than 256 columns is also written in pieces beside
/// the data. Then, if asked for, the serial-position master into the destination's directory.
/// Nothing is shown at the end of a completed run: notices and final message are the caller's.
MasterRunResult CreateMasters(const ProjectParameters& project, const MasterRequest& request, const Platform& platform);

/// Shows what `notices` holds, the ARC notice first.
void ShowMasterWarnings(const MasterNotices& notices, MessageBoxes& boxes);

}  // namespace zova
