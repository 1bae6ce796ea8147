// SPDX-License-Identifier: GPL-3.0-or-later
//
// A master is replaced by its header in one step, so that until then the old one is whole; from then on the file holds
// the header and whole rows only. Rows always go to the master in the primary directory: with a destination elsewhere,
// that one gets the header alone, and an older master in the primary directory keeps its lines above the new rows. This
// is the rule, and is kept.

#include "master/MasterRun.h"

#include <algorithm>

#include "master/MasterLines.h"
#include "platform/DataFileError.h"
#include "platform/FileErrorHandler.h"
#include "scoring/ScoreSubject.h"
#include "subjects/SubjectFile.h"
#include "subjects/SubjectFiles.h"
#include "text/Encoding.h"

namespace zova {

namespace {

constexpr const char* kLineEnd = "\r\n";

std::string PiecePath(const ProjectParameters& project, std::size_t piece) {
  return JoinPath(project.PrimaryDir, project.Abbreviation + " Master" + std::to_string(piece) + ".txt");
}

void AddFailure(std::string& list, const char* opening, const std::string& subjectId) {
  list += list.empty() ? opening : ", ";
  list += subjectId;
}

// Before anything is written there is nothing to retry.
void ShowRunStopped(const RunError& error, MessageBoxes& boxes) {
  boxes.Show({.Text = RunFaultText(error.Fault()),
              .Icon = BoxIcon::Exclamation,
              .Buttons = BoxButtons::Cancel,
              .Default = BoxAnswer::Cancel,
              .Details = error.what()});
}

class MasterWriter {
 public:
  MasterWriter(const ProjectParameters& project, const MasterRequest& request, const RunSurroundings& surroundings)
      : m_project(project),
        m_request(request),
        m_disk(surroundings.Files),
        m_boxes(surroundings.Boxes),
        m_bar(surroundings.Bar),
        m_errors(surroundings.Boxes),
        m_destination(ResolveDestination(request.Destination, project, m_disk.Drives())) {
    m_serialCounts.Reset(project.ItemCount, project.TestCount);
  }

  MasterRunResult Run() {
    m_result.Completed = BuildHeader() && ListFiles() && WriteHeaders() && WriteRows() && CloseRowFiles() &&
                         (!m_request.Order || WriteSerialPositions());
    return std::move(m_result);
  }

 private:
  bool BuildHeader() {
    try {
      m_header = BuildMasterHeader(m_project, m_request.Selection, MasterKind::Individual);
      return true;
    } catch (const RunError& error) {
      ShowRunStopped(error, m_boxes);
      return false;
    }
  }

  [[nodiscard]] bool IsWide() const { return m_header.MasterColumnCount > kMaxColumnsUnsplit; }

  bool ListFiles() {
    const std::string directory = SubjectDirectory(m_project.PrimaryDir);
    return WithRetry(m_errors, [&] {
      m_names = ListSubjectFiles(m_disk, m_project, directory);
      m_nativeSubjects = m_disk.Resolve(directory, FileOperation::Read);
    });
  }

  bool WriteWhole(const std::string& path, const std::string& content) {
    return WithRetry(m_errors, [&] {
      RefuseDataFile(path);
      m_disk.Write(path, content, Disk::Durability::Buffered);
      NoteWritten(m_disk.Resolve(path, FileOperation::Write));
    });
  }

  // A destination is taken as it stands, but a master never replaces what it is made from.
  void RefuseDataFile(const std::string& path) {
    const std::filesystem::path native = m_disk.Resolve(path, FileOperation::Write);
    const std::string name = PathText(native.filename());
    const bool isSubject =
        native.parent_path() == m_nativeSubjects && std::find(m_names.begin(), m_names.end(), name) != m_names.end();
    if (isSubject || (EndsIgnoringCase(name, ".prm") && m_disk.FileExists(path))) {
      throw FileError(FileOperation::Write, path, std::make_error_code(std::errc::file_exists),
                      "A master cannot take the place of a project's own file.");
    }
  }

  void NoteWritten(const std::filesystem::path& native) {
    auto& written = m_result.Written;
    if (std::find(written.begin(), written.end(), native) == written.end()) written.push_back(native);
  }

