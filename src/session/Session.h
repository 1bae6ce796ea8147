// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <exception>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>

#include "means/MeansExaminer.h"
#include "platform/desktop/DirectoryBrowser.h"
#include "platform/desktop/Platform.h"
#include "project/ParamLocation.h"
#include "project/ProjectBackup.h"
#include "project/wizard/NewProjectWizard.h"
#include "session/MasterFlow.h"
#include "session/MenuStates.h"
#include "subjects/SubjectIdentification.h"
#include "subjects/entry/SubjectEntry.h"

namespace zova {

/// The application without its window: what is open, which screen is up, what the menus allow, and every command of
/// the menus and of the main screen. A command that cannot be chosen now (MenuStates) does nothing.
class Session {
 public:
  /// `programDir` is the program's directory as a drive-letter path, `installed` the native one that it is filled from.
  Session(const Platform& platform, std::string programDir, std::filesystem::path installed);

  /// Called whenever what the window shows may have changed while a command goes on with a message.
  void SetObserver(std::function<void()> observer) { m_observer = std::move(observer); }

  /// What needs no window: reads the stored setting, and takes the location screen when there is none.
  void Prepare();
  /// From there to the main screen, or to the location screen, with all questions on the way.
  void Start();
  /// To be called when a command was ended by an exception: secures the subject that is being entered, and reports.
  void Recover(const std::exception_ptr& fault);
  /// The program is to end.
  [[nodiscard]] bool HasEnded() const noexcept { return m_ended; }

  [[nodiscard]] Screen Shown() const noexcept { return m_screen; }
  [[nodiscard]] MenuStates Menus() const noexcept;
  [[nodiscard]] const ProjectParameters* OpenedProject() const noexcept { return m_project ? &*m_project : nullptr; }
  /// The open project's title, or "(none)".
  [[nodiscard]] std::string ProjectCaption() const;
  /// "Open Existing Project", or "Change Project" while one is open.
  [[nodiscard]] std::string OpenCaption() const;

  // File
  void OpenExistingProject();
  void CreateNewProject();
  void SaveIncompleteSubject();
  void Exit();
  /// The window's own closing: true when it may go.
  bool Close();
  // Options. Each opens a project first when none is open.
  void EnterSubjects();
  void CreateNewMaster();
  void ExamineMeans();
  void ReadOldData();
  void UnfinishedBusiness();
  void ViewParameters();
  // Preferences
  [[nodiscard]] const Preferences& Chosen() const noexcept { return m_preferences; }
  void ToggleSkipMinutes() noexcept;
  void ToggleNextBlankSpace() noexcept;
  void ToggleAutosave();
  // Tools
  void CreateNewBackup();
  void RestoreFromBackup();
  void ChangeParamLocation();
  // Help
  void ShowTopics();
  void ShowScreenHelp();  ///< of the screen that is up
  void ShowAbout();

  NewProjectWizard& Wizard() noexcept { return m_wizard; }
  void CancelWizard();
  void FinishWizard();

  SubjectIdentification& Identification() noexcept { return m_identification; }
  void FinishIdentification();
  void LoadTypedSubject();
  void BrowseSubject();
  void CancelIdentification();

  SubjectEntry& Entry() noexcept { return m_entry; }
  void DoneWithAllTests();
  void CancelEntry();
  void AutosaveTick();

  /// The screens of a master; `Shown` is Masters while its stage is not Closed.
  MasterFlow& Masters() noexcept { return m_masters; }
  void ShowMeasuresHelp();
  /// The last master made in this run of the program, or "".
  [[nodiscard]] const std::string& LastMaster() const noexcept { return m_masters.LastMaster(); }
  void OpenLastMasterFolder();

  /// The rules of Examine Means; `Shown` is Means while it is up.
  MeansExaminer& Means() noexcept { return m_means; }
  void CloseMeans();

  // The panel on which a directory is chosen, in its three forms.
  [[nodiscard]] LocationTexts LocationTextsShown() const;
  DirectoryBrowser& LocationBrowser() noexcept { return m_locationBrowser; }
  [[nodiscard]] const std::string& LocationText() const noexcept { return m_locationText; }
  void SetLocationText(const std::string& text);
  /// The Param directory that the text gives; "" on the backup form.
  [[nodiscard]] std::string LocationResult() const;
  void AcceptLocation();
  void CancelLocation();

 private:
  void Show(Screen screen);
  void ShowLocation(Screen screen);
  void Follow(const LocationOutcome& outcome);
  void StartWithLostParam();
  bool LockParam();
  void TakeProject(ProjectParameters project, std::string file);
  void CloseProject();
  [[nodiscard]] bool HasUnfinishedFiles();
  void LookForUnfinished();
  /// True when a project is open now.
  bool OpenFirst();
  bool MayLeaveEntry(const Question& question);
  void FollowMasters();
  void FinishMasters();
  void OfferRestore();
  void RestoreAutosave();
  void Identify(SubjectIdentification::Purpose purpose);
  void OpenEntry(SubjectIdentification::Outcome outcome);

  Platform m_platform;
  std::string m_programDir;
  std::filesystem::path m_installed;
  ParamDirectory m_param;
  ParamLocation m_location;
  NewProjectWizard m_wizard;
  DirectoryBrowser m_locationBrowser;
  std::string m_locationText;
  Preferences m_preferences;
  SubjectRecord m_record;
  SubjectIdentification m_identification;
  SubjectEntry m_entry;
  MasterFlow m_masters;
  MeansExaminer m_means;
  bool m_entersNewSubjects = false;  // after a complete save the next one is asked for
  std::function<void()> m_observer;
  Screen m_screen = Screen::Main;
  std::optional<ProjectParameters> m_project;
  SavedProject m_saved;  // of the open project
  bool m_hasUnfinished = false;
  bool m_restoring = false;  // never false again once set
  bool m_prepared = false;
  bool m_restoreOffered = false;
  bool m_keepsAutosave = false;  // one that could not be restored
  bool m_ended = false;
};

}  // namespace zova
