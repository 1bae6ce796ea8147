// SPDX-License-Identifier: GPL-3.0-or-later

#include "session/SubjectsScreen.h"

#include <algorithm>

#include "compare/Differences.h"
#include "master/groups/SavedOrders.h"
#include "platform/desktop/FileErrorBoxes.h"
#include "subjects/table/SubjectTableReader.h"
#include "text/Counted.h"
#include "text/TypedText.h"
#include "words/CompanionCsv.h"
#include "words/SecondSample.h"

namespace zova {

namespace {

std::string Subjects(std::size_t count) { return Counted(count, "subject", "subjects"); }

}  // namespace

SubjectsScreen::Key SubjectsScreen::KeyOf(const SubjectRow& row) {
  return {row.State == SubjectState::Removed, row.File};
}

void SubjectsScreen::Open(const ProjectParameters& project) {
  m_project = &project;
  m_table = SubjectTable(project, {});
  m_chosen.clear();
  m_done.clear();
  m_sampleIsTold = false;
  EndQuestion();
  ++m_revision;
}

void SubjectsScreen::Close() {
  m_project = nullptr;
  m_table = {};
  m_chosen.clear();
  EndQuestion();
  ++m_revision;
}

void SubjectsScreen::ShowProgress(const std::string& text) {
  m_progress = text;
  if (m_observer) m_observer();
}

// A sample that does not fit is reported once.
std::set<std::string, std::less<>> SubjectsScreen::SampledIds() {
  std::set<std::string, std::less<>> ids;
  try {
    const auto sample = LoadCompanion(m_platform.Files, *m_project, CompanionFile::SecondSample, ParseSecondSample);
    for (const SampledSubject& subject : sample.value_or(std::vector<SampledSubject>())) ids.insert(subject.Subject);
  } catch (const FileError& fault) {
    if (fault.Cause() != FileCause::EndOfData) throw;
    if (!std::exchange(m_sampleIsTold, true)) WarnPassedOver(m_platform.Boxes, fault);
  }
  return ids;
}

void SubjectsScreen::Read() {
  if (m_project == nullptr) return;
  const BusyPointer busy(m_platform.Pointer);
  std::vector<SubjectRow> rows;
  const bool isRead = WithRetry(m_platform.Boxes, [&] {
    const auto chosen = SampledIds();
    rows = ReadSubjectRows(
        *m_project, m_platform.Files, m_platform.Bar,
        [&](const SubjectRecord& first, const SubjectRecord& second) {
          return CountDifferencesOf(first, second, *m_project);
        },
        [&](std::string_view id) { return chosen.contains(id); },
        [&](int percent) { ShowProgress("Reading subjects: " + std::to_string(percent) + " %"); });
  });
  m_progress.clear();
  if (!isRead) return;
  SubjectTable table(*m_project, std::move(rows));
  table.SetFilter(m_table.Filter());
  table.SortBy(m_table.SortColumn(), m_table.IsDescending());
  m_table = std::move(table);
  if (ChosenLines().empty()) {
    m_chosen.clear();
    if (m_table.LineCount() > 0) m_chosen.insert(KeyOf(m_table.At(0)));
  }
  ++m_revision;
}

std::string SubjectsScreen::StatusLine() const {
  if (!m_progress.empty()) return m_progress;
  std::string text = Subjects(m_table.RowCount());
  if (m_table.LineCount() != m_table.RowCount()) text += ", " + std::to_string(m_table.LineCount()) + " shown";
  if (m_chosen.size() > 1) text += ", " + std::to_string(m_chosen.size()) + " selected";
  return m_done.empty() ? text : text + ".  " + m_done;
}

void SubjectsScreen::SetFilter(const std::string& filter) {
  m_table.SetFilter(filter);
  m_done.clear();
  // What is not shown is not chosen: nothing unseen is changed.
  std::set<Key> shown;
  for (const std::size_t line : ChosenLines()) shown.insert(KeyOf(m_table.At(line)));
  m_chosen = std::move(shown);
  if (m_chosen.empty() && m_table.LineCount() > 0) m_chosen.insert(KeyOf(m_table.At(0)));
  ++m_revision;
}

void SubjectsScreen::SortBy(std::size_t column) {
  m_table.SortBy(column);
  ++m_revision;
}

void SubjectsScreen::Choose(const std::vector<std::size_t>& lines) {
  m_chosen.clear();
  for (const std::size_t line : lines) m_chosen.insert(KeyOf(m_table.At(line)));
  m_done.clear();
}

std::vector<std::size_t> SubjectsScreen::ChosenLines() const {
  std::vector<std::size_t> lines;
  lines.reserve(m_chosen.size());
  for (std::size_t line = 0; line < m_table.LineCount(); ++line) {
    if (m_chosen.contains(KeyOf(m_table.At(line)))) lines.push_back(line);
  }
  return lines;
}

std::vector<const SubjectRow*> SubjectsScreen::Chosen() const {
  std::vector<const SubjectRow*> rows;
  for (const std::size_t line : ChosenLines()) rows.push_back(&m_table.At(line));
  return rows;
}

template <typename Fits>
bool SubjectsScreen::AllChosen(Fits&& fits) const {
  const auto rows = Chosen();
  return !rows.empty() && std::all_of(rows.begin(), rows.end(), [&](const SubjectRow* row) { return fits(*row); });
}

const SubjectRow* SubjectsScreen::ToOpen() const {
  const auto rows = Chosen();
  if (rows.size() != 1) return nullptr;
  switch (rows.front()->State) {
    case SubjectState::Removed:
    case SubjectState::Foreign:
    case SubjectState::SecondAlone:
    case SubjectState::FirstAlone:
    case SubjectState::EntriesAlone: return nullptr;
    default: return rows.front();
  }
}

const SubjectRow* SubjectsScreen::ToCompare() const {
  const auto rows = Chosen();
  if (rows.size() != 1 || rows.front()->State == SubjectState::Removed) return nullptr;
  const SecondEntry::State second = rows.front()->Second.Is;
  const bool isOpen = second == SecondEntry::State::Differs || second == SecondEntry::State::Agrees;
  return isOpen ? rows.front() : nullptr;
}

bool SubjectsScreen::MayChangeLevels() const {
  return m_project != nullptr && m_project->VariableCount > 0 &&
         AllChosen([](const SubjectRow& row) { return row.HasData() && row.State != SubjectState::Removed; });
}

bool SubjectsScreen::MayRemove() const {
  return AllChosen(
      [](const SubjectRow& row) { return row.State != SubjectState::Removed && row.State != SubjectState::Foreign; });
}

bool SubjectsScreen::MayBringBack() const {
  return AllChosen([](const SubjectRow& row) { return row.State == SubjectState::Removed; });
}

std::string SubjectsScreen::QuestionText() const {
  switch (m_question) {
    case Question::None: break;
    case Question::Levels: return "The levels of " + Subjects(m_chosen.size()) + ":";
    case Question::Sample:
      return "How many percent of the complete subjects are to be entered a second time?  They are chosen by the "
             "random "
             "seed " +
             std::to_string(m_seed) + "; another seed can be typed behind the percentage.";
    case Question::Name: return "The new identifier of subject '" + Chosen().front()->Id + "':";
  }
  return {};
}

void SubjectsScreen::EndQuestion() {
  m_question = Question::None;
  m_newName.clear();
  m_levels = {};
}

void SubjectsScreen::CancelQuestion() { EndQuestion(); }

// A level that all have is preset.
void SubjectsScreen::AskLevels() {
  if (!MayChangeLevels()) return;
  m_question = Question::Levels;
  const auto rows = Chosen();
  for (std::size_t v = 0; v < static_cast<std::size_t>(m_project->VariableCount); ++v) {
    const std::int16_t level = rows.front()->Levels[v];
    const bool isCommon =
        level >= 1 && level <= m_project->LevelCounts[v] &&
        std::all_of(rows.begin(), rows.end(), [&](const SubjectRow* row) { return row->Levels[v] == level; });
    m_levels[v] = isCommon ? level : std::int16_t{0};
  }
}

void SubjectsScreen::AskName() {
  if (!MayRename()) return;
  m_question = Question::Name;
  m_newName = Chosen().front()->Id;
}

std::vector<std::string> SubjectsScreen::LevelChoices(std::size_t variable) const {
  std::vector<std::string> names = {"(unchanged)"};
  for (int level = 1; level <= m_project->LevelCounts[variable]; ++level) {
    names.push_back(LevelLabel(*m_project, variable, level));
  }
  return names;
}

void SubjectsScreen::SetNewName(const std::string& text) { m_newName = ColumnText(text); }

// Plans and makes one change. False when it was refused or given up.
bool SubjectsScreen::Change(SubjectPlaces& places, const std::function<ChangePlan()>& plan) {
  ChangePlan planned;
  if (!WithRetry(m_platform.Boxes, [&] { planned = plan(); })) return false;
  if (!planned.Refusal.empty()) {
    Warn(m_platform.Boxes, planned.Refusal);
    return false;
  }
  if (planned.Changes.Files.empty()) return true;
  if (!MakeChanges(planned.Changes, *m_project, m_platform)) return false;
  places.Follow(planned.Changes);
  return true;
}

// Changes the chosen subjects one by one, up to the first that is refused or given up. Returns how many were changed.
template <typename Plan>
std::size_t SubjectsScreen::ChangeEach(const char* doing, Plan&& plan) {
  const BusyPointer busy(m_platform.Pointer);
  if (!FinishInterruptedChanges(*m_project, m_platform)) return 0;
  std::optional<SubjectPlaces> places;
  if (!WithRetry(m_platform.Boxes, [&] { places.emplace(*m_project, m_platform.Files); })) return 0;
  const auto rows = Chosen();
  std::size_t changed = 0;
  for (const SubjectRow* row : rows) {
    if (rows.size() > 1) ShowProgress(doing + std::to_string(changed + 1) + " of " + std::to_string(rows.size()));
    m_platform.Bar.ProcessEvents();
    if (!Change(*places, [&] { return plan(*places, *row); })) break;
    ++changed;
  }
  m_progress.clear();
  return changed;
}

void SubjectsScreen::Answer() {
  switch (m_question) {
    case Question::None: return;
    case Question::Name: return Rename();
    case Question::Sample: return DrawSample();
    case Question::Levels: break;
  }
  const std::size_t count = m_chosen.size();
  const std::size_t changed = ChangeEach("Changing levels: ", [&](const SubjectPlaces& places, const SubjectRow& row) {
    return PlanLevels(places, row, m_levels);
  });
  if (changed == count) EndQuestion();
  Read();
  m_done = "Levels changed of " + Subjects(changed) + ".";
}

void SubjectsScreen::Rename() {
  const std::string newId(WithoutOuterBlanks(m_newName));
  const SubjectRow row = *Chosen().front();
  if (newId == row.Id) return EndQuestion();
  const std::size_t changed = ChangeEach("", [&](const SubjectPlaces& places, const SubjectRow&) {
    ChangePlan plan = PlanRename(places, row, newId);
    // The order is kept in the primary directory alone.
    if (auto order = RenameInGroupOrder(m_platform.Files, *m_project, row.Id, newId)) {
      plan.Changes.Files.push_back({.InBackup = false,
                                    .Name = std::string(LastPathComponent(GroupOrderPath(*m_project))),
                                    .Before = std::move(order->Before),
                                    .After = std::move(order->After)});
    }
    return plan;
  });
  if (changed == 0) return;
  EndQuestion();
  m_chosen = {{false, SubjectFileName(*m_project, newId)}};
  Read();
  m_done = "Subject '" + row.Id + "' is now '" + newId + "'.";
}

void SubjectsScreen::Remove() {
  if (!MayRemove()) return;
  const auto lines = ChosenLines();
  const std::string what =
      lines.size() == 1 ? "subject '" + m_table.At(lines.front()).Id + "'" : Subjects(lines.size());
  if (!Confirm(m_platform.Boxes,
               {.Text = "Do you wish to remove " + what + "?  The files are moved to 'Sdata\\Removed'.",
                .Buttons = BoxButtons::YesNo,
                .Title = "Warning"})) {
    return;
  }
  const std::size_t changed = ChangeEach("Removing: ", PlanRemoval);
  // The choice moves to the subject behind the last removed one.
  const std::size_t next = lines.back() + 1;
  if (changed == lines.size() && next < m_table.LineCount()) m_chosen = {KeyOf(m_table.At(next))};
  Read();
  m_done = Counted(changed, "subject was removed.", "subjects were removed.");
}

void SubjectsScreen::BringBack() {
  if (!MayBringBack()) return;
  std::set<Key> back;
  for (const SubjectRow* row : Chosen()) back.insert({false, SubjectFileName(*m_project, row->Id)});
  const std::size_t changed = ChangeEach("Bringing back: ", PlanReturn);
  if (changed == m_chosen.size()) m_chosen = std::move(back);
  Read();
  m_done = Counted(changed, "subject was brought back.", "subjects were brought back.");
}

std::string SubjectsScreen::Copy() {
  m_done = "Copied " + Counted(m_table.LineCount(), "line", "lines") + ".";
  return m_table.TabText();
}

}  // namespace zova
