// SPDX-License-Identifier: GPL-3.0-or-later
//
// Rows always go to the master in the primary directory: with a destination elsewhere, that one gets the header alone,
// and an older master in the primary directory keeps its lines above the new rows. This is the rule, and is kept.

#include "master/run/MasterRun.h"

#include "master/run/RunExports.h"
#include "master/run/RunSteps.h"
#include "platform/desktop/FileErrorBoxes.h"
#include "scoring/ScoreSubject.h"
#include "subjects/SubjectFiles.h"
#include "text/TypedText.h"

namespace zova {

namespace {

void AddFailure(std::string& list, const char* opening, const std::string& subjectId) {
  list += list.empty() ? opening : ", ";
  list += subjectId;
}

class MasterWriter : private RunParts {
 public:
  MasterWriter(const ProjectParameters& project, const MasterRequest& request, const Platform& platform)
      : RunParts(project, MasterKind::Individual, request.SubjectFileCount, platform),
        m_request(request),
        m_destination(ResolveDestination(request.Destination, project, platform.Files.Drives())),
        m_rowPath(DefaultMasterPath(project)),
        m_exports(project, request, m_destination, platform.Files, m_boxes, m_result.Written) {
    m_serialCounts.Reset(project.ItemCount, project.TestCount);
  }

  MasterRunResult Run() {
    m_result.Completed = BuildHeader(m_project, m_request.Selection, MasterKind::Individual, m_boxes, m_header) &&
                         m_subjects.List(m_request.SubjectFileCount) && m_exports.Prepare() &&
                         m_files.WriteHeader(m_destination.HeaderPath, m_header) && m_exports.WriteHeaders() &&
                         WriteRows() && m_files.CloseRows() && m_exports.Close() &&
                         (!m_request.Order || WriteSerialPositions());
    return std::move(m_result);
  }

 private:
  bool WriteRows() {
    for (int k = 1; k <= m_request.SubjectFileCount; ++k) {
      const bool scored = WithRunRetry(
          m_boxes, [&] { ReadAndScore(k); }, [&] { return m_subjects.Where(k); });
      if (!scored || !m_files.WriteRow(m_rowPath, m_row)) return false;
      const std::string id = m_subjects.SubjectId(k);
      if (!HandOn({id, m_record, m_scores, m_row})) return false;
      if (m_scores.Categories.AnyArcFailed) {
        AddFailure(m_result.Notices.ArcFailureList,
                   "For at least 1 test, the ARC score was unable to be calculated for subject(s): ", id);
      }
      if (m_scores.Itr.AnyItrFailed) {
        AddFailure(m_result.Notices.BiItrFailureList,
                   "For at least 1 test, Bi-Directional ITR was unable to be calculated for subject(s): ", id);
      }
      if (m_request.Order) {
        AccumulateSerialPositions(ListsOfTrueItems(m_record.Lists, m_project, m_scores), *m_request.Order,
                                  m_serialCounts);
      }
      m_progress.Show(k);
    }
    return true;
  }

  bool HandOn(const ScoredSubject& subject) {
    return m_exports.WriteRows(subject) && (m_request.Sink == nullptr || m_request.Sink->Take(subject));
  }

  void ReadAndScore(int k) {
    m_subjects.Read(k, m_record);
    ScoreSubject(m_record.Lists, m_project, m_header.Families, m_scores);
    BuildMasterRow(m_subjects.SubjectId(k), m_record.Levels, m_project, m_request.Selection, m_scores, m_row);
  }

  bool WriteSerialPositions() {
    return m_files.WriteWhole(
        SerialMasterPath(m_destination, m_project),
        FormatSerialPositionMaster(m_serialCounts, m_project.TestCount, m_request.SubjectFileCount));
  }

  const MasterRequest& m_request;
  MasterDestination m_destination;
  std::string m_rowPath;
  RunExports m_exports;
  SerialCounts m_serialCounts;
};

}  // namespace

MasterDestination ResolveDestination(const std::string& text, const ProjectParameters& project,
                                     const DriveMap& drives) {
  const std::string path = ResolveFile(text, LastPathComponent(DefaultMasterPath(project)), project, drives);
  return {path, std::string(PathPrefix(path))};
}

std::string ResolveFile(const std::string& text, std::string_view name, const ProjectParameters& project,
                        const DriveMap& drives) {
  const std::string_view typed = WithoutOuterBlanks(text);
  std::string path = drives.ToDrivePath(typed);
  const bool hasDrive = HasDrive(path);
  if (hasDrive && path.find_first_of("\\/") != 2) path.insert(2, "\\");
  const bool isDirectory =
      typed.empty() || typed.ends_with('\\') || typed.ends_with('/') || (hasDrive && path.size() == 3);
  const bool isBelowPrimary = !hasDrive && !path.starts_with('/') && path.find('\\') == std::string::npos;
  if (isBelowPrimary) path = JoinPath(project.PrimaryDir, path);
  if (!isDirectory) return path;
  if (!path.ends_with('/')) path = JoinPath(path, "");
  return path.append(name);
}

std::string SerialMasterPath(const MasterDestination& destination, const ProjectParameters& project) {
  return destination.Directory + ResultName(project, ResultFile::SerialMaster);
}

std::string CombinedMasterPath(const MasterDestination& destination, const ProjectParameters& project) {
  return destination.Directory + ResultName(project, ResultFile::CombinedMaster);
}

std::optional<int> CountSubjectFiles(const ProjectParameters& project, Disk& disk, MessageBoxes& boxes) {
  std::size_t found = 0;
  const bool listed = WithRetry(boxes, [&] {
    // A disk that is not there is no empty project; only its `Sdata` may be missing.
    if (!IsNoDirectory(project.PrimaryDir) && !disk.DirectoryExists(project.PrimaryDir)) {
      throw FileError(FileOperation::List, SubjectDirectory(project.PrimaryDir), FileCause::PathNotFound);
    }
    found = ListSubjectFiles(disk, project, SubjectDirectory(project.PrimaryDir)).size();
  });
  if (!listed) return std::nullopt;
  if (found > kMaxSubjects) {
    ShowRunStopped({RunFault::Overflow, "There are " + std::to_string(found) + " subject files; a master can have " +
                                            std::to_string(kMaxSubjects) + "."},
                   boxes);
    return std::nullopt;
  }
  const int count = static_cast<int>(found);
  if (count == 0) {
    Warn(boxes, "There is no data yet entered for this project.");
  }
  return count;
}

MasterRunResult CreateMasters(const ProjectParameters& project, const MasterRequest& request,
                              const Platform& platform) {
  return MasterWriter(project, request, platform).Run();
}

void ShowMasterWarnings(const MasterNotices& notices, MessageBoxes& boxes) {
  for (const std::string& list : {notices.ArcFailureList, notices.BiItrFailureList}) {
    if (list.empty()) continue;
    Warn(boxes, list + ".  You should delete these subjects before analysis.");
  }
}

}  // namespace zova
