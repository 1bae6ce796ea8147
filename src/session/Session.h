// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <exception>
#include <functional>
#include <optional>
#include <string>

#include "compare/EntrySettlement.h"
#include "means/MeansExaminer.h"
#include "platform/desktop/Platform.h"
#include "project/ProjectOpening.h"
#include "project/ProjectOverview.h"
#include "project/wizard/NewProjectWizard.h"
#include "report/HtmlReport.h"
#include "session/ImportFlow.h"
#include "session/LocationFlow.h"
#include "session/MasterFlow.h"
#include "session/MenuStates.h"
#include "session/SubjectFlow.h"
#include "session/SubjectsScreen.h"
#include "words/WordListEditor.h"

namespace zova {

/// The application without its window: the open project, the current screen, the menu states, and every command of the
/// menus and the main screen. A disabled command (MenuStates) has no effect.
class Session {
 public:
  /// `programDir` is the program's directory as a drive-letter path, `installed` the native directory it is filled
  /// from.
  Session(const Platform& platform, std::string programDir, std::string installed);

  /// Called when what the window shows may have changed while a command shows a message.
  void SetObserver(std::function<void()> observer) { m_observer = std::move(observer); }

  /// The part of the start without a window: reads the stored setting, and selects the location screen without one.
  void Prepare();
  /// Continues to the main screen or the location screen, with all questions.
  /// Then opens `projectFile`, if it is given and nothing else waits for the user. When another copy of the program
  /// uses Param, that one opens it.
  void Start(const std::string& projectFile = {});
  /// To be called when a command was ended by an exception: secures the subject that is being entered, and reports.
  void Recover(const std::exception_ptr& fault);
  /// The program is to end.
  [[nodiscard]] bool HasEnded() const noexcept { return m_ended; }

  /// "" before it is registered.
  [[nodiscard]] const std::string& ParamPath() const noexcept { return m_param.Path(); }
  [[nodiscard]] Screen Shown() const noexcept { return m_screen; }
  [[nodiscard]] MenuStates Menus() const;
  [[nodiscard]] const ProjectParameters* OpenedProject() const noexcept { return m_project ? &*m_project : nullptr; }
  /// The open project's title, or "(none)".
  [[nodiscard]] std::string ProjectCaption() const;
  /// What cannot be done with the open project, and why; "" for nearly every one.
  [[nodiscard]] std::string ProjectNote() const;
  /// "Open Existing Project", or "Change Project" while one is open.
  [[nodiscard]] std::string OpenCaption() const;

  /// What the open project is and how many subjects it has (FactsText); "" without a project. Counted by CountProjects.
  [[nodiscard]] const std::string& ProjectFacts() const noexcept { return m_facts; }
  /// The projects in Param while none is open. Listed by CountProjects.
  [[nodiscard]] const std::vector<ListedProject>& Projects() const noexcept { return m_listed; }
  /// True when the main screen came up and what it says of projects is older.
  [[nodiscard]] bool CountsAreOld() const noexcept { return m_countsAreOld; }
  void CountProjects();

  // File
  void OpenExistingProject();
  /// As OpenExistingProject, for a file that the user chose elsewhere.
  void OpenProject(const std::string& path);
  void CreateNewProject();
  void SaveIncompleteSubject();
  void Exit();
  /// Closing the window: true when it may close.
  bool Close();
  // Options. Each first opens a project if none is open.
  void EnterSubjects();
  void CreateNewMaster();
  void ExamineMeans();
  void ReadOldData();
  void UnfinishedBusiness();
  void ViewParameters();
  // Data
  void ImportRecalls();
  /// Without a project: opens one for the import, or defines the proposed one in the wizard.
  void ImportIntoExisting();
  void DefineImported();
  void ShowSubjects();
  void EnterSecond();
  // Preferences
  [[nodiscard]] const Preferences& Chosen() const noexcept { return m_preferences; }
  void ToggleSkipMinutes();
  void ToggleNextBlankSpace();
  void ToggleAutosave();
  // Tools
  void CreateNewBackup();
  void RestoreFromBackup();
  void ChangeParamLocation();
  // Data. Each first opens a project if none is open.
  void EditWordList();
  // Help
  void ShowTopics();
  void ShowScreenHelp();  ///< for the current screen
  void ShowAbout();

