// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <optional>
#include <string>

#include "platform/desktop/Platform.h"
#include "project/ProjectOpening.h"
#include "subjects/SubjectIdentification.h"
#include "subjects/entry/SubjectEntry.h"

namespace zova {

/// The screens of a subject: identified, entered and autosaved, saved; or restored after an interruption. The session
/// shows the screen of the stage and is notified of changes by the observer.
class SubjectFlow {
 public:
  enum class Stage { Closed, Identification, Entry };

  SubjectFlow(Preferences& preferences, const Platform& platform);
  /// Called when the stage changes while a command goes on.
  void SetObserver(std::function<void()> observer) { m_observer = std::move(observer); }

  [[nodiscard]] Stage CurrentStage() const noexcept { return m_stage; }
  /// The title of the project of the last opening.
  [[nodiscard]] std::string ProjectName() const { return m_project ? ProjectTitle(*m_project) : ""; }
  SubjectIdentification& Identification() noexcept { return m_identification; }
  [[nodiscard]] const SubjectIdentification& Identification() const noexcept { return m_identification; }
  SubjectEntry& Entry() noexcept { return m_entry; }

  /// Opens the identification. `project` must outlive the flow's screens, here and below.
  void Identify(SubjectIdentification::Purpose purpose, const ProjectParameters& project, const std::string& paramDir);
  void FinishIdentification();
  void LoadTypedSubject();
  void BrowseSubject();
  void CancelIdentification();

  /// After a complete save, the next new subject is identified.
  void DoneWithAllTests();
  void CancelEntry();

  /// Offers the autosave of an interrupted run, the first time that it is called. Returns the project of the subject
  /// that was restored, which EnterRestored then shows; nullopt when there is none.
  std::optional<ChosenProject> OfferRestore(const std::string& paramDir);
  void EnterRestored(const ProjectParameters& project, const std::string& paramDir);

 private:
  void Show(Stage stage);
  void OpenEntry(SubjectIdentification::Outcome outcome);
  std::optional<ChosenProject> Restore(const std::string& paramDir);
  void PutAside(const std::string& paramDir);

  Platform m_platform;
  SubjectRecord m_record;
  SubjectIdentification m_identification;
  SubjectEntry m_entry;
  std::function<void()> m_observer;
  Stage m_stage = Stage::Closed;
  const ProjectParameters* m_project = nullptr;
  std::string m_paramDir;
  bool m_entersNewSubjects = false;  // after a complete save the next one is asked for
  bool m_restoreOffered = false;
  bool m_keepsAutosave = false;  // one that was neither restored nor put aside
};

}  // namespace zova
