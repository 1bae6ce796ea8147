// SPDX-License-Identifier: GPL-3.0-or-later
//
// A master is emptied and written in place: its file may be a link, a device, or in a directory where no file can be
// created. It has the header and whole rows, or is empty when the header could not be written.

#include "master/run/RowFile.h"

#include <algorithm>

#include "platform/desktop/FileErrorBoxes.h"

namespace zova {

namespace {

constexpr const char* kLineEnd = "\r\n";

void AddOnce(const ResolvedPath& path, std::vector<ResolvedPath>& written) {
  if (std::find(written.begin(), written.end(), path) == written.end()) written.push_back(path);
}

}  // namespace

bool WriteRunFile(const std::string& path, const std::string& content, Disk& disk, MessageBoxes& boxes,
                  std::vector<ResolvedPath>& written) {
  return WithRetry(boxes, [&] {
    disk.WriteInPlace(path, content);
    AddOnce(disk.Resolve(path, FileOperation::Write), written);
  });
}

bool RowFile::WriteLine(const std::string& path, std::string_view text) {
  return WriteRunFile(path, std::string(text) + kLineEnd, m_disk, m_boxes, m_written);
}

bool RowFile::WriteHeader(const RowPaths& paths, const MasterHeaderLine& header) {
  m_paths = paths;
  m_columnCount = header.MasterColumnCount;
  if (!WriteLine(m_paths.Header, header.MasterHeader)) return false;
  if (m_paths.Pieces.empty()) return true;
  auto path = m_paths.Pieces.begin();
  for (const std::string_view piece : SplitWideMaster(header.MasterHeader, m_columnCount)) {
    if (!WriteLine(*path++, piece)) return false;
  }
  return true;
}

bool RowFile::WriteRow(std::string_view row) {
  if (m_files.empty() && !OpenForRows()) return false;
  if (!AppendLine(m_files.front(), row)) return false;
  if (!m_paths.Pieces.empty()) {
    auto file = m_files.begin();
    for (const std::string_view piece : SplitWideMaster(row, m_columnCount)) {
      if (!AppendLine(*++file, piece)) return false;
    }
  }
  m_anyRow = true;
  return true;
}

bool RowFile::OpenForRows() {
  return WithRetry(m_boxes, [&] {
    m_files.clear();
    m_files.push_back(m_disk.OpenForAppend(m_paths.Rows));
    for (const std::string& piece : m_paths.Pieces) m_files.push_back(m_disk.OpenForAppend(piece));
  });
}

bool RowFile::AppendLine(AppendFile& file, std::string_view text) {
  m_line.assign(text);
  m_line += kLineEnd;
  if (!WithRetry(m_boxes, [&] { file.Append(m_line); })) return false;
  if (!m_anyRow) AddOnce(file.Path(), m_written);
  return true;
}

bool RowFile::TakeBackRows() {
  return std::all_of(m_files.begin(), m_files.end(),
                     [&](AppendFile& file) { return WithRetry(m_boxes, [&] { file.TakeBack(); }); });
}

// Some file systems report only now that a row did not get through.
bool RowFile::Close() {
  return std::all_of(m_files.begin(), m_files.end(),
                     [&](AppendFile& file) { return WithRetry(m_boxes, [&] { file.Close(); }); });
}

}  // namespace zova
