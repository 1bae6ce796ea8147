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

/// The screens of a master, from its options to its end, and the runs between them. The session shows the screen of the
/// stage; the observer notifies it of changes.
class MasterFlow {
 public:
  /// Finished: only the final messages are shown.
  enum class Stage { Closed, Options, Measures, OrderOfItems, GroupDetails, Writing, OrderOfGroups, Finished };

  explicit MasterFlow(const Platform& platform);
  /// Called when the stage changes during a command.
  void SetObserver(std::function<void()> observer) { m_observer = std::move(observer); }

  /// Counts the subject files; false, after a message, without any. `project` must outlive the flow's screens.
  bool Open(const ProjectParameters& project);
  [[nodiscard]] Stage CurrentStage() const noexcept { return m_stage; }

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

  /// Chooses the separating variable (MasterOptions::VariableChoices) on the groups' details. The first choice reads
  /// the levels of all subjects; until they are read it stays "(none)".
  void ChooseVariable(int choice);
  /// The groups that the details yield, one line per level, or that none is possible; "" without a valid number of
  /// subjects.
  [[nodiscard]] std::string GroupsPreview();
  /// The groups that the current order yields, including the pending text of its box; its fault if it has one.
  [[nodiscard]] const std::string& OrderPreview();

  /// The drive-letter path of the last combined master, or of the rows of the last individual one; "" before the first.
  [[nodiscard]] const std::string& LastMaster() const noexcept { return m_lastMaster; }
  /// All files of that run, the master first.
  [[nodiscard]] const std::vector<std::string>& LastFiles() const noexcept { return m_lastFiles; }
  /// Header line of the project's last master; "" before the first.
  [[nodiscard]] const std::string& LastHeader() const noexcept { return m_lastHeader; }
  /// To be called when the project is closed or replaced.
  void ForgetHeader() noexcept { m_lastHeader.clear(); }

 private:
  void Show(Stage stage);
  void AskForGroups();
  bool ReadSubjects(bool withLevels);
  [[nodiscard]] std::optional<GroupPlan> PlanGroups(const GroupOrder& order) const;
  [[nodiscard]] GroupOrder StartingOrder() const;
  /// Leads back to the options when the run was not completed, also by an exception.
  MasterRunResult Write(const std::function<MasterRunResult()>& run);
  void WriteMasters();
  void AskForGroupOrder();
  void NoteFiles(const MasterRunResult& result);
  void Finish(MessageBox message);

  Platform m_platform;
  const ProjectParameters* m_project = nullptr;
  MasterOptions m_options;
  OrderEditor m_order;
  std::function<void()> m_observer;
  Stage m_stage = Stage::Closed;
  MasterRequest m_request;
  MasterHeaderLine m_header;  // of the request
  GroupSubjects m_subjects;   // set by the groups' details
  bool m_hasLevels = false;
  bool m_isReading = false;
  int m_wantedVariable = 0;
  std::optional<GroupOrder> m_savedGroupOrder;
  std::string m_orderPreview;  // of the order at that change
  int m_previewedRevision = 0;
  MasterNotices m_notices;
  std::string m_statusLine;
  std::string m_lastMaster;
  std::vector<std::string> m_lastFiles;
  std::string m_lastHeader;
};

}  // namespace zova
