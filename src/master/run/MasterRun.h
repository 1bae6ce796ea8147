// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "master/columns/FurtherFamilies.h"
#include "master/columns/MeasureSelection.h"
#include "master/exports/ScoredSubject.h"
#include "master/groups/SerialPositions.h"
#include "platform/desktop/Platform.h"
#include "project/ProjectParameters.h"
#include "subjects/SubjectFile.h"

namespace zova {

/// The input of a run.
struct MasterRequest {
  MeasureSelection Selection;
  /// Number of subject files when the master was requested. With fewer at the start, the run stops with a file error
  /// after the last one; additional files are not read.
  int SubjectFileCount = 0;
  std::string Destination;           ///< content of the destination box
  std::optional<SerialOrder> Order;  ///< requests the serial-position master; every position once
  /// Request a CSV of the measures or of the recalls (CleanExport.h, LongExport.h): a path like `Destination`; "" is
  /// "AB Clean.csv" or "AB Long.csv" in the destination's directory.
  std::optional<std::string> CleanFile = std::nullopt;
  std::optional<std::string> LongFile = std::nullopt;
  /// Which further measures the CSV and `Sink` get.
  FurtherColumns Further = FurtherColumns::None;
  bool CombinedFollows = false;  ///< a combined master follows, so no other file may have its path
  std::optional<std::string> GroupsFile = std::nullopt;  ///< nor that of the CSV of the groups, a path like the others
  ScoredSubjectSink* Sink = nullptr;                     ///< receives every subject; not owned
};

/// The subjects of whom the user should know, as notices, and files; "" or empty when there is none.
struct MasterNotices {
  std::string ArcFailureList;
  std::string BiItrFailureList;
  std::string TextReadAsZeroList;
  std::string BlankInsideList;
  std::vector<std::string> OlderPieces;    ///< names of files that an earlier, wider master left
  std::vector<std::string> DanglingLinks;  ///< names like a subject's file that lead to no file
  std::size_t ListsWithoutOrder = 0;       ///< in the CSV of the recalls: those whose order of study is not known
};

struct MasterRunResult {
  bool Completed = false;       ///< false: the run stopped; rows written until then stay
  bool IsMasterWhole = false;   ///< the individual master has all its rows, whatever came after it
  std::optional<int> RowCount;  ///< of the individual master; nullopt while its file is as it was
  MasterNotices Notices;
  std::vector<ResolvedPath> Written;  ///< each file once, in the order of writing
};

/// Writes the individual master: the header to the destination, then one row per subject file to the master in the
/// primary directory, whatever the destination. A master of more than 256 columns is also written in pieces to the
/// primary directory. Then, if requested, writes the serial-position master into the destination's directory. The
/// caller shows the notices and the final message.
MasterRunResult CreateMasters(const ProjectParameters& project, const MasterRequest& request, const Platform& platform);

/// What `ListsWithoutOrder` means for other programs; "" when all lists have an order.
std::string MissingOrderText(const MasterNotices& notices);

/// Adds the pieces that a combined master's notices name to those of the individual one.
void AddOlderPieces(const MasterNotices& combined, MasterNotices& notices);

/// Adds a subject to the lists that it belongs to.
void NoteSubject(const std::string& id, const ScoringArrays& scores, const SubjectOddities& oddities,
                 MasterNotices& notices);

/// What `notices` holds as sentences, in the order of its fields.
std::vector<std::string> MasterWarnings(const MasterNotices& notices);
/// Shows each.
void ShowMasterWarnings(const MasterNotices& notices, MessageBoxes& boxes);

}  // namespace zova
