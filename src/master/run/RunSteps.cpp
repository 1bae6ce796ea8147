// SPDX-License-Identifier: GPL-3.0-or-later
//
// A master is emptied and written in place: its file may be a link, a device, or lie where no other can be made. It
// holds the header and whole rows, or, where the header itself could not be written, nothing.

#include "master/run/RunSteps.h"

#include <algorithm>
#include <set>
#include "platform/desktop/FileErrorBoxes.h"

#include "master/run/OwnFiles.h"
#include "platform/files/DataFileError.h"
#include "subjects/SubjectFile.h"
#include "subjects/SubjectFiles.h"

namespace zova {

namespace {

constexpr const char* kLineEnd = "\r\n";

}  // namespace

void ShowRunStopped(const RunError& error, MessageBoxes& boxes) {
  boxes.Show({.Text = RunFaultText(error.Fault()),
              .Icon = BoxIcon::Exclamation,
              .Buttons = BoxButtons::Cancel,
              .Default = BoxAnswer::Cancel,
              .Details = error.what()});
}

bool BuildHeader(const ProjectParameters& project, const MeasureSelection& selection, MasterKind kind,
                 MessageBoxes& boxes, MasterHeaderLine& header) {
  try {
    header = BuildMasterHeader(project, selection, kind);
    return true;
  } catch (const RunError& error) {
    ShowRunStopped(error, boxes);
    return false;
  }
}

// It held subjects when the master was asked for, so that it is lost, not empty.
void SubjectReader::FindDirectory() {
  const std::string sdata = SubjectDirectory(m_project.PrimaryDir);
  for (const std::string& directory : {m_project.PrimaryDir, sdata}) {
    if (!m_disk.DirectoryExists(directory)) throw FileError(FileOperation::List, directory, FileCause::PathNotFound);
  }
  m_directory = m_disk.Resolve(sdata, FileOperation::Read);
}

bool SubjectReader::List(int expected) {
  m_expected = expected;
  return WithRetry(m_boxes, [&] {
    FindDirectory();
    m_names = ListSubjectFiles(m_disk, m_project, SubjectDirectory(m_project.PrimaryDir));
  });
}

bool SubjectReader::Take(std::vector<std::string> names) {
  m_names = std::move(names);
  m_expected = Count();
  return WithRetry(m_boxes, [&] { FindDirectory(); });
}

std::string SubjectReader::SubjectId(int k) const { return SubjectIdFromFileName(m_project, Name(k)); }

std::string SubjectReader::Where(int k) const {
  return "'" + JoinPath(SubjectDirectory(m_project.PrimaryDir), Name(k)) + "'\nSubject " + SubjectId(k);
}

void SubjectReader::Read(int k, SubjectRecord& record) {
  m_bar.ProcessEvents();
  if (k > Count() && m_toldMissing) TakeNewNames();
  if (k > Count()) {  // files went while the screen was open; which ones nobody knows
    m_toldMissing = true;
    const std::string found =
        std::to_string(Count()) + " of " + std::to_string(m_expected) + " subject files were found.";
    throw FileError(FileOperation::Read, JoinPath(SubjectDirectory(m_project.PrimaryDir), ""),
                    std::make_error_code(std::errc::no_such_file_or_directory), found);
  }
  try {
    ReadFile(Name(k), record);
  } catch (FileError& error) {
    error.AddDetail("Subject " + SubjectId(k));
    throw;
  }
}

void SubjectReader::ReadFile(const std::string& name, SubjectRecord& record) {
  const ResolvedPath file = Below(m_directory, name);
  m_disk.Read(file, m_bytes);
  ParsingFile(file.Shown, [&] { ParseSubject(m_bytes, m_project, record); });
}

// After a Retry the missing files may be back; those already read are not read again.
void SubjectReader::TakeNewNames() {
  FindDirectory();
  const std::set<std::string> known(m_names.begin(), m_names.end());
  for (std::string& name : ListSubjectFiles(m_disk, m_project, SubjectDirectory(m_project.PrimaryDir))) {
    if (!known.contains(name)) m_names.push_back(std::move(name));
  }
}

std::string MasterFiles::PiecePath(std::size_t piece) const {
  const bool isCombined = m_kind == MasterKind::Combined;
  return zova::PiecePath(m_project, isCombined ? ResultFile::CombinedMaster : ResultFile::Master, piece);
}

bool MasterFiles::WriteWhole(const std::string& path, const std::string& content) {
  return WithRetry(m_boxes, [&] {
    RefuseOwnFile(path, m_project, m_disk);
    m_disk.WriteInPlace(path, content);
    NoteWritten(m_disk.Resolve(path, FileOperation::Write).Native);
  });
}

void MasterFiles::NoteWritten(const std::filesystem::path& native) {
  if (std::find(m_written.begin(), m_written.end(), native) == m_written.end()) m_written.push_back(native);
}

bool MasterFiles::WriteHeader(const std::string& path, const MasterHeaderLine& header) {
  m_columnCount = header.MasterColumnCount;
  if (!WriteWhole(path, header.MasterHeader + kLineEnd)) return false;
  if (!IsWide()) return true;
  std::size_t piece = 0;
  for (const std::string_view text : SplitWideMaster(header.MasterHeader, m_columnCount)) {
    if (!WriteWhole(PiecePath(++piece), std::string(text) + kLineEnd)) return false;
  }
  return true;
}

bool MasterFiles::WriteRow(const std::string& path, std::string_view row) {
  if (m_rowFiles.empty() && !OpenRowFiles(path)) return false;
  if (!AppendLine(m_rowFiles.front(), row)) return false;
  if (IsWide()) {
    std::size_t piece = 0;
    for (const std::string_view text : SplitWideMaster(row, m_columnCount)) {
      if (!AppendLine(m_rowFiles[++piece], text)) return false;
    }
  }
  m_anyRow = true;
  return true;
}

// The whole master first, then the pieces; opened by the first row.
bool MasterFiles::OpenRowFiles(const std::string& path) {
  const int pieceCount = IsWide() ? m_columnCount / kMaxColumnsUnsplit + 1 : 0;
  return WithRetry(m_boxes, [&] {
    RefuseOwnFile(path, m_project, m_disk);
    m_rowFiles.clear();
    m_rowFiles.push_back(m_disk.OpenForAppend(path));
    for (int piece = 1; piece <= pieceCount; ++piece) {
      m_rowFiles.push_back(m_disk.OpenForAppend(PiecePath(static_cast<std::size_t>(piece))));
    }
  });
}

bool MasterFiles::AppendLine(AppendFile& file, std::string_view text) {
  m_line.assign(text);
  m_line += kLineEnd;
  if (!WithRetry(m_boxes, [&] { file.Append(m_line); })) return false;
  if (!m_anyRow) NoteWritten(file.Native());
  return true;
}

// Some file systems tell only now that a row did not get through. Which one is not told, so there is no step to
// repeat: whatever is answered, the run has failed.
bool MasterFiles::CloseRows() {
  try {
    for (AppendFile& file : m_rowFiles) file.Close();
    return true;
  } catch (const FileError& error) {
    ReportFileError(m_boxes, error);
    return false;
  }
}

void RunProgress::Show(int k) {
  const float share = static_cast<float>(k) / static_cast<float>(m_total);
  const int percent = static_cast<int>(share * 100.0F);
  if (percent == m_percent) return;
  m_percent = percent;
  m_bar.Show(percent, "The master is " + std::to_string(percent) + "% Complete.");
}

}  // namespace zova
