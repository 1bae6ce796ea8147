// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <optional>
#include <string>

#include "master/columns/MasterLines.h"
#include "master/groups/OrderEditor.h"
#include "master/run/CombinedMaster.h"
#include "master/run/MasterOptions.h"
#include "platform/desktop/Platform.h"

namespace zova {

/// The screens of a master, from its options to its end, and the runs between them. The session shows the screen of
/// the stage and is told of changes by the observer.
class MasterFlow {
 public:
  /// Finished: nothing is up but the messages at the end.
  enum class Stage { Closed, Options, Measures, OrderOfItems, GroupDetails, Writing, OrderOfGroups, Finished };

  explicit MasterFlow(const Platform& platform);
  /// Called when the stage changes while a command goes on.
  void SetObserver(std::function<void()> observer) { m_observer = std::move(observer); }

  /// Counts the subject files; false, told, when there is none. `project` must outlive the flow's screens.
  bool Open(const ProjectParameters& project);
  [[nodiscard]] Stage CurrentStage() const noexcept { return m_stage; }
  /// "Project: " and the title of the project of the last opening.
  [[nodiscard]] std::string ProjectLine() const;

  /// After a run that stopped in the individual master: how many subjects that holds; else "".
  [[nodiscard]] const std::string& StatusLine() const noexcept { return m_statusLine; }

  MasterOptions& Options() noexcept { return m_options; }
  OrderEditor& Order() noexcept { return m_order; }

  void Continue();       ///< cmdCreateMaster
  void CancelOptions();  ///< cmdMastCancel
  void OpenMeasures();   ///< cmdMeasures
  void CloseMeasures();  ///< cmdMeasureOK
  void GoSerial();       ///< cmdGoSerial: checked, saved, then the groups' details or the run
  void GoGroups();       ///< cmdCreateMasterGo
  void GoCombine();      ///< cmdGoCombine: checked, saved, then the combined master
  void CancelOrder();    ///< from either order screen
  void CancelGroups();

  /// Chooses the variable that keeps the groups apart (MasterOptions::VariableChoices) on the groups' details. With the
  /// first one all subjects are read for their levels; while they are not, it is "(none)".
  void ChooseVariable(int choice);
  /// What the groups' details would give, a line per level, or that no group is possible; "" while the number of
  /// subjects is none.
  [[nodiscard]] std::string GroupsPreview();
  /// The same for the order of the groups as it stands, its box included; what is missing while it has a fault.
  [[nodiscard]] const std::string& OrderPreview();

  /// The last combined master made, or the file with the rows of the last individual one: a drive-letter path; ""
  /// before the first.
  [[nodiscard]] const std::string& LastMaster() const noexcept { return m_lastMaster; }
  /// Header line of the project's new master, for those who read it; "" before the first.
  [[nodiscard]] const std::string& LastHeader() const noexcept { return m_lastHeader; }
  /// To be called when the project is closed, or another one taken.
  void ForgetHeader() noexcept { m_lastHeader.clear(); }

 private:
  void Show(Stage stage);
  void AskForGroups();
  bool ReadSubjects(bool withLevels);
  [[nodiscard]] std::optional<GroupPlan> PlanGroups(const GroupOrder& order) const;
  [[nodiscard]] GroupOrder StartingOrder() const;
  void WriteMasters();
  void AskForGroupOrder();
  void Finish(const MessageBox& message);

  Platform m_platform;
  const ProjectParameters* m_project = nullptr;
  MasterOptions m_options;
  OrderEditor m_order;
  std::function<void()> m_observer;
  Stage m_stage = Stage::Closed;
  MasterRequest m_request;
  MasterHeaderLine m_header;  // of the request
  GroupSubjects m_subjects;   // from the groups' details on
  bool m_hasLevels = false;
  bool m_isReading = false;
  int m_wantedVariable = 0;
  std::optional<GroupOrder> m_savedGroupOrder;
  std::string m_orderPreview;  // of the order at that change
  int m_previewedChange = 0;
  MasterNotices m_notices;
  std::string m_statusLine;
  std::string m_lastMaster;
  std::string m_lastHeader;
};

}  // namespace zova
