// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "platform/desktop/Platform.h"
#include "subjects/SubjectFiles.h"
#include "subjects/entry/AutosaveTimer.h"
#include "subjects/entry/CompletionChecks.h"
#include "subjects/entry/EntryGrid.h"

namespace zova {

/// The screen for a subject's recalls: the grid, the sequence of tests, the checks, saving, autosave and leaving.
/// Captions require an earlier Open.
class SubjectEntry {
 public:
  SubjectEntry(SubjectRecord& record, Preferences& preferences, const Platform& platform);

  /// Shows the record's first test. `project` must outlive the entry. A `restored` record, from the autosave, counts as
  /// changed; its file is deleted, or with Autosave on replaced at once.
  void Open(const ProjectParameters& project, const std::string& paramDir, bool restored = false);
  [[nodiscard]] bool IsOpen() const noexcept { return m_open; }

  EntryGrid& Grid() noexcept { return m_grid; }
  [[nodiscard]] const AutosaveTimer& Timer() const noexcept { return m_timer; }
  /// "Enter Recalls" or "Second Entry".
  [[nodiscard]] std::string Title() const;
  [[nodiscard]] std::string TestCaption() const { return "Test " + std::to_string(m_grid.Test()); }
  [[nodiscard]] std::string DoneCaption() const { return IsInReview() ? "Review" : "Done with " + TestCaption(); }
  /// "Project: " title, and under it "Subject: " identifier; "" without a subject.
  [[nodiscard]] std::string SubjectCaption() const;
  /// "12 recalls": the lines of the test shown that have an item.
  [[nodiscard]] std::string RecallsCaption() const;
  /// A line for each variable: "Age: young".
  [[nodiscard]] std::string LevelsCaption() const;
  /// The last test is shown: the subject can be completed.
  [[nodiscard]] bool IsOnLastTest() const noexcept { return m_grid.Test() == m_project->TestCount; }
  /// A note if the project already had the maximum of unfinished subjects when the entry was opened; else "".
  [[nodiscard]] const std::string& LimitNote() const noexcept { return m_limitNote; }
  [[nodiscard]] bool KeepsMinutes() const noexcept { return m_project->MinutesRecorded == 1; }

  /// "Done with Test n" and "Review".
  void DoneWithTest();
  /// The result of leaving the entry.
  struct Ending {
    bool Left = false;               ///< the screen is left
    bool UnfinishedEmptied = false;  ///< the project has no more unfinished subjects
  };
  /// "Done with all Tests!": the checks, then the save as complete.
  Ending DoneWithAllTests();
  /// True when saved; the screen stays in any case.
  bool SaveIncomplete();
  /// The Cancel button: leaves after a question.
  Ending Cancel();

  /// One tick of the autosave's timer.
  void Tick();
  void SetAutosave(bool on);
  /// Writes the autosave file now, if there is a subject to save and Autosave is on.
  void SecureAutosave();
  /// Leaves without a question, as Cancel does after it and the end of the program: shows the note of an unfinished
  /// subject, if there is one, blanks the record and deletes the autosave file.
  void Abandon();

 private:
  [[nodiscard]] bool IsInReview() const noexcept { return m_inReview && IsOnLastTest(); }
  [[nodiscard]] std::size_t CountUnfinished();
  void LookForLimit();
  void ShowFinding(const CheckFinding& finding);
  bool ListsPassTheChecks();
  bool MaySaveOutOfRange();
  SaveOutcome SaveWithNote(const std::string& note);
  void Close();
  void WriteAutosave();
  void DeleteAutosave(WhichEntry which);

  SubjectRecord& m_record;
  Preferences& m_preferences;
  Platform m_platform;
  EntryGrid m_grid;
  AutosaveTimer m_timer;
  const ProjectParameters* m_project = nullptr;
  std::string m_paramDir;
  std::string m_limitNote;
  bool m_inReview = false;  // after the last test, which stays in the grid
  bool m_open = false;
  bool m_autosavePaused = false;  // a fault was reported and not resolved
};

}  // namespace zova
