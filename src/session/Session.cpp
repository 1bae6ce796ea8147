// SPDX-License-Identifier: GPL-3.0-or-later

#include "session/Session.h"

#include <utility>

#include "platform/desktop/FileErrorBoxes.h"
#include "project/DirectoryRules.h"
#include "project/FileChanges.h"
#include "project/ProjectOpening.h"
#include "session/ProgramDirectory.h"
#include "subjects/SubjectFiles.h"

namespace zova {

Session::Session(const Platform& platform, std::string programDir, std::string installed)
    : m_platform(platform),
      m_programDir(std::move(programDir)),
      m_installed(std::move(installed)),
      m_param(platform.Settings, platform.Files),
      m_location(m_param, m_programDir, platform),
      m_wizard(platform),
      m_subjects(m_preferences, platform),
      m_subjectList(platform),
      m_settlement(platform),
      m_masters(platform),
      m_imports(platform),
      m_means(platform),
      m_words(platform) {
  m_location.SetObserver([this](const LocationOutcome& outcome) { FollowLocation(outcome); });
  m_subjects.SetObserver([this] { FollowSubjects(); });
  m_masters.SetObserver([this] { FollowMasters(); });
  m_subjectList.SetObserver([this] {
    if (m_observer) m_observer();
  });
  m_imports.SetObserver([this] { FollowImport(); });
  m_means.SetObserver([this] {
    if (m_observer) m_observer();
  });
}

void Session::Prepare() {
  m_prepared = true;
  FillProgramDirectory(m_installed, m_programDir, m_platform.Files);
  try {
    ReadSetting();
  } catch (const FileError&) {
    // Start reads it again, when a fault can be reported.
  }
}

void Session::ReadSetting() {
  m_param.Load();
  m_settingRead = true;
  if (!m_param.IsRegistered()) ShowParamLocation();
}

void Session::Start(const std::string& projectFile) {
  m_startFile = projectFile;
  StartWithParam();
  m_startFile.clear();
  if (!projectFile.empty() && !m_ended && m_screen == Screen::Main && !m_project) OpenProject(projectFile);
}

void Session::StartWithParam() {
  if (!m_prepared) Prepare();
  if (!m_settingRead && !WithRetry(m_platform.Boxes, [&] { ReadSetting(); })) return ShowParamLocation();
  if (!m_param.IsRegistered()) return;
  bool isThere = false;
  if (!WithRetry(m_platform.Boxes, [&] { isThere = m_param.IsThere(); })) return ShowParamLocation();
  if (!isThere) {
    StartWithLostParam();
  } else if (LockParam()) {
    OfferRestore();
  }
}

void Session::StartWithLostParam() {
  const BoxAnswer answer = m_platform.Boxes.Show(
      {.Text = "The 'Param' directory has been moved or deleted.  To attempt to locate the 'Param' directory or to "
               "select a new location for it, select 'Yes' below.  If you select 'No' ZOVA will create a new 'Param' "
               "folder at '" +
               ParamDirectoryIn(m_programDir) + "'.  Do you want to browse for a directory location?",
       .Icon = BoxIcon::Exclamation,
       .Buttons = BoxButtons::YesNo,
       .Default = BoxAnswer::Yes,
       .Title = "Warning"});
  // Kept: the question names the program's directory, but the directory of the stored setting is created.
  if (answer == BoxAnswer::No &&
      CreateParamDirectory(m_param.Path(), m_programDir, m_platform.Files, m_platform.Boxes)) {
    if (LockParam()) OfferRestore();
  } else {
    ShowParamLocation();
  }
}

bool Session::LockParam() {
  if (m_param.Lock(m_param.Path())) return true;
  const bool isHandedOver = !m_startFile.empty() && m_platform.Pointer.HandOver(m_param.Path(), m_startFile);
  if (!isHandedOver) ReportParamInUse(m_platform.Boxes);
  m_ended = true;
  return false;
}

MenuStates Session::Menus() const {
  MenuFacts facts = {.Shown = m_screen, .ProjectOpen = m_project.has_value(), .HasUnfinished = m_hasUnfinished};
  if (m_project) {
    facts.MinutesKept = m_project->MinutesRecorded == 1;
    facts.ViewOnly = !ViewOnlyReason(*m_project).empty();
    facts.MayBackUp = NoBackupReason(*m_project).empty();
  }
  return MenusFor(facts);
}

std::string Session::ProjectCaption() const { return m_project ? ProjectTitle(*m_project) : kNoDirectory; }

std::string Session::ProjectNote() const { return m_project ? NoBackupReason(*m_project) : std::string(); }

std::string Session::OpenCaption() const { return m_project ? "Change Project" : "Open Existing Project"; }

void Session::Show(Screen screen) {
  m_screen = screen;
  m_countsAreOld = true;
  if (screen == Screen::Main && m_project) LookForUnfinished();  // another computer may have added or completed some
  if (m_observer) m_observer();
}

// A change that is half made would be made worse by any other.
bool Session::SetProject(ProjectParameters project, std::string file) {
  m_masters.ForgetHeader();
  m_project = std::move(project);
  m_saved = {std::move(file), m_project->BackupDir};
  m_facts.clear();
  if (ViewOnlyReason(*m_project).empty() && !FinishInterruptedChanges(*m_project, m_platform)) {
    CloseProject();
    return false;
  }
  LookForUnfinished();
  return true;
}

void Session::CloseProject() {
  m_masters.ForgetHeader();
  m_project.reset();
  m_facts.clear();
  m_countsAreOld = true;
  m_saved = {};
  m_hasUnfinished = false;
}

void Session::CountProjects() {
  m_countsAreOld = false;
  m_listed.clear();
  if (m_project) {
    m_facts = FactsText(*m_project, CountSubjects(*m_project, m_platform.Files));
    return;
  }
  try {
    if (m_param.IsRegistered()) m_listed = ListProjects(m_param.Path(), m_platform.Files);
  } catch (const FileError&) {
    // A Param that is not ready is reported when it is needed; the list is empty until then.
  }
}

bool Session::HasUnfinishedFiles() {
  return ViewOnlyReason(*m_project).empty() &&
         !ListSubjectFiles(m_platform.Files, *m_project, UnfinishedDirectory(m_project->PrimaryDir)).empty();
}

void Session::LookForUnfinished() {
  try {
    m_hasUnfinished = HasUnfinishedFiles();
  } catch (const FileError&) {
    m_hasUnfinished = false;  // a drive that is not ready is reported when it is needed
  }
}

void Session::OpenExistingProject() {
  if (!Menus().Open) return;
  if (m_screen == Screen::Wizard) {
    CancelWizard();
    if (m_screen == Screen::Wizard) return;
  }
  auto chosen = ChooseProject("Load Project", m_param.Path(), m_platform);
  if (chosen) Opened(std::move(*chosen));
}

void Session::OpenProject(const std::string& path) {
  if (m_screen != Screen::Main) return;
  if (auto chosen = ReadProject(path, m_platform)) Opened(std::move(*chosen));
}

void Session::Opened(ChosenProject chosen) {
  if (!MayOpenProject(chosen.Parameters, m_platform.Boxes)) {
    CloseProject();
    return;
  }
  SetProject(std::move(chosen.Parameters), std::move(chosen.Path));
  Show(Screen::Main);
  if (!m_hasUnfinished) return;
  if (Confirm(m_platform.Boxes,
              {.Text = "You have unfinished business for this experiment.  Do you want to complete some data now?",
               .Icon = BoxIcon::Question}))
    UnfinishedBusiness();
}

void Session::UnfinishedBusiness() {
  if (!OpenFirst()) return;
  const bool isKnown = WithRetry(m_platform.Boxes, [&] {
    RequireDirectory(m_platform.Files, m_project->PrimaryDir, FileOperation::List);
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

void Session::SaveIncompleteSubject() {
  if (Menus().SaveIncomplete) m_subjects.Entry().SaveIncomplete();
}

void Session::OfferRestore() {
  auto restored = m_subjects.OfferRestore(m_param.Path());
  if (!restored) return;
  if (!SetProject(std::move(restored->Parameters), std::move(restored->Path))) return m_subjects.KeepRestored();
  m_isFromList = false;
  UseWords();
  m_subjects.EnterRestored(*m_project, m_param.Path());
}

bool Session::OpenFirst() {
  if (m_screen != Screen::Main) return false;
  if (!m_project) OpenExistingProject();
  if (!m_project || m_screen != Screen::Main) return false;
  const std::string reason = ViewOnlyReason(*m_project);
  if (!reason.empty()) Warn(m_platform.Boxes, reason);
  return reason.empty();
}

void Session::CreateNewProject() {
  if (!Menus().Create) return;
  CloseProject();
  m_wizard.Start(m_param.Path());
  Show(Screen::Wizard);
}

void Session::ViewParameters() {
  if (!Menus().View) return;
  m_wizard.View(*m_project);
  Show(Screen::Viewing);
}

void Session::CancelWizard() {
  if (!m_wizard.Cancel()) return;
  m_imports.Forget();
  Show(Screen::Main);
}

void Session::FinishWizard() {
  const bool viewing = m_screen == Screen::Viewing;
  if (!m_wizard.Done(m_restoring)) return;
  if (!viewing) {
    const ProjectParameters& project = m_wizard.Project();
    if (!SetProject(project, ParameterFilePath(m_param.Path(), project))) m_imports.Forget();
  }
  Show(Screen::Main);
  if (viewing || !m_project) return;
  if (m_imports.IsWaiting()) return m_imports.Resume(*m_project);
  const BoxAnswer answer =
      m_platform.Boxes.Show({.Text = "Do you want to continue by entering data for this project now?",
                             .Icon = BoxIcon::Question,
                             .Buttons = BoxButtons::YesNo,
                             .Default = BoxAnswer::Yes});
  if (answer == BoxAnswer::Yes) EnterSubjects();
}

void Session::Exit() {
  if (m_masters.CurrentStage() == MasterFlow::Stage::Writing) return;
  FinishMasters();
  if (!LeavesImport()) return;
  if (m_screen == Screen::Entry &&
      !MayLeaveEntry(
          {.Text = "You will lose all unsaved changes.  Are you sure you want to do this?", .Title = "Warning"})) {
    return;
  }
  if (m_screen == Screen::Words && !m_words.MayLeave()) return;
  if (m_screen == Screen::Compare && !m_settlement.MayLeave()) return;
  m_ended = true;
}

// Reports written masters and their notices, also when only the groups' order is cancelled.
void Session::FinishMasters() {
  if (m_masters.CurrentStage() == MasterFlow::Stage::OrderOfGroups) m_masters.CancelOrder();
}

bool Session::Close() {
  if (m_ended) return true;
  if (m_masters.CurrentStage() == MasterFlow::Stage::Writing) return false;
  FinishMasters();
  if (!LeavesImport()) return false;
  if (m_screen == Screen::Location) {
    m_ended = m_location.MayClose();
  } else if (m_screen == Screen::Words) {
    m_ended = m_words.MayLeave();
  } else if (m_screen == Screen::Compare) {
    m_ended = m_settlement.MayLeave();
  } else {
    m_ended = m_screen != Screen::Entry || MayLeaveEntry({.Text = "Are you sure that you would like to exit ZOVA?",
                                                          .Icon = BoxIcon::Question,
                                                          .Title = "Exit"});
  }
  return m_ended;
}

bool Session::MayLeaveEntry(const Question& question) {
  if (!Confirm(m_platform.Boxes, question)) return false;
  m_subjects.Entry().Abandon();
  return true;
}

void Session::Recover(const std::exception_ptr& fault) {
  try {
    m_subjects.Entry().SecureAutosave();
  } catch (...) {
    // What ended the command, memory that is short, say, may end this as well. The last autosave is still whole.
  }
  ReportFault(m_platform.Boxes, fault);
  if (m_observer) m_observer();
}

void Session::ToggleSkipMinutes() {
  if (Menus().SkipMinutes) m_preferences.SkipMinutes = !m_preferences.SkipMinutes;
}

void Session::ToggleNextBlankSpace() {
  if (Menus().NextBlank) m_preferences.NextBlankSpace = !m_preferences.NextBlankSpace;
}

void Session::ToggleAutosave() {
  if (Menus().Autosave) m_subjects.Entry().SetAutosave(!m_preferences.Autosave);
}

}  // namespace zova
