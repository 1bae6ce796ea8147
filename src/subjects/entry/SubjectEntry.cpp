// SPDX-License-Identifier: GPL-3.0-or-later

#include "subjects/entry/SubjectEntry.h"

#include <utility>

#include "platform/desktop/FileErrorBoxes.h"
#include "subjects/SubjectFile.h"
#include "text/Counted.h"

namespace zova {

namespace {

constexpr const char* kTooManyUnfinished = "You cannot have more than 10 unfinished data files.";

}  // namespace

SubjectEntry::SubjectEntry(SubjectRecord& record, Preferences& preferences, const Platform& platform)
    : m_record(record),
      m_preferences(preferences),
      m_platform(platform),
      m_grid(record, preferences, platform.Boxes, platform.Pointer) {}

void SubjectEntry::Open(const ProjectParameters& project, const std::string& paramDir, bool restored) {
  m_project = &project;
  m_paramDir = paramDir;
  m_open = true;
  m_grid.Open(project);
  LookForLimit();
  if (m_preferences.Autosave) m_timer.Start();
  if (!restored) return;
  m_record.HasUnsavedChanges = true;
  // Replaces the autosave file atomically, so that there always is one.
  m_preferences.Autosave ? WriteAutosave() : DeleteAutosave(m_record.Which);
}

std::string SubjectEntry::SubjectCaption() const {
  if (!m_open) return {};
  return "Project: " + ProjectTitle(*m_project) + "\nSubject: " + m_record.SubjectId;
}

std::string SubjectEntry::Title() const {
  return m_record.Which == WhichEntry::Second ? "Second Entry" : "Enter Recalls";
}

std::string SubjectEntry::RecallsCaption() const {
  std::size_t recalls = 0;
  for (int line = 1; line <= m_record.Lists.PositionCount(); ++line) {
    if (m_record.Lists.At(m_grid.Test(), line).Item > 0) ++recalls;
  }
  return Counted(recalls, "recall", "recalls");
}

std::string SubjectEntry::LevelsCaption() const {
  std::string text;
  for (std::size_t variable = 0; variable < static_cast<std::size_t>(m_project->VariableCount); ++variable) {
    text += (text.empty() ? "" : "\n") + m_project->VariableNames[variable] + ": " +
            LevelLabel(*m_project, variable, m_record.Levels[variable]);
  }
  return text;
}

void SubjectEntry::DoneWithTest() {
  if (!m_open || !m_grid.Cells().EnterTextBeforeLeaving()) return;
  m_autosavePaused = false;
  if (m_preferences.Autosave && m_timer.Ticks() >= 1) {
    m_timer.ResetTicks();
    m_timer.Start();
    WriteAutosave();
  }
  const int test = IsInReview() ? 0 : m_grid.Test();
  m_inReview = test == m_project->TestCount;
  m_grid.Cells().ShowPage(m_inReview ? test : test + 1);
}

void SubjectEntry::ShowFinding(const CheckFinding& finding) {
  m_inReview = false;
  m_grid.Cells().ShowPage(finding.Test, {finding.Position, finding.Column});
}

bool SubjectEntry::ListsPassTheChecks() {
  RecallLists before = m_record.Lists;
  CheckResult result = CheckLists(m_record.Lists, *m_project);
  m_grid.NoteChange(before);
  for (const CheckFinding& warning : result.Warnings) {
    const MessageBox box{warning.Message, BoxIcon::Exclamation, BoxButtons::YesNo, BoxAnswer::Yes, "Warning"};
    if (m_platform.Boxes.Show(box) != BoxAnswer::Yes) continue;
    ShowFinding(warning);
    return false;
  }
  if (!result.Fault) {
    before = m_record.Lists;
    result.Fault = RemoveFirstDuplicate(m_record.Lists);
    m_grid.NoteChange(before);
  }
  if (!result.Fault) return true;
  ShowFinding(*result.Fault);
  m_platform.Pointer.Beep();
  Warn(m_platform.Boxes, result.Fault->Message, ItemNote(m_grid.Words(), result.Fault->Item));
  return false;
}

bool SubjectEntry::MaySaveOutOfRange() {
  const std::optional<CheckFinding> finding = FindOutOfRange(m_record, *m_project);
  if (!finding) return true;
  const Question question = {.Text = finding->Message, .Buttons = BoxButtons::YesNo, .Title = "Warning"};
  if (Confirm(m_platform.Boxes, question)) return true;
  if (finding->Test > 0) ShowFinding(*finding);
  return false;
}

SaveOutcome SubjectEntry::SaveWithNote(const std::string& note) {
  if (!MaySaveOutOfRange()) return {};
  const std::string noteBefore = std::exchange(m_record.UnfinishedNote, note);
  const SaveOutcome outcome = SaveSubject(m_record, *m_project, m_paramDir, m_platform);
  if (!outcome.Saved) m_record.UnfinishedNote = noteBefore;
  m_autosavePaused = m_autosavePaused && !outcome.Saved;
  return outcome;
}

SubjectEntry::Ending SubjectEntry::DoneWithAllTests() {
  if (!m_open || !m_grid.Cells().EnterTextBeforeLeaving() || !ListsPassTheChecks()) return {};
  const SaveOutcome outcome = SaveWithNote("");
  if (outcome.Saved) Close();
  return {outcome.Saved, outcome.UnfinishedEmptied};
}

std::size_t SubjectEntry::CountUnfinished() {
  return ListSubjectFiles(m_platform.Files, *m_project,
                          PlaceDirectory(m_project->PrimaryDir, UnfinishedPlace(m_record.Which)))
      .size();
}

void SubjectEntry::LookForLimit() {
  m_limitNote.clear();
  try {
    if (CountUnfinished() >= kMaxUnfinished) {
      m_limitNote = std::string("This subject cannot be saved incomplete.  ") + kTooManyUnfinished;
    }
  } catch (const FileError&) {
    // Reported when the subject is saved.
  }
}

bool SubjectEntry::SaveIncomplete() {
  if (!m_open || !m_grid.Cells().EnterTextBeforeLeaving()) return false;
  std::size_t count = 0;
  if (!WithRetry(m_platform.Boxes, [&] { count = CountUnfinished() + 1; })) return false;
  // Kept: the subject's own earlier file counts, too.
  if (count > kMaxUnfinished) {
    Warn(m_platform.Boxes, kTooManyUnfinished);
    return false;
  }
  const std::string note = "This is unfinished subject #" + std::to_string(count) + " for '" +
                           ProjectTitle(*m_project) + "'.  NOTE: You cannot have more than 10.";
  if (!SaveWithNote(note).Saved) return false;
  m_timer.ResetTicks();
  m_timer.Start();  // kept: whatever the preference
  return true;
}

SubjectEntry::Ending SubjectEntry::Cancel() {
  if (!m_open) return {};
  const Question question{.Text = "You will lose all unsaved changes.  Are you sure that you want to do this?"};
  if (m_record.HasUnsavedChanges && !Confirm(m_platform.Boxes, question)) return {};
  Abandon();
  return {.Left = true};
}

void SubjectEntry::Abandon() {
  if (!m_open) return;
  if (!m_record.UnfinishedNote.empty()) Inform(m_platform.Boxes, m_record.UnfinishedNote);
  const WhichEntry which = m_record.Which;
  m_record = {};
  ResetLists(m_record, *m_project);
  Close();
  DeleteAutosave(which);
}

void SubjectEntry::Close() {
  m_open = false;
  m_timer.Stop();
  m_autosavePaused = m_inReview = false;
  m_grid.Open(*m_project);  // clears the undo history for the next subject
}

void SubjectEntry::Tick() {
  if (m_timer.Tick() && !m_autosavePaused) WriteAutosave();
}

void SubjectEntry::SetAutosave(bool on) {
  m_preferences.Autosave = on;
  m_autosavePaused = false;
  (on && m_open) ? m_timer.Start() : m_timer.Stop();
}

void SubjectEntry::SecureAutosave() {
  if (m_open && m_preferences.Autosave && !m_autosavePaused) WriteAutosave();
}

void SubjectEntry::WriteAutosave() {
  m_autosavePaused =
      !WithRetry(m_platform.Boxes, [&] { WriteAutosaveFile(m_platform.Files, m_paramDir, m_record, *m_project); });
}

void SubjectEntry::DeleteAutosave(WhichEntry which) {
  WithRetry(m_platform.Boxes, [&] { DeleteAutosaveFile(m_platform.Files, m_paramDir, which); });
}

}  // namespace zova