  bool WriteHeaders() {
    if (!WriteWhole(m_destination.HeaderPath, m_header.MasterHeader + kLineEnd)) return false;
    if (!IsWide()) return true;
    std::size_t piece = 0;
    for (const std::string_view text : SplitWideMaster(m_header.MasterHeader, m_header.MasterColumnCount)) {
      if (!WriteWhole(PiecePath(m_project, ++piece), std::string(text) + kLineEnd)) return false;
    }
    return true;
  }

  bool WriteRows() {
    for (int k = 1; k <= m_request.SubjectFileCount; ++k) {
      if (!ScoreSubjectFile(k) || !WriteRow()) return false;
      const std::string id = CurrentSubjectId(k);
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
      ShowProgress(k);
    }
    return true;
  }

  [[nodiscard]] std::string CurrentSubjectId(int k) const {
    return SubjectIdFromFileName(m_project, m_names[static_cast<std::size_t>(k) - 1]);
  }

  // Reads and scores file k, from 1; a subject is read again when the user asks for it.
  bool ScoreSubjectFile(int k) {
    for (;;) {
      try {
        ReadAndScore(k);
        return true;
      } catch (const FileError& error) {
        if (!m_errors.Report(error) || error.Cause() == FileCause::EndOfData) return false;
      } catch (const RunError& error) {
        const std::string& name = m_names[static_cast<std::size_t>(k) - 1];
        const std::string details = "'" + JoinPath(SubjectDirectory(m_project.PrimaryDir), name) + "'\nSubject " +
                                    CurrentSubjectId(k) + ": " + error.what() + ".";
        if (!m_errors.ReportRunError(RunFaultText(error.Fault()), details)) return false;
      }
    }
  }

  void ReadAndScore(int k) {
    const std::string directory = SubjectDirectory(m_project.PrimaryDir);
    const auto index = static_cast<std::size_t>(k) - 1;
    if (index >= m_names.size()) TakeNewNames();
    if (index >= m_names.size()) {  // files went while the screen was open
      throw FileError(FileOperation::Read, JoinPath(directory, ""),
                      std::make_error_code(std::errc::no_such_file_or_directory));
    }
    const std::string path = JoinPath(directory, m_names[index]);
    m_disk.ReadNative(m_nativeSubjects / PathFromText(m_names[index]), path, m_bytes);
    ParsingFile(path, [&] { ParseSubject(m_bytes, m_project, m_record); });
    ScoreSubject(m_record.Lists, m_project, m_header.Families, m_scores);
    BuildMasterRow(CurrentSubjectId(k), m_record.Levels, m_project, m_request.Selection, m_scores, m_row);
  }

  // After a Retry the missing files may be back; those already read are not read again.
  void TakeNewNames() {
    for (std::string& name : ListSubjectFiles(m_disk, m_project, SubjectDirectory(m_project.PrimaryDir))) {
      if (std::find(m_names.begin(), m_names.end(), name) == m_names.end()) m_names.push_back(std::move(name));
    }
  }

  bool WriteRow() {
    if (m_rowFiles.empty() && !OpenRowFiles()) return false;
    if (!AppendLine(m_rowFiles.front(), m_row)) return false;
    if (IsWide()) {
      std::size_t piece = 0;
      for (const std::string_view text : SplitWideMaster(m_row, m_header.MasterColumnCount)) {
        if (!AppendLine(m_rowFiles[++piece], text)) return false;
      }
    }
    m_anyRow = true;
    return true;
  }

  // The whole master first, then the pieces; opened by the first row.
  bool OpenRowFiles() {
    const int pieceCount = IsWide() ? m_header.MasterColumnCount / kMaxColumnsUnsplit + 1 : 0;
    return WithRetry(m_errors, [&] {
      m_rowFiles.clear();
      m_rowFiles.push_back(m_disk.OpenForAppend(DefaultMasterPath(m_project)));
      for (int piece = 1; piece <= pieceCount; ++piece) {
        m_rowFiles.push_back(m_disk.OpenForAppend(PiecePath(m_project, static_cast<std::size_t>(piece))));
      }
    });
  }

  bool AppendLine(AppendFile& file, std::string_view text) {
    m_line.assign(text);
    m_line += kLineEnd;
    if (!WithRetry(m_errors, [&] { file.Append(m_line); })) return false;
    if (!m_anyRow) NoteWritten(file.Native());
    return true;
  }