  NewProjectWizard& Wizard() noexcept { return m_wizard; }
  void CancelWizard();
  void FinishWizard();

  /// The screens of a subject, shown as Identification or Entry.
  SubjectFlow& Subjects() noexcept { return m_subjects; }

  /// The table of all subjects, shown as Subjects.
  SubjectsScreen& SubjectList() noexcept { return m_subjectList; }
  void CloseSubjects();
  /// Reads old data, or goes on with the unfinished subject; a save leads back to the table.
  void OpenChosenSubject();

  /// The differences between the entries of a subject, shown as Compare.
  EntrySettlement& Settlement() noexcept { return m_settlement; }
  /// Of the one chosen in the table.
  void CompareChosenSubject();
  void SettleComparison();
  void CloseComparison();

  /// The screens of a master, shown as Masters unless its stage is Closed.
  MasterFlow& Masters() noexcept { return m_masters; }
  void ShowMeasuresHelp();
  void ShowPlotHelp();
  /// The quick help for a control of the screen that is up.
  [[nodiscard]] std::string_view QuickHelpOf(std::string_view control) const;
  /// The last master written since the program started, or "".
  [[nodiscard]] const std::string& LastMaster() const noexcept { return m_masters.LastMaster(); }
  /// All files of that run.
  [[nodiscard]] const std::vector<std::string>& LastFiles() const noexcept { return m_masters.LastFiles(); }
  void OpenLastMasterFolder();

  /// The screens of an import, shown as Import.
  ImportFlow& Imports() noexcept { return m_imports; }

  MeansExaminer& Means() noexcept { return m_means; }
  void CloseMeans();
  /// Saves a report of the measures and variables chosen in Examine Means. What could not be computed is left out of
  /// it.
  void SaveReport(const std::string& path, const DrawFigure& draw);

  WordListEditor& Words() noexcept { return m_words; }
  /// Asks before unsaved changes are lost.
  void CloseWords();

  LocationFlow& Location() noexcept { return m_location; }

 private:
  void Show(Screen screen);
  [[nodiscard]] bool IsSavedInParam();
  void ShowParamLocation();
  void FollowLocation(const LocationOutcome& outcome);
  void ReadSetting();
  void StartWithLostParam();
  void StartWithParam();
  bool LockParam();
  void Opened(ChosenProject chosen);
  bool SetProject(ProjectParameters project, std::string file);  // false: no project is open
  void CloseProject();
  [[nodiscard]] bool HasUnfinishedFiles();
  void LookForUnfinished();
  /// True when a project is open now that can be more than viewed.
  bool OpenFirst();
  bool MayLeaveEntry(const Question& question);
  void FollowMasters();
  void FollowImport();
  bool LeavesImport();
  void FinishMasters();
  void OfferRestore();
  void Identify(SubjectIdentification::Purpose purpose);
  void UseWords();
  void FollowSubjects();
  void ShowSubjectList();
  bool OpenComparison(const std::string& file);
  void CompareEntered();
  void LeaveComparison();

  Platform m_platform;
  std::string m_programDir;
  std::string m_installed;
  ParamDirectory m_param;
  LocationFlow m_location;
  NewProjectWizard m_wizard;
  Preferences m_preferences;
  SubjectFlow m_subjects;
  SubjectsScreen m_subjectList;
  EntrySettlement m_settlement;
  MasterFlow m_masters;
  ImportFlow m_imports;
  MeansExaminer m_means;
  WordListEditor m_words;
  std::function<void()> m_observer;
  Screen m_screen = Screen::Main;
  std::optional<ProjectParameters> m_project;
  std::string m_startFile;  // while the program starts
  std::string m_facts;
  std::vector<ListedProject> m_listed;
  bool m_countsAreOld = true;
  SavedProject m_saved;  // of the open project
  bool m_hasUnfinished = false;
  bool m_isFromList = false;  // the subject was opened from the table
  bool m_restoring = false;   // never reset
  bool m_prepared = false;
  bool m_settingRead = false;
  bool m_savedInParam = false;  // the open project's parameter file, when the location screen came up
  bool m_ended = false;
};

}  // namespace zova
