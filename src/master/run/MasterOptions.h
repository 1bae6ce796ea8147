// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "master/columns/MeasureSelection.h"
#include "master/groups/NominalGroups.h"
#include "platform/desktop/DirectoryBrowser.h"

namespace zova {

/// What the master screen, its measure panel and the nominal-group panel hold.
class MasterOptions {
 public:
  explicit MasterOptions(Disk& disk);

  /// Default measures, all other boxes unchecked, the destination at its default with the lists on the primary
  /// directory.
  void Open(const ProjectParameters& project);
  /// Unchecks the boxes below and empties the number of subjects per group.
  void ResetMasterOptions() noexcept;

  MeasureSelection Selection;
  bool ChkItemAnalysis = false;
  bool ChkCombine = false;
  bool ChkExportClean = false;  ///< the measures, the recalls as CSV files
  bool ChkExportLong = false;

  [[nodiscard]] const std::string& Destination() const noexcept { return m_destination; }
  void SetDestination(const std::string& text) { m_destination = text; }
  /// Puts the path that the text stands for in its place (ResolveDestination); in a directory that is there, the
  /// master's name.
  void SettleDestination();
  /// Drive and directory lists; an error in moving them is not told.
  DirectoryBrowser& Browser() noexcept { return m_browser; }
  /// The destination is the master's name in the lists' directory, if that is another one than before.
  void FollowBrowser();

  // The nominal-group panel.
  [[nodiscard]] const std::string& PerGroupText() const noexcept { return m_perGroup; }
  void SetPerGroupText(const std::string& text) { m_perGroup = text; }
  /// "(none)", then the names of the variables.
  [[nodiscard]] std::vector<std::string> VariableChoices() const;
  [[nodiscard]] int ChosenVariable() const noexcept { return m_variable; }  ///< index in the choices
  void ChooseVariable(int choice) noexcept { m_variable = choice; }
  [[nodiscard]] std::optional<std::size_t> Separator() const noexcept;

 private:
  // What the lists would say of a drive that is not ready.
  struct SilentBoxes final : MessageBoxes {
    BoxAnswer Show(const MessageBox& box) override { return box.Default; }
  };

  Disk& m_disk;
  SilentBoxes m_silent;
  const ProjectParameters* m_project = nullptr;
  DirectoryBrowser m_browser;
  std::string m_followed;  // the lists' directory that the destination last had to do with
  std::string m_destination;
  std::string m_perGroup;
  int m_variable = 0;
};

}  // namespace zova
