// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <functional>
#include <optional>
#include <string>

#include "platform/desktop/Platform.h"
#include "project/ProjectOpening.h"
#include "subjects/SubjectIdentification.h"
#include "subjects/entry/SubjectEntry.h"

namespace zova {

/// The screens of a subject: identification, entry with autosave, saving; or restoring after an interruption. The
/// session shows the screen of the stage; the observer notifies it of changes.
class SubjectFlow {
 public:
  /// Compare: a second entry was completed, and differs from the first one or not.
  enum class Stage { Closed, Identification, Entry, Compare };

  SubjectFlow(Preferences& preferences, const Platform& platform);
  /// Called when the stage changes during a command.
  void SetObserver(std::function<void()> observer) { m_observer = std::move(observer); }

  [[nodiscard]] Stage CurrentStage() const noexcept { return m_stage; }
  SubjectIdentification& Identification() noexcept { return m_identification; }
  [[nodiscard]] const SubjectIdentification& Identification() const noexcept { return m_identification; }
  SubjectEntry& Entry() noexcept { return m_entry; }

  /// Opens the identification. `project` must outlive the flow's screens, also below.
  void Identify(SubjectIdentification::Purpose purpose, const ProjectParameters& project, const std::string& paramDir);
  /// Enters the subject of a listed file (OldData or Unfinished), without the identification. Stays closed when it
  /// cannot be read.
  void OpenListed(SubjectIdentification::Purpose purpose, const std::string& file, const ProjectParameters& project,
                  const std::string& paramDir);
  void NextStep();
  void FinishIdentification();
  void LoadTypedSubject();
  void BrowseSubject();
  void CancelIdentification();

  /// After a complete save continues with the next new subject.
  void DoneWithAllTests();
  void CancelEntry();
  /// The file's name of the second entry completed last.
  [[nodiscard]] const std::string& EnteredFile() const noexcept { return m_enteredFile; }
  /// Goes on after Compare.
  void IdentifyNext();

  /// On the first call, offers to restore the autosave of an interrupted run. Returns the restored subject's project,
  /// to be shown by EnterRestored; nullopt without one.
  std::optional<ChosenProject> OfferRestore(const std::string& paramDir);
  /// Instead of it, when the project cannot be opened: the autosave stays, and is put aside before another subject's.
  void KeepRestored() { Keeps(m_record.Which) = true; }
  void EnterRestored(const ProjectParameters& project, const std::string& paramDir);

 private:
  void Show(Stage stage);
  void OpenEntry(SubjectIdentification::Outcome outcome);
  std::optional<ChosenProject> Restore(const std::string& paramDir, WhichEntry entry);
  void PutAside(const std::string& paramDir, WhichEntry entry);
  [[nodiscard]] bool& Keeps(WhichEntry entry) { return m_keepsAutosave[entry == WhichEntry::First ? 0 : 1]; }

  Platform m_platform;
  SubjectRecord m_record;
  SubjectIdentification m_identification;
  SubjectEntry m_entry;
  std::function<void()> m_observer;
  Stage m_stage = Stage::Closed;
  const ProjectParameters* m_project = nullptr;
  std::string m_paramDir;
  std::string m_enteredFile;
  bool m_goesOn = false;  // after a complete save identify the next one
  bool m_restoreOffered = false;
  std::array<bool, 2> m_keepsAutosave{};  // the file of the entry was neither restored nor put aside
};

}  // namespace zova
