// SPDX-License-Identifier: GPL-3.0-or-later
//
// The way of a subject: identified, entered, saved; or restored after an interruption.

#include <utility>

#include "project/ProjectFile.h"
#include "project/ProjectOpening.h"
#include "session/Session.h"
#include "subjects/SubjectFile.h"

#include "platform/desktop/FileErrorBoxes.h"

namespace zova {

void Session::Identify(SubjectIdentification::Purpose purpose) {
  m_entersNewSubjects = purpose == SubjectIdentification::Purpose::NewSubject;
  m_identification.Open(purpose, *m_project);
  Show(Screen::Identification);
}

void Session::EnterSubjects() {
  if (OpenFirst()) Identify(SubjectIdentification::Purpose::NewSubject);
}

void Session::ReadOldData() {
  if (OpenFirst()) Identify(SubjectIdentification::Purpose::OldData);
}

void Session::UnfinishedBusiness() {
  if (!OpenFirst()) return;
  const bool isKnown = WithRetry(m_platform.Boxes, [&] {
    if (!m_platform.Files.DirectoryExists(m_project->PrimaryDir)) {
      throw FileError(FileOperation::List, m_project->PrimaryDir, FileCause::PathNotFound);
    }
    m_hasUnfinished = HasUnfinishedFiles();
  });
  if (!isKnown) return;
  if (m_hasUnfinished) {
    Identify(SubjectIdentification::Purpose::Unfinished);
    return;
  }
  Show(Screen::Main);
  Inform(m_platform.Boxes, "You do not have unfinished data for this project.");
}

void Session::FinishIdentification() { OpenEntry(m_identification.Finish()); }

void Session::LoadTypedSubject() { OpenEntry(m_identification.LoadTyped()); }

void Session::BrowseSubject() { OpenEntry(m_identification.Browse()); }

void Session::CancelIdentification() { Show(Screen::Main); }

void Session::OpenEntry(SubjectIdentification::Outcome outcome) {
  if (outcome != SubjectIdentification::Outcome::OpenEntry) return;
  // An interrupted subject that could not be restored is put aside before this one's autosave takes its place.
  if (m_keepsAutosave && !WithRetry(m_platform.Boxes, [&] { KeepAutosaveFile(m_platform.Files, m_param.Path()); }))
    return;
  m_keepsAutosave = false;
  m_entry.Open(*m_project, m_param.Path());
  Show(Screen::Entry);
}

void Session::DoneWithAllTests() {
  if (!m_entry.DoneWithAllTests().Left) return;
  LookForUnfinished();
  if (m_entersNewSubjects) {
    Identify(SubjectIdentification::Purpose::NewSubject);
  } else {
    Show(Screen::Main);
  }
}

void Session::SaveIncompleteSubject() {
  if (!Menus().SaveIncomplete) return;
  m_entry.SaveIncomplete();
  LookForUnfinished();
}

void Session::CancelEntry() {
  if (m_entry.Cancel().Left) Show(Screen::Main);
}

void Session::AutosaveTick() { m_entry.Tick(); }

void Session::OfferRestore() {
  if (std::exchange(m_restoreOffered, true)) return;
  const std::string autosave = AutosavePath(m_param.Path());
  bool isThere = false;
  WithRetry(m_platform.Boxes, [&] { isThere = m_platform.Files.FileExists(autosave); });
  if (!isThere) return;
  const BoxAnswer answer = m_platform.Boxes.Show(
      {.Text = "The program was interrupted while entering a subject.  Would you like to restore from the autosave?",
       .Icon = BoxIcon::Information,
       .Buttons = BoxButtons::YesNoCancel,
       .Default = BoxAnswer::Yes,
       .Title = "Restore"});
  if (answer == BoxAnswer::Yes) {
    RestoreAutosave();
  } else {
    WithRetry(m_platform.Boxes, [&] { DeleteAutosaveFile(m_platform.Files, m_param.Path()); });
  }
}

// A restore that cannot be read keeps the file: it may be all there is of the subject.
void Session::RestoreAutosave() {
  Disk& disk = m_platform.Files;
  std::string file;
  ProjectParameters project;
  const auto readProject = [&] {
    file = JoinPath(m_param.Path(), ReadAutosaveProject(disk, m_param.Path()));
    project = ReadProjectFile(disk, file);
  };
  m_keepsAutosave = true;
  if (!WithRetry(m_platform.Boxes, readProject) || !MayOpenProject(project, m_platform.Boxes) ||
      !WithRetry(m_platform.Boxes, [&] { ReadAutosaveFile(disk, m_param.Path(), project, m_record); })) {
    return;
  }
  m_keepsAutosave = false;
  TakeProject(std::move(project), std::move(file));
  m_entersNewSubjects = false;
  m_entry.Open(*m_project, m_param.Path(), /*restored=*/true);
  Show(Screen::Entry);
}

}  // namespace zova
