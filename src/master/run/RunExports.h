// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "master/exports/CleanExport.h"
#include "master/exports/LongExport.h"
#include "master/run/MasterRun.h"
#include "master/run/RunSteps.h"

namespace zova {

/// The CSV files that a run of the individual master writes beside it, those that its request asks for. All functions
/// are false when the user gave up.
class RunExports {
 public:
  /// `written` gets each file once.
  RunExports(const ProjectParameters& project, const MasterRequest& request, const MasterDestination& destination,
             Disk& disk, MessageBoxes& boxes, std::vector<std::filesystem::path>& written)
      : m_project(project),
        m_request(request),
        m_destination(destination),
        m_disk(disk),
        m_boxes(boxes),
        m_written(written) {}

  /// Before anything is written: finds the serial order that studied items stand in (this run's, else the saved one),
  /// and refuses a path without its directory and one that is another file of the run (pieces aside) or the project's.
  bool Prepare();
  bool WriteHeaders();
  bool WriteRows(const ScoredSubject& subject);
  bool Close();

 private:
  template <typename Format>
  struct Export {
    std::string Path;
    MasterFiles Files;
    Format Rows;
  };

  [[nodiscard]] std::string PathOf(const std::string& asked, ResultFile file) const;
  [[nodiscard]] MasterFiles MakeFiles() const;
  bool AreApart();
  template <typename Format>
  static bool WriteHeader(std::optional<Export<Format>>& file);
  template <typename Format>
  bool Write(const ScoredSubject& subject, std::optional<Export<Format>>& file);

  const ProjectParameters& m_project;
  const MasterRequest& m_request;
  const MasterDestination& m_destination;
  Disk& m_disk;
  MessageBoxes& m_boxes;
  std::vector<std::filesystem::path>& m_written;
  std::optional<Export<CleanExport>> m_clean;
  std::optional<Export<LongExport>> m_long;
  std::string m_rows;
};

}  // namespace zova
