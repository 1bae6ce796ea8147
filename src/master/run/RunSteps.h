// SPDX-License-Identifier: GPL-3.0-or-later
//
// The steps that the runs of individual and combined masters share.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "master/columns/MasterLines.h"
#include "master/run/MasterRun.h"
#include "platform/desktop/FileErrorBoxes.h"
#include "platform/desktop/Platform.h"
#include "scoring/RunError.h"
#include "scoring/ScoringArrays.h"
#include "subjects/SubjectRecord.h"

namespace zova {

/// Tells that a run cannot begin: before anything is written there is nothing to retry.
void ShowRunStopped(const RunError& error, MessageBoxes& boxes);

/// False after telling the user that the master would have too many columns.
bool BuildHeader(const ProjectParameters& project, const MeasureSelection& selection, MasterKind kind,
                 MessageBoxes& boxes, MasterHeaderLine& header);

/// Runs a step that reads and scores, anew each time the user asks for it; false when the user gave up, or a file
/// ended early. `where()` says where a run-time error was found.
template <typename Step, typename Where>
bool WithRunRetry(MessageBoxes& boxes, Step&& step, Where&& where) {
  for (;;) {
    try {
      return WithRetry(boxes, step);
    } catch (const RunError& error) {
      if (!ReportRunError(boxes, RunFaultText(error.Fault()), where() + ": " + error.what() + ".")) return false;
    }
  }
}

/// The subject files of a run, read one at a time. Subjects count from 1.
class SubjectReader {
 public:
  SubjectReader(const ProjectParameters& project, Disk& disk, MessageBoxes& boxes, Progress& bar)
      : m_project(project), m_disk(disk), m_boxes(boxes), m_bar(bar) {}

  /// Lists the project's files, of which there were `expected`, or takes the names of an earlier listing. A directory
  /// that is missing is told as such. False when the user gave up.
  bool List(int expected);
  bool Take(std::vector<std::string> names);
  [[nodiscard]] const std::string& Name(int k) const { return m_names[static_cast<std::size_t>(k) - 1]; }
  [[nodiscard]] int Count() const noexcept { return static_cast<int>(m_names.size()); }
  [[nodiscard]] std::string SubjectId(int k) const;
  /// The file and the subject, for the box of a run-time error.
  [[nodiscard]] std::string Where(int k) const;

  /// Fills `record`, and lets the window breathe. Throws FileError, which names the subject; where fewer files were
  /// listed, one that names the directory, and the next call lists anew.
  void Read(int k, SubjectRecord& record);

 private:
  void FindDirectory();
  void TakeNewNames();
  void ReadFile(const std::string& name, SubjectRecord& record);

  const ProjectParameters& m_project;
  Disk& m_disk;
  MessageBoxes& m_boxes;
  Progress& m_bar;
  std::vector<std::string> m_names;
  int m_expected = 0;
  bool m_toldMissing = false;
  ResolvedPath m_directory;
  std::string m_bytes;  // kept between subjects so that a run allocates once
};

/// The files of one master: the whole one, and its pieces in the primary directory when it is wide. All functions are
/// false when the user gave up.
class MasterFiles {
 public:
  /// `written` gets each file once.
  MasterFiles(const ProjectParameters& project, MasterKind kind, Disk& disk, MessageBoxes& boxes,
              std::vector<std::filesystem::path>& written)
      : m_project(project), m_kind(kind), m_disk(disk), m_boxes(boxes), m_written(written) {}

  /// Replaces the file `path` by the header, and the pieces by theirs.
  bool WriteHeader(const std::string& path, const MasterHeaderLine& header);
  /// Adds to the file `path` (the same for all rows) and to the pieces.
  bool WriteRow(const std::string& path, std::string_view row);
  bool CloseRows();
  /// Writes a file that is no master with rows. None may take the place of a project's own file.
  bool WriteWhole(const std::string& path, const std::string& content);

 private:
  [[nodiscard]] bool IsWide() const { return m_columnCount > kMaxColumnsUnsplit; }
  [[nodiscard]] std::string PiecePath(std::size_t piece) const;
  void NoteWritten(const std::filesystem::path& native);
  bool OpenRowFiles(const std::string& path);
  bool AppendLine(AppendFile& file, std::string_view text);

  const ProjectParameters& m_project;
  MasterKind m_kind;
  Disk& m_disk;
  MessageBoxes& m_boxes;
  std::vector<std::filesystem::path>& m_written;
  int m_columnCount = 0;
  std::vector<AppendFile> m_rowFiles;
  bool m_anyRow = false;
  std::string m_line;
};

/// The bar of a run over `total` subjects or groups.
class RunProgress {
 public:
  RunProgress(Progress& bar, int total) : m_bar(bar), m_total(total) {}
  /// After the k-th, from 1; the bar hears only of another percentage.
  void Show(int k);

 private:
  Progress& m_bar;
  int m_total;
  int m_percent = -1;
};

/// What the runs of both kinds of master are made of. They derive from it.
class RunParts {
 protected:
  /// `total`: of subjects or groups.
  RunParts(const ProjectParameters& project, MasterKind kind, int total, const Platform& platform)
      : m_project(project),
        m_boxes(platform.Boxes),
        m_subjects(project, platform.Files, m_boxes, platform.Bar),
        m_files(project, kind, platform.Files, m_boxes, m_result.Written),
        m_progress(platform.Bar, total) {}

  const ProjectParameters& m_project;
  MessageBoxes& m_boxes;
  MasterRunResult m_result;

  SubjectReader m_subjects;
  MasterFiles m_files;
  RunProgress m_progress;
  MasterHeaderLine m_header;
  SubjectRecord m_record;
  ScoringArrays m_scores;
  std::string m_row;
};

}  // namespace zova
