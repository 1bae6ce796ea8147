// SPDX-License-Identifier: GPL-3.0-or-later
//
// The order of the screens: options (and from them the measures), the serial order if requested, the groups' details if
// requested, writing; then, with groups, their order and writing again. A command that does not fit the stage, such as
// the second of a double click, has no effect.

#include "session/MasterFlow.h"

#include <utility>

#include "master/run/RunStart.h"
#include "platform/desktop/FileErrorBoxes.h"
#include "project/ProjectLayout.h"

namespace zova {

namespace {

// The two texts differ on purpose.
MessageBox MastersCreated() { return {.Text = "Master(s) Successfully Created!"}; }
MessageBox CombinedCreated() { return {.Text = "Master(s) successfully created!", .Icon = BoxIcon::Information}; }

// Reads a saved order; nullopt when the user cancels after a fault, so that it can be entered again.
template <typename Read>
auto SavedOrder(MessageBoxes& boxes, Read&& read) -> decltype(read()) {
  decltype(read()) order;
  if (!WithRetry(boxes, [&] { order = read(); })) order.reset();
  return order;
}

// "" for the default name in the destination's directory.
std::optional<std::string> FileBeside(bool isAskedFor) {
  return isAskedFor ? std::optional<std::string>("") : std::nullopt;
}

// The heading of a row of the group order: "17, Man".
std::string SubjectName(const GroupSubjects& subjects, std::size_t subject, const ProjectParameters& project,
                        std::optional<std::size_t> separator) {
  const std::string& id = subjects.SubjectIds[subject];
  if (!separator) return id;
  return id + ", " + LevelLabel(project, *separator, subjects.Levels[subject][*separator]);
}

}  // namespace

MasterFlow::MasterFlow(const Platform& platform)
    : m_platform(platform), m_options(platform.Files), m_order(platform.Boxes, platform.Pointer) {}

void MasterFlow::Show(Stage stage) {
  m_stage = stage;
  if (m_observer) m_observer();
}

bool MasterFlow::Open(const ProjectParameters& project) {
  const auto count = CountSubjectFiles(project, m_platform.Files, m_platform.Boxes);
  if (!count || *count == 0) return false;
  m_project = &project;
  m_request = {};
  m_request.SubjectFileCount = *count;
  m_statusLine.clear();
  m_options.Open(project);
  Show(Stage::Options);
  return true;
}

void MasterFlow::Continue() {
  if (m_stage != Stage::Options) return;
  m_statusLine.clear();
  m_request.Selection = m_options.Selection;
  m_options.SettleDestination();
  m_request.Destination = m_options.Destination();
  m_request.CleanFile = FileBeside(m_options.ChkExportClean);
  m_request.LongFile = FileBeside(m_options.ChkExportLong);
  m_request.Further = m_options.Further();
  m_request.Order.reset();
  m_request.CombinedFollows = m_options.ChkCombine;
  // Reports a master that cannot be built before an order is typed and saved for it.
  if (!BuildHeader(*m_project, m_request.Selection, MasterKind::Individual, m_platform.Boxes, m_header)) return;
  if (m_options.ChkItemAnalysis) {
    const auto saved = SavedOrder(m_platform.Boxes, [&] { return ReadSavedSerialOrder(m_platform.Files, *m_project); });
    m_order.OpenSerial(*m_project, saved, WordListOf(*m_project, m_platform.Files, m_platform.Boxes));
    Show(Stage::OrderOfItems);
  } else if (m_options.ChkCombine) {
    AskForGroups();
  } else {
    WriteMasters();
  }
}

void MasterFlow::CancelOptions() {
  if (m_stage != Stage::Options) return;
  m_options.ResetMasterOptions();
  Show(Stage::Closed);
}

void MasterFlow::OpenMeasures() {
  if (m_stage == Stage::Options) Show(Stage::Measures);
}

void MasterFlow::CloseMeasures() {
  if (m_stage == Stage::Measures) Show(Stage::Options);
}

void MasterFlow::GoSerial() {
  if (m_stage != Stage::OrderOfItems || !m_order.Check()) return;
  if (!WithRetry(m_platform.Boxes, [&] { SaveSerialOrder(m_platform.Files, *m_project, m_order.Positions()); })) return;
  m_request.Order = m_order.Positions();
  if (m_options.ChkCombine) {
    AskForGroups();
  } else {
    WriteMasters();
  }
}

void MasterFlow::CancelOrder() {
  if (m_stage == Stage::OrderOfItems) {
    Show(Stage::Options);
  } else if (m_stage == Stage::OrderOfGroups) {
    Finish(MastersCreated());  // masters already written stay
  }
}

// Shows the panel before reading anything, and chooses the variable of an earlier try again.
void MasterFlow::AskForGroups() {
  const int chosen = m_options.ChosenVariable();
  m_options.ChooseVariable(0);
  m_hasLevels = false;
  if (!ReadSubjects(false)) return Show(Stage::Options);
  Show(Stage::GroupDetails);
  ChooseVariable(chosen);
}

bool MasterFlow::ReadSubjects(bool withLevels) {
  const BusyPointer busy(m_platform.Pointer);
  auto subjects = ReadGroupSubjects(*m_project, m_request.SubjectFileCount, withLevels, m_platform);
  if (!subjects) return false;
  const bool areOthers = subjects->SubjectIds != m_subjects.SubjectIds;
  m_subjects = std::move(*subjects);
  if (withLevels && !areOthers) return true;
  m_savedGroupOrder = SavedOrder(
      m_platform.Boxes, [&] { return ReadSavedGroupOrder(m_platform.Files, *m_project, m_subjects.SubjectIds); });
  return true;
}

void MasterFlow::ChooseVariable(int choice) {
  if (m_stage != Stage::GroupDetails) return;
  m_wantedVariable = choice;
  if (m_isReading) return;  // a second choice, made while events were processed
  if (choice > 0 && !m_hasLevels) {
    m_isReading = true;
    try {
      m_hasLevels = ReadSubjects(true);
    } catch (...) {
      m_isReading = false;
      throw;
    }
    m_isReading = false;
  }
  m_options.ChooseVariable(m_hasLevels ? m_wantedVariable : 0);
}

GroupOrder MasterFlow::StartingOrder() const {
  return m_savedGroupOrder ? *m_savedGroupOrder : FirstGroupOrder(m_subjects.SubjectIds.size());
}

std::optional<GroupPlan> MasterFlow::PlanGroups(const GroupOrder& order) const {
  const auto size = ParseGroupSize(m_options.PerGroupText());
  if (!size) return std::nullopt;
  return FormGroups(m_subjects.LevelsOf(m_options.Separator()), order, *size);
}

std::string MasterFlow::GroupsPreview() {
  if (m_stage != Stage::GroupDetails) return "";
  const auto plan = PlanGroups(StartingOrder());
  if (!plan) return "";
  if (plan->Groups.empty()) return kTooFewSubjects;
  return GroupPlanText(*plan, m_subjects.SubjectIds, *m_project, m_options.Separator());
}

const std::string& MasterFlow::OrderPreview() {
  if (m_stage != Stage::OrderOfGroups || m_previewedRevision == m_order.Cells().Revision()) return m_orderPreview;
  m_previewedRevision = m_order.Cells().Revision();
  const GroupOrder order = m_order.PendingOrder();
  m_orderPreview =
      GroupOrderFault(m_subjects.SubjectIds, order)
          ? "The groups show here once every subject has a position of its own."
          : GroupPlanText(PlanGroups(order).value(), m_subjects.SubjectIds, *m_project, m_options.Separator());
  return m_orderPreview;
}

void MasterFlow::GoGroups() {
  if (m_stage != Stage::GroupDetails) return;
  const auto plan = PlanGroups(StartingOrder());
  if (!plan || plan->Groups.empty()) {
    Warn(m_platform.Boxes, plan ? kTooFewSubjects : kGroupSizeFault);
    return;
  }
  WriteMasters();
}

void MasterFlow::CancelGroups() {
  if (m_stage == Stage::GroupDetails) Show(Stage::Options);
}

MasterRunResult MasterFlow::Write(const std::function<MasterRunResult()>& run) {
  Show(Stage::Writing);
  MasterRunResult result;
  try {
    const BusyPointer busy(m_platform.Pointer);
    result = run();
  } catch (...) {
    Show(Stage::Options);
    throw;
  }
  if (!result.Completed) Show(Stage::Options);
  return result;
}

void MasterFlow::WriteMasters() {
  MasterRunResult result = Write([&] { return CreateMasters(*m_project, m_request, m_platform); });
  m_notices = std::move(result.Notices);
  if (result.IsMasterWhole) {
    m_lastMaster = DefaultMasterPath(*m_project);  // where the rows are, wherever the header went
    m_lastFiles.clear();
    NoteFiles(result);
    // What stands in the file, which may be too large to be read for its first line.
    m_lastHeader = m_header.MasterHeader;
    if (!result.Completed) ShowMasterWarnings(m_notices, m_platform.Boxes);
  } else if (result.RowCount) {
    m_statusLine = "The master holds " + std::to_string(*result.RowCount) + " of " +
                   std::to_string(m_request.SubjectFileCount) + " subjects.";
  }
  if (!result.Completed) return;
  if (m_options.ChkCombine) {
    AskForGroupOrder();
  } else {
    Finish(MastersCreated());
  }
}

void MasterFlow::NoteFiles(const MasterRunResult& result) {
  for (const auto& path : result.Written) {
    m_lastFiles.push_back(m_platform.Files.Drives().ToDrivePath(NativeText(path)));
  }
}

void MasterFlow::AskForGroupOrder() {
  std::vector<std::string> names;
  for (std::size_t subject = 0; subject < m_subjects.SubjectIds.size(); ++subject) {
    names.push_back(SubjectName(m_subjects, subject, *m_project, m_options.Separator()));
  }
  m_order.OpenGroups(m_subjects.SubjectIds, std::move(names), m_savedGroupOrder);
  Show(Stage::OrderOfGroups);
}

void MasterFlow::GoCombine() {
  if (m_stage != Stage::OrderOfGroups || !m_order.Check()) return;
  const auto save = [&] { SaveGroupOrder(m_platform.Files, *m_project, m_subjects.SubjectIds, m_order.Positions()); };
  if (!WithRetry(m_platform.Boxes, save)) return;
  const MasterRunResult result = Write([&] {
    const CombinedRequest request = {m_request.Selection, m_request.Destination, m_subjects, m_options.Separator(),
                                     PlanGroups(m_order.Positions()).value()};
    return CreateCombinedMaster(*m_project, request, m_platform);
  });
  AddOlderPieces(result.Notices, m_notices);
  if (!result.Completed) return ShowMasterWarnings(m_notices, m_platform.Boxes);
  m_lastMaster = m_platform.Files.Drives().ToDrivePath(NativeText(result.Written.front()));
  NoteFiles(result);
  Finish(CombinedCreated());
}

void MasterFlow::Finish(MessageBox message) {
  for (const std::string& file : m_lastFiles) message.Details += (message.Details.empty() ? "" : "\n") + file;
  const std::string missing = MissingOrderText(m_notices);
  if (!missing.empty()) message.Details += (message.Details.empty() ? "" : "\n") + missing;
  Show(Stage::Finished);
  ShowMasterWarnings(m_notices, m_platform.Boxes);
  m_platform.Boxes.Show(message);
  m_options.ResetMasterOptions();
  Show(Stage::Closed);
}

}  // namespace zova
