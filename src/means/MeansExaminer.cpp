// SPDX-License-Identifier: GPL-3.0-or-later

#include "means/MeansExaminer.h"

#include <algorithm>
#include <set>
#include <utility>

#include "master/columns/ColumnName.h"
#include "master/exports/FurtherData.h"
#include "master/groups/GroupLabel.h"
#include "means/EffectSizes.h"
#include "means/LurePositions.h"
#include "means/MasterOfProject.h"
#include "means/UncomputedValues.h"
#include "platform/desktop/FileErrorBoxes.h"
#include "text/Counted.h"
#include "text/Encoding.h"

namespace zova {

namespace {

constexpr const char* kNoText = "It is no text.";
constexpr const char* kNoHeader = "Its first line is no header: it has no name of a measure.";
constexpr const char* kNoRows = "None of its lines fits its header.";

}  // namespace

void MeansExaminer::Open(const ProjectParameters& project, const std::string& header) {
  Close();
  m_project = &project;
  m_header = header;
  const std::string path = DefaultMasterPath(project);
  if (std::exchange(m_optionsOf, path) != path) m_options = {m_options.Bars, m_options.Colours, {}, {}};
  m_missing = "There is no master of this project yet.  Create one with 'Create New Master', or open another one here.";
  bool exists = false;
  if (!WithRetry(m_platform.Boxes, [&] { exists = m_platform.Files.FileExists(path); }) || !exists) return;
  m_missing = "The master of this project could not be read.";
  std::string bytes;
  if (!Read(path, bytes)) return;
  const auto fault = ParseTable(bytes, m_header);
  if (!fault) return Show(path);
  m_missing = "'" + path + "' could not be read.  " + *fault + "  Create the master again" +
              (*fault == kNoHeader ? ", with this destination if its header went to another one." : ".");
}

void MeansExaminer::Close() {
  m_project = nullptr;
  m_path.clear();
  m_missing.clear();
  m_isOwn = false;
  m_table = {};
  m_serial.reset();
  m_measureNames.clear();
  m_furtherGroups.clear();
  m_shown = PlotShown::Means;
  m_request = {};
  ++m_layoutRevision;
  Compute();
}

void MeansExaminer::ChooseMaster() {
  if (m_project == nullptr) return;
  const auto path =
      m_platform.Dialogs.ChooseFile({.Title = "Open Master",
                                     .Directory = m_project->PrimaryDir,
                                     .Filters = {{"Text files (*.txt)", "*.txt"}, {"All files (*.*)", "*"}}});
  std::string bytes;
  if (!path || !Read(*path, bytes)) return;
  bool isOwnFile = false;
  const auto compare = [&] { isOwnFile = m_platform.Files.IsSame(*path, DefaultMasterPath(*m_project)); };
  if (!WithRetry(m_platform.Boxes, compare)) return;
  const auto fault = ParseTable(bytes, isOwnFile ? m_header : "");
  if (!fault) return Show(*path);
  Warn(m_platform.Boxes, "'" + std::string(LastPathComponent(*path)) + "' is no master.", *fault);
}

bool MeansExaminer::Read(const std::string& path, std::string& bytes) {
  const BusyPointer busy(m_platform.Pointer);
  return WithRetry(m_platform.Boxes, [&] { m_platform.Files.Read(path, bytes); });
}

// Leaves what is shown unchanged when the text is not a master.
std::optional<std::string> MeansExaminer::ParseTable(const std::string& bytes, std::string_view header) {
  const BusyPointer busy(m_platform.Pointer);
  if (!LooksLikeDataText(bytes)) return kNoText;
  const DataText text(bytes);
  if (auto serial = ParseSerialPositionMaster(text.Content())) {
    m_serial = std::move(serial);
    m_table = {};
    m_measureNames.clear();
    for (int test = 1; test <= m_serial->TestCount; ++test) m_measureNames.push_back("Test " + std::to_string(test));
    return std::nullopt;
  }
  auto table = ParseMaster(text.Content(), header, m_project);
  if (!table) return kNoHeader;
  if (table->RowCount() == 0 && table->SkippedLines > 0) return kNoRows;
  m_serial.reset();
  m_table = std::move(*table);
  m_measureNames = m_table.Measures;
  return std::nullopt;
}

void MeansExaminer::Show(const std::string& path) {
  m_path = path;
  m_request = {};
  m_shown = PlotShown::Means;
  if (!m_measureNames.empty()) m_request.Measures = {0};
  m_unchecked = 0;
  m_lurePositions.clear();
  if (m_serial) m_lurePositions = LurePositions(*m_project, path, m_serial->PositionCount, m_platform.Files);
  m_isOwn = !m_serial && IsMasterOfProject(m_table, path, *m_project, m_platform.Files);
  m_words = {};
  if (m_isOwn && IsFalseMemoryInForce(*m_project)) {
    m_words = WordListOf(*m_project, m_platform.Files, m_platform.Boxes);
  }
  ListFurther();
  ++m_layoutRevision;
  Compute();
  if (!m_isOwn || m_table.RowCount() == 0) return;
  m_reading = "values that could not be computed";
  if (m_observer) m_observer();
  {
    const BusyPointer busy(m_platform.Pointer);
    m_unchecked = MarkUncomputed(m_table, *m_project, m_platform.Files, m_platform.Bar);
  }
  m_reading = nullptr;
  Compute();
}

// Of an individual master of the project.
void MeansExaminer::ListFurther() {
  m_furtherGroups.clear();
  m_hasFurther = false;
  if (!m_isOwn || m_table.RowCount() == 0 || !m_table.HasSubjects || IsGroupLabel(m_table.Subjects.front())) return;
  m_further = CurvesFor(*m_project, m_table.RowCount());
  m_table.Further.Names = FurtherColumnNames(*m_project, m_further);
  std::optional<FurtherGroup> last;
  for (const std::string& name : m_table.Further.Names) {
    const FurtherGroup group = FurtherColumnByName(name)->Family->Group;
    if (last != group) {
      m_furtherGroups.push_back({std::string(FurtherGroupText(group)), m_measureNames.size(), 0});
    }
    last = group;
    ++m_furtherGroups.back().Count;
    m_measureNames.push_back(name);
  }
}

// False when the user gave up, so that they have no values.
bool MeansExaminer::ComputeFurtherOnce() {
  if (m_hasFurther) return true;
  m_reading = "further measures";
  if (m_observer) m_observer();
  const BusyPointer busy(m_platform.Pointer);
  m_hasFurther = WithRetry(m_platform.Boxes, [&] {
    const FurtherData data = ReadFurtherData(m_platform.Files, *m_project, std::nullopt);
    WarnOfFaults(data, m_platform.Boxes);
    ComputeFurther(m_table, *m_project, data, m_further, m_platform.Files, m_platform.Bar);
  });
  m_reading = nullptr;
  return m_hasFurther;
}

void MeansExaminer::ChooseMeasures(const std::vector<std::size_t>& measures) {
  if (m_reading != nullptr) return;
  const auto isFurther = [this](std::size_t measure) { return !m_serial && m_table.IsFurther(measure); };
  const bool anyFurther = std::any_of(measures.begin(), measures.end(), isFurther);
  const bool isMissing = anyFurther && !ComputeFurtherOnce();
  m_request.Measures = measures;
  if (isMissing) std::erase_if(m_request.Measures, isFurther);
  Compute();
}

void MeansExaminer::ChooseVariables(const std::vector<std::size_t>& variables) {
  const auto isIn = [](const std::vector<std::size_t>& where, std::size_t variable) {
    return std::find(where.begin(), where.end(), variable) != where.end();
  };
  std::vector<std::size_t>& chosen = m_request.Variables;
  std::erase_if(chosen, [&](std::size_t variable) { return !isIn(variables, variable); });
  for (const std::size_t variable : variables) {
    if (!isIn(chosen, variable)) chosen.push_back(variable);
  }
  Compute();
}

void MeansExaminer::ChooseWholeSeries() {
  const auto familyOf = [this](std::size_t measure) -> std::string_view {
    const std::string& name = m_measureNames[measure];
    if (!m_serial && m_table.IsFurther(measure)) return FurtherColumnByName(name)->Family->Stem;
    const auto column = ColumnByName(name);
    return column ? column->Family->Stem : std::string_view(name);
  };
  std::set<std::string_view> families;
  for (const std::size_t measure : m_request.Measures) families.insert(familyOf(measure));
  std::vector<std::size_t> measures;
  for (std::size_t measure = 0; measure < m_measureNames.size(); ++measure) {
    // All tests of a serial-position master are one series.
    if (m_serial || families.contains(familyOf(measure))) measures.push_back(measure);
  }
  ChooseMeasures(measures);
}

void MeansExaminer::SetLeavesOut(bool leavesOut) {
  m_request.LeavesOutUncomputed = leavesOut;
  Compute();
}

// The first ones; a report and the command have them all.
void MeansExaminer::TellEffects(const ProjectParameters* project) {
  constexpr std::size_t kMostMeasures = 20, kMostLines = 3;
  if (m_request.Measures.size() > kMostMeasures) return;
  const std::vector<Effect> effects = ComputeEffects(m_table, m_request, project);
  for (std::size_t i = 0; i < effects.size() && i < kMostLines; ++i) {
    if (i > 0) m_effects += '\n';
    m_effects += effects[i].Measure + ": " + EffectText(effects[i]);
  }
  if (effects.size() <= kMostLines) return;
  m_effects += "\n... and " + std::to_string(effects.size() - kMostLines) + " more: " +
               (CanRaster() ? "\"Save Report...\" has them all." : "choose fewer measures or variables to see them.");
}

void MeansExaminer::SetMore(bool hasMore) {
  m_request.More = {hasMore, hasMore, hasMore, hasMore, hasMore, hasMore};
  Compute();
}

void MeansExaminer::Compute() {
  ++m_resultRevision;
  m_uncomputed = m_lacking = 0;
  m_means = {};
  m_status.clear();
  m_effects.clear();
  m_decimals.clear();
  if (!m_serial && !m_request.Measures.empty()) ComputeTable();
  m_picture = Drawn();
  ApplyFrame(m_options, m_picture);
}

void MeansExaminer::ComputeTable() {
  MeansRequest request = m_request;
  request.Orders = m_options.Orders;
  if (m_options.Bars == PlotBars::Within) request.More.Within = true;
  m_means = ComputeMeans(m_table, request, OwnProject());
  TellEffects(OwnProject());
  const std::vector<std::size_t>& ofAll = m_means.Cells.back().Uncomputed;
  for (std::size_t measure = 0; measure < ofAll.size(); ++measure) {
    (m_table.IsFurther(m_request.Measures[measure]) ? m_lacking : m_uncomputed) += ofAll[measure];
  }
  for (std::size_t measure = 0; measure < m_means.Measures.size(); ++measure) {
    m_decimals.push_back(DecimalsOf(m_means, measure));
  }
}

}  // namespace zova