  // Some file systems tell only now that a row did not get through. Which one is not told, so there is no step to
  // repeat: whatever is answered, the run has failed.
  bool CloseRowFiles() {
    try {
      for (AppendFile& file : m_rowFiles) file.Close();
      return true;
    } catch (const FileError& error) {
      m_errors.Report(error);
      return false;
    }
  }

  void ShowProgress(int k) {
    const float share = static_cast<float>(k) / static_cast<float>(m_request.SubjectFileCount);
    const int percent = static_cast<int>(share * 100.0F);
    if (percent == m_percent) return;
    m_percent = percent;
    m_bar.Show(percent, "The master is " + std::to_string(percent) + "% Complete.");
  }

  bool WriteSerialPositions() {
    return WriteWhole(m_destination.Directory + m_project.Abbreviation + " Serial Position Master.txt",
                      FormatSerialPositionMaster(m_serialCounts, m_project.TestCount, m_request.SubjectFileCount));
  }

  const ProjectParameters& m_project;
  const MasterRequest& m_request;
  Disk& m_disk;
  MessageBoxes& m_boxes;
  Progress& m_bar;
  FileErrorHandler m_errors;
  MasterDestination m_destination;
  MasterRunResult m_result;

  MasterHeaderLine m_header;
  std::vector<std::string> m_names;
  std::filesystem::path m_nativeSubjects;
  std::vector<AppendFile> m_rowFiles;
  bool m_anyRow = false;
  SubjectRecord m_record;
  ScoringArrays m_scores;
  SerialCounts m_serialCounts;
  int m_percent = -1;

  // kept between subjects so that a run allocates once
  std::string m_bytes;
  std::string m_row;
  std::string m_line;
};

}  // namespace

std::string DefaultMasterPath(const ProjectParameters& project) {
  return JoinPath(project.PrimaryDir, project.Abbreviation + " Master.txt");
}

MasterDestination ResolveDestination(const std::string& text, const ProjectParameters& project,
                                     const DriveMap& drives) {
  std::string path = drives.ToDrivePath(text);
  if (path.empty()) {
    path = DefaultMasterPath(project);
  } else if (path.find_first_of("\\/") == std::string::npos) {
    path = JoinPath(project.PrimaryDir, path);
  }
  return {path, path.substr(0, path.size() - LastPathComponent(path).size())};
}

std::optional<int> CountSubjectFiles(const ProjectParameters& project, Disk& disk, MessageBoxes& boxes) {
  FileErrorHandler errors(boxes);
  std::size_t found = 0;
  const bool listed = WithRetry(errors, [&] {
    // A disk that is not there is no empty project; only its `Sdata` may be missing.
    if (!IsNoDirectory(project.PrimaryDir) && !disk.DirectoryExists(project.PrimaryDir)) {
      throw FileError(FileOperation::List, SubjectDirectory(project.PrimaryDir), FileCause::PathNotFound);
    }
    found = ListSubjectFiles(disk, project, SubjectDirectory(project.PrimaryDir)).size();
  });
  if (!listed) return std::nullopt;
  if (found > INT16_MAX) {
    ShowRunStopped({RunFault::Overflow, "There are " + std::to_string(found) + " subject files; a master can have " +
                                            std::to_string(INT16_MAX) + "."},
                   boxes);
    return std::nullopt;
  }
  const int count = static_cast<int>(found);
  if (count == 0) {
    boxes.Show({.Text = "There is no data yet entered for this project.", .Icon = BoxIcon::Exclamation});
  }
  return count;
}

MasterRunResult CreateMasters(const ProjectParameters& project, const MasterRequest& request,
                              const RunSurroundings& surroundings) {
  return MasterWriter(project, request, surroundings).Run();
}

void ShowMasterWarnings(const MasterNotices& notices, MessageBoxes& boxes) {
  for (const std::string& list : {notices.ArcFailureList, notices.BiItrFailureList}) {
    if (list.empty()) continue;
    boxes.Show({.Text = list + ".  You should delete these subjects before analysis.", .Icon = BoxIcon::Exclamation});
  }
}

}  // namespace zova
