// SPDX-License-Identifier: GPL-3.0-or-later

#include "session/SubjectFlow.h"

#include <utility>

#include "platform/desktop/FileErrorBoxes.h"
#include "project/ProjectFile.h"
#include "project/ProjectLayout.h"
#include "subjects/SubjectFile.h"

namespace zova {

SubjectFlow::SubjectFlow(Preferences& preferences, const Platform& platform)
    : m_platform(platform), m_identification(m_record, platform), m_entry(m_record, preferences, platform) {}

void SubjectFlow::Show(Stage stage) {
  m_stage = stage;
  if (m_observer) m_observer();
}

void SubjectFlow::Identify(SubjectIdentification::Purpose purpose, const ProjectParameters& project,
                           const std::string& paramDir) {
  m_project = &project;
  m_paramDir = paramDir;
  m_goesOn =
      purpose == SubjectIdentification::Purpose::NewSubject || purpose == SubjectIdentification::Purpose::SecondEntry;
  m_identification.Open(purpose, project, paramDir);
  Show(Stage::Identification);
}

void SubjectFlow::OpenListed(SubjectIdentification::Purpose purpose, const std::string& file,
                             const ProjectParameters& project, const std::string& paramDir) {
  m_project = &project;
  m_paramDir = paramDir;
  m_goesOn = false;
  m_identification.Open(purpose, project, paramDir);
  OpenEntry(m_identification.LoadListed(file));
}

void SubjectFlow::NextStep() { OpenEntry(m_identification.Next()); }

void SubjectFlow::FinishIdentification() { OpenEntry(m_identification.Finish()); }

void SubjectFlow::LoadTypedSubject() { OpenEntry(m_identification.LoadTyped()); }

void SubjectFlow::BrowseSubject() { OpenEntry(m_identification.Browse()); }

void SubjectFlow::CancelIdentification() {
  m_identification.Leave();
  Show(Stage::Closed);
}

void SubjectFlow::OpenEntry(SubjectIdentification::Outcome outcome) {
  if (outcome != SubjectIdentification::Outcome::OpenEntry) return;
  // Puts an interrupted subject aside, unless restored or put aside already, before the next autosave replaces it.
  const WhichEntry which = m_record.Which;
  const auto keep = [&] { KeepAutosaveFile(m_platform.Files, m_paramDir, which); };
  if (Keeps(which) && !WithRetry(m_platform.Boxes, keep)) return;
  Keeps(which) = false;
  m_identification.Leave();
  m_entry.Open(*m_project, m_paramDir);
  Show(Stage::Entry);
}

void SubjectFlow::DoneWithAllTests() {
  if (!m_entry.DoneWithAllTests().Left) return;
  if (m_record.Which == WhichEntry::Second) {
    m_enteredFile = SubjectFileName(*m_project, m_record.SubjectId);
    Show(Stage::Compare);
  } else {
    IdentifyNext();
  }
}

void SubjectFlow::IdentifyNext() {
  if (m_goesOn) {
    m_identification.Open(m_identification.CurrentPurpose(), *m_project, m_paramDir);
    Show(Stage::Identification);
  } else {
    Show(Stage::Closed);
  }
}

void SubjectFlow::CancelEntry() {
  if (m_entry.Cancel().Left) Show(Stage::Closed);
}

std::optional<ChosenProject> SubjectFlow::OfferRestore(const std::string& paramDir) {
  if (std::exchange(m_restoreOffered, true)) return std::nullopt;
  for (const WhichEntry entry : {WhichEntry::First, WhichEntry::Second}) {
    bool isThere = false;
    WithRetry(m_platform.Boxes, [&] { isThere = m_platform.Files.FileExists(AutosavePath(paramDir, entry)); });
    if (!isThere) continue;
    const BoxAnswer answer = m_platform.Boxes.Show(
        {.Text = "The program was interrupted while entering a subject.  Would you like to restore from the autosave?",
         .Icon = BoxIcon::Information,
         .Buttons = BoxButtons::YesNoCancel,
         .Default = BoxAnswer::Yes,
         .Title = "Restore"});
    if (answer != BoxAnswer::Yes) {
      PutAside(paramDir, entry);
    } else if (auto restored = Restore(paramDir, entry)) {
      // The next start offers the second entry again, unless another one is entered before.
      if (entry == WhichEntry::First) Keeps(WhichEntry::Second) = true;
      return restored;
    }
  }
  return std::nullopt;
}

void SubjectFlow::PutAside(const std::string& paramDir, WhichEntry entry) {
  std::string kept;
  Keeps(entry) = !WithRetry(m_platform.Boxes, [&] { kept = KeepAutosaveFile(m_platform.Files, paramDir, entry); });
  if (kept.empty()) return;
  m_platform.Boxes.Show(
      {.Text = "The autosave was kept as '" + kept + "'.",
       .Icon = BoxIcon::Information,
       .Details = std::string("To take the ") + (entry == WhichEntry::First ? "subject" : "second entry") +
                  " up later, open its project and select this file with the 'Browse' button of 'Read Old Data' or "
                  "'Unfinished Business'."});
}

// Keeps a file that cannot be restored: it may be the only copy of the subject.
std::optional<ChosenProject> SubjectFlow::Restore(const std::string& paramDir, WhichEntry entry) {
  Disk& disk = m_platform.Files;
  ChosenProject chosen;
  const auto readProject = [&] {
    chosen.Path = JoinPath(paramDir, ReadAutosaveProject(disk, AutosavePath(paramDir, entry)));
    chosen.Parameters = ReadProjectFile(disk, chosen.Path);
  };
  const auto mayEnter = [&] {
    const std::string reason = ViewOnlyReason(chosen.Parameters);
    if (!reason.empty()) Warn(m_platform.Boxes, reason);
    return reason.empty();
  };
  Keeps(entry) = true;
  if (!WithRetry(m_platform.Boxes, readProject) || !MayOpenProject(chosen.Parameters, m_platform.Boxes) ||
      !mayEnter() || !WithRetry(m_platform.Boxes, [&] {
        ReadAutosaveFile(disk, AutosavePath(paramDir, entry), chosen.Parameters, m_record);
      })) {
    return std::nullopt;
  }
  Keeps(entry) = false;
  m_record.Which = entry;
  m_record.IsCorrection = true;  // perhaps; what cannot be typed again is not deleted
  return chosen;
}

void SubjectFlow::EnterRestored(const ProjectParameters& project, const std::string& paramDir) {
  m_project = &project;
  m_paramDir = paramDir;
  m_goesOn = false;
  m_entry.Open(project, paramDir, /*restored=*/true);
  Show(Stage::Entry);
}

}  // namespace zova
