// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "master/columns/FurtherFamilies.h"
#include "master/columns/MeasureSelection.h"
#include "master/groups/NominalGroups.h"
#include "platform/desktop/DirectoryBrowser.h"

namespace zova {

/// The state of the master screen, its measure panel and the nominal-group panel.
class MasterOptions {
 public:
  explicit MasterOptions(Disk& disk);

  /// Sets default measures, unchecks all other boxes, and sets the default destination, with the lists on the primary
  /// directory.
  void Open(const ProjectParameters& project);
  /// Unchecks the boxes below and empties the number of subjects per group.
  void ResetMasterOptions() noexcept;

  MeasureSelection Selection;
  bool ChkItemAnalysis = false;
  bool ChkCombine = false;
  bool ChkExportClean = false;  ///< measures and recalls as CSV files
  bool ChkExportLong = false;
  bool ChkFurther = false;  ///< the further measures, too, in the CSV of the measures
  /// Without that CSV the box of the further measures is disabled, and they are not computed.
  [[nodiscard]] FurtherColumns Further() const noexcept {
    return ChkExportClean && ChkFurther ? FurtherColumns::All : FurtherColumns::None;
  }

  /// Of the individual master with the measures that are checked.
  [[nodiscard]] std::string ColumnCount() const;

  [[nodiscard]] const std::string& Destination() const noexcept { return m_destination; }
  void SetDestination(const std::string& text) { m_destination = text; }
  /// Replaces the text by the path it means (ResolveDestination), with the master's name for an existing directory.
  void SettleDestination();
  /// Drive and directory lists; errors in moving them are not reported.
  DirectoryBrowser& Browser() noexcept { return m_browser; }
  /// If the lists' directory has changed, makes the destination the master's name in it.
  void FollowBrowser();

  // The nominal-group panel.
  [[nodiscard]] const std::string& PerGroupText() const noexcept { return m_perGroup; }
  void SetPerGroupText(const std::string& text) { m_perGroup = text; }
  /// "(none)", then the names of the variables.
  [[nodiscard]] std::vector<std::string> VariableChoices() const;
  [[nodiscard]] int ChosenVariable() const noexcept { return m_variable; }  ///< index in VariableChoices
  void ChooseVariable(int choice) noexcept { m_variable = choice; }
  [[nodiscard]] std::optional<std::size_t> Separator() const noexcept;

 private:
  // Suppresses the lists' messages about a drive that is not ready.
  struct SilentBoxes final : MessageBoxes {
    BoxAnswer Show(const MessageBox& box) override { return box.Default; }
  };

  Disk& m_disk;
  SilentBoxes m_silent;
  const ProjectParameters* m_project = nullptr;
  DirectoryBrowser m_browser;
  std::string m_followed;  // the lists' directory when the destination last followed it
  std::string m_destination;
  std::string m_perGroup;
  int m_variable = 0;
};

}  // namespace zova
