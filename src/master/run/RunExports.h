// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>

#include "master/exports/CleanExport.h"
#include "master/exports/LongExport.h"
#include "master/run/RunContext.h"

namespace zova {

/// The CSV files that a run of the individual master also writes, if it has paths for them. Writing functions return
/// false when the user cancels.
class RunExports {
 public:
  explicit RunExports(RunContext& context) : m_context(context) {}

  /// Writes nothing yet. `data` must outlive this.
  void Open(const RunPaths& paths, FurtherColumns further, const FurtherData& data);
  bool WriteCleanHeader();
  bool WriteLongHeader();
  bool WriteRows(const ScoredSubject& subject);
  bool TakeBackRows();
  bool Close();
  [[nodiscard]] std::size_t ListsWithoutOrder() const { return m_long ? m_long->Lines.ListsWithoutOrder() : 0; }

 private:
  template <typename Format>
  struct Export {
    std::string Path;
    Format Lines;
    RowFile File;
  };

  template <typename Format>
  static bool WriteHeader(std::optional<Export<Format>>& file);
  template <typename Format>
  bool Write(const ScoredSubject& subject, std::optional<Export<Format>>& file);

  RunContext& m_context;
  std::optional<Export<CleanExport>> m_clean;
  std::optional<Export<LongExport>> m_long;
  std::string m_rows;
};

}  // namespace zova
