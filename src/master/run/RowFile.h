// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "master/columns/MasterLines.h"
#include "master/run/RunPaths.h"
#include "platform/desktop/MessageBoxes.h"
#include "platform/files/Disk.h"

namespace zova {

/// A file with a header and rows, and the pieces of a wide master. Every fault shows a box; all functions return false
/// when the user cancels.
class RowFile {
 public:
  /// `written` gets each file once, in the order of writing.
  RowFile(Disk& disk, MessageBoxes& boxes, std::vector<ResolvedPath>& written)
      : m_disk(disk), m_boxes(boxes), m_written(written) {}

  /// Overwrites the header's file and the pieces with their header lines.
  bool WriteHeader(const RowPaths& paths, const MasterHeaderLine& header);
  bool WriteRow(std::string_view row);
  /// Takes back all rows; the headers stay.
  bool TakeBackRows();
  bool Close();

 private:
  [[nodiscard]] bool WriteLine(const std::string& path, std::string_view text);
  bool OpenForRows();
  bool AppendLine(AppendFile& file, std::string_view text);

  Disk& m_disk;
  MessageBoxes& m_boxes;
  std::vector<ResolvedPath>& m_written;
  RowPaths m_paths;
  int m_columnCount = 0;
  std::vector<AppendFile> m_files;  // the whole file first, then the pieces; opened by the first row
  bool m_anyRow = false;
  std::string m_line;
};

/// Replaces a file by `content`. False when the user cancels.
bool WriteRunFile(const std::string& path, const std::string& content, Disk& disk, MessageBoxes& boxes,
                  std::vector<ResolvedPath>& written);

}  // namespace zova
