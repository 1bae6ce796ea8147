// SPDX-License-Identifier: GPL-3.0-or-later

#include "master/run/RunExports.h"

#include <algorithm>
#include "platform/desktop/FileErrorBoxes.h"

#include "master/groups/SavedOrders.h"
#include "master/run/OwnFiles.h"

namespace zova {

bool RunExports::Prepare() {
  if (m_request.CleanFile) {
    m_clean.emplace(Export<CleanExport>{PathOf(*m_request.CleanFile, ResultFile::CleanCsv), MakeFiles(),
                                        CleanExport(m_project, m_request.Selection)});
  }
  if (m_request.LongFile) {
    std::optional<SerialOrder> order = m_request.Order;
    if (!order && !WithRetry(m_boxes, [&] { order = ReadSavedSerialOrder(m_disk, m_project); })) return false;
    m_long.emplace(Export<LongExport>{PathOf(*m_request.LongFile, ResultFile::LongCsv), MakeFiles(),
                                      LongExport(m_project, order)});
  }
  return AreApart();
}

std::string RunExports::PathOf(const std::string& asked, ResultFile file) const {
  const std::string own = ResultName(m_project, file);
  return asked.empty() ? m_destination.Directory + own : ResolveFile(asked, own, m_project, m_disk.Drives());
}

// A CSV has no pieces, however many columns it has.
MasterFiles RunExports::MakeFiles() const { return {m_project, MasterKind::Individual, m_disk, m_boxes, m_written}; }

// Header and rows are of one master. Of all else the later file would take the place of the earlier one.
bool RunExports::AreApart() {
  std::vector<std::string> paths = {m_destination.HeaderPath, DefaultMasterPath(m_project)};
  const std::size_t first = paths.size();
  if (m_request.Order) paths.push_back(SerialMasterPath(m_destination, m_project));
  if (m_request.CombinedFollows) paths.push_back(CombinedMasterPath(m_destination, m_project));
  if (m_clean) paths.push_back(m_clean->Path);
  if (m_long) paths.push_back(m_long->Path);
  return WithRetry(m_boxes, [&] {
    std::vector<ResolvedPath> earlier;
    for (const std::string& path : paths) {
      RefuseOwnFile(path, m_project, m_disk);
      ResolvedPath file = m_disk.Resolve(path, FileOperation::Write);
      // Reported before a master is replaced.
      if (m_disk.Kind(DirectoryOf(file), FileOperation::Write) != EntryKind::Directory) {
        throw FileError(FileOperation::Write, path, std::make_error_code(std::errc::no_such_file_or_directory));
      }
      const auto isTaken = [&](const ResolvedPath& other) { return m_disk.IsSame(file, other); };
      if (earlier.size() >= first && std::any_of(earlier.begin(), earlier.end(), isTaken)) {
        throw FileError(FileOperation::Write, path, std::make_error_code(std::errc::file_exists),
                        "Each file of a run needs a name of its own.");
      }
      earlier.push_back(std::move(file));
    }
  });
}

template <typename Format>
bool RunExports::WriteHeader(std::optional<Export<Format>>& file) {
  return !file || file->Files.WriteHeader(file->Path, {file->Rows.Header(), 0, {}});
}

bool RunExports::WriteHeaders() { return WriteHeader(m_clean) && WriteHeader(m_long); }

template <typename Format>
bool RunExports::Write(const ScoredSubject& subject, std::optional<Export<Format>>& file) {
  if (!file) return true;
  file->Rows.Build(subject, m_rows);
  return m_rows.empty() || file->Files.WriteRow(file->Path, m_rows);  // empty: a project without tests
}

bool RunExports::WriteRows(const ScoredSubject& subject) { return Write(subject, m_clean) && Write(subject, m_long); }

bool RunExports::Close() { return (!m_clean || m_clean->Files.CloseRows()) && (!m_long || m_long->Files.CloseRows()); }

}  // namespace zova
