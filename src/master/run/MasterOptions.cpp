// SPDX-License-Identifier: GPL-3.0-or-later

#include "master/run/MasterOptions.h"

#include "master/columns/MasterLines.h"
#include "master/run/RunPaths.h"
#include "project/ProjectLayout.h"

namespace zova {

MasterOptions::MasterOptions(Disk& disk) : m_disk(disk), m_browser(disk, m_silent, "") {}

void MasterOptions::Open(const ProjectParameters& project) {
  m_project = &project;
  Selection.SetDefaultMeasures(project);
  m_browser.Reset();
  m_browser.TryOpen(project.PrimaryDir);
  m_followed = m_browser.Path();
  m_destination = DefaultMasterPath(project);
  m_variable = 0;
  ResetMasterOptions();
}

void MasterOptions::ResetMasterOptions() noexcept {
  ChkItemAnalysis = ChkCombine = ChkExportClean = ChkExportLong = ChkFurther = false;
  m_perGroup.clear();
}

std::string MasterOptions::ColumnCount() const {
  return m_project == nullptr ? "" : ColumnCountText(*m_project, Selection);
}

void MasterOptions::SettleDestination() {
  m_destination = ResolveDestination(m_destination, *m_project, m_disk.Drives());
  try {
    if (!m_disk.DirectoryExists(m_destination)) return;
  } catch (const FileError&) {
    return;  // the run reports it
  }
  m_destination = JoinPath(m_destination, "");
  m_destination = ResolveDestination(m_destination, *m_project, m_disk.Drives());
}

void MasterOptions::FollowBrowser() {
  if (m_browser.Path() == m_followed) return;
  m_followed = m_browser.Path();
  m_destination = JoinPath(m_followed, LastPathComponent(DefaultMasterPath(*m_project)));
}

std::vector<std::string> MasterOptions::VariableChoices() const {
  std::vector<std::string> choices = {"(none)"};
  if (m_project == nullptr) return choices;
  const auto first = m_project->VariableNames.begin();
  choices.insert(choices.end(), first, first + m_project->VariableCount);
  return choices;
}

std::optional<std::size_t> MasterOptions::Separator() const noexcept {
  if (m_variable < 1) return std::nullopt;
  return static_cast<std::size_t>(m_variable) - 1;
}

}  // namespace zova
