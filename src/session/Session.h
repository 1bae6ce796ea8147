// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <optional>
#include <string>

#include "means/MeansExaminer.h"
#include "platform/desktop/Platform.h"
#include "project/wizard/NewProjectWizard.h"
#include "session/LocationFlow.h"
#include "session/MasterFlow.h"
#include "session/MenuStates.h"
#include "session/SubjectFlow.h"

namespace zova {

/// The application without its window: what is open, which screen is up, what the menus allow, and every command of
/// the menus and of the main screen. A command that cannot be chosen now (MenuStates) does nothing.
class Session {
 public:
  /// `programDir` is the program's directory as a drive-letter path, `installed` the native one that it is filled from.
  Session(const Platform& platform, std::string programDir, std::string installed);

  /// Called whenever what the window shows may have changed while a command goes on with a message.
  void SetObserver(std::function<void()> observer) { m_observer = std::move(observer); }

  /// What needs no window: reads the stored setting, and takes the location screen when there is none.
  void Prepare();
  /// From there to the main screen, or to the location screen, with all questions on the way.
  void Start();
  /// The program is to end.
  [[nodiscard]] bool HasEnded() const noexcept { return m_ended; }

  [[nodiscard]] Screen Shown() const noexcept { return m_screen; }
  [[nodiscard]] MenuStates Menus() const;
  [[nodiscard]] const ProjectParameters* OpenedProject() const noexcept { return m_project ? &*m_project : nullptr; }
  /// The open project's title, or "(none)".
  [[nodiscard]] std::string ProjectCaption() const;
  /// What cannot be done with the open project, and why; "" for nearly every one.
  [[nodiscard]] std::string ProjectNote() const;
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
  void ToggleSkipMinutes();
  void ToggleNextBlankSpace();
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

  /// The screens of a subject; `Shown` is Identification or Entry while its stage is.
  SubjectFlow& Subjects() noexcept { return m_subjects; }

  /// The screens of a master; `Shown` is Masters while its stage is not Closed.
  MasterFlow& Masters() noexcept { return m_masters; }
  void ShowMeasuresHelp();
  /// The last master made in this run of the program, or "".
  [[nodiscard]] const std::string& LastMaster() const noexcept { return m_masters.LastMaster(); }
  void OpenLastMasterFolder();

  /// The rules of Examine Means; `Shown` is Means while it is up.
  MeansExaminer& Means() noexcept { return m_means; }
  void CloseMeans();

  /// The screen on which a directory is chosen; `Shown` is Location while it is up.
  LocationFlow& Location() noexcept { return m_location; }

 private:
  void Show(Screen screen);
  [[nodiscard]] bool IsSavedInParam();
  void ShowParamLocation();
  void FollowLocation(const LocationOutcome& outcome);
  void ReadSetting();
  void StartWithLostParam();
  bool LockParam();
  void SetProject(ProjectParameters project, std::string file);
  void CloseProject();
  [[nodiscard]] bool HasUnfinishedFiles();
  void LookForUnfinished();
  /// True when a project is open now that can be more than viewed.
  bool OpenFirst();
  bool MayLeaveEntry(const Question& question);
  void FollowMasters();
  void FinishMasters();
  void OfferRestore();
  void Identify(SubjectIdentification::Purpose purpose);
  void FollowSubjects();

  Platform m_platform;
  std::string m_programDir;
  std::string m_installed;
  ParamDirectory m_param;
  LocationFlow m_location;
  NewProjectWizard m_wizard;
  Preferences m_preferences;
  SubjectFlow m_subjects;
  MasterFlow m_masters;
  MeansExaminer m_means;
  std::function<void()> m_observer;
  Screen m_screen = Screen::Main;
  std::optional<ProjectParameters> m_project;
  SavedProject m_saved;  // of the open project
  bool m_hasUnfinished = false;
  bool m_restoring = false;  // never false again once set
  bool m_prepared = false;
  bool m_settingRead = false;
  bool m_savedInParam = false;  // the open project's parameter file, when the location screen came up
  bool m_ended = false;
};

}  // namespace zova
