// SPDX-License-Identifier: GPL-3.0-or-later

#include "master/run/RunExports.h"

namespace zova {

void RunExports::Open(const RunPaths& paths, FurtherColumns further, const FurtherData& data) {
  const auto newFile = [&] { return RowFile(m_context.Files, m_context.Boxes, m_context.Written); };
  if (!paths.Clean.empty()) {
    m_clean.emplace(
        Export<CleanExport>{paths.Clean, CleanExport(m_context.Project, m_context.Selection, further), newFile()});
  }
  if (!paths.Long.empty()) {
    m_long.emplace(Export<LongExport>{paths.Long, LongExport(m_context.Project, data), newFile()});
  }
}

// A CSV is never cut into pieces.
template <typename Format>
bool RunExports::WriteHeader(std::optional<Export<Format>>& file) {
  return !file || file->File.WriteHeader({file->Path, file->Path, {}}, {file->Lines.Header(), 0, {}});
}

bool RunExports::WriteCleanHeader() { return WriteHeader(m_clean); }
bool RunExports::WriteLongHeader() { return WriteHeader(m_long); }

template <typename Format>
bool RunExports::Write(const ScoredSubject& subject, std::optional<Export<Format>>& file) {
  if (!file) return true;
  file->Lines.Build(subject, m_rows);
  return m_rows.empty() || file->File.WriteRow(m_rows);  // empty: a project without tests
}

bool RunExports::WriteRows(const ScoredSubject& subject) { return Write(subject, m_clean) && Write(subject, m_long); }

bool RunExports::TakeBackRows() {
  if (m_long) m_long->Lines.Restart();
  return (!m_clean || m_clean->File.TakeBackRows()) && (!m_long || m_long->File.TakeBackRows());
}

bool RunExports::Close() { return (!m_clean || m_clean->File.Close()) && (!m_long || m_long->File.Close()); }

}  // namespace zova
