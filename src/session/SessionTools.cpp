// SPDX-License-Identifier: GPL-3.0-or-later
//
// The commands for masters and means, and those of the Tools menu.

#include "project/ProjectFile.h"
#include "project/ProjectOpening.h"
#include "session/ProgramDirectory.h"
#include "session/Session.h"

#include "platform/desktop/FileErrorBoxes.h"
#include "project/ProjectLayout.h"
#include "report/MakeReport.h"
#include "session/Version.h"

namespace zova {

void Session::ExamineMeans() {
  if (!OpenFirst()) return;
  m_screen = Screen::Means;
  m_means.Open(*m_project, m_masters.LastHeader());
}

void Session::SaveReport(const std::string& path, const DrawFigure& draw) {
  ReportChoice choice{path,
                      ParameterFilePath(m_project->PrimaryDir, *m_project),
                      m_means.Request().Variables,
                      {},
                      std::nullopt,
                      m_means.Options()};
  for (const std::size_t measure : m_means.Request().Measures) {
    choice.Measures.push_back(m_means.Table().MeasureName(measure));
  }
  const BusyPointer busy(m_platform.Pointer);
  std::string unknown;
  const auto html = MakeReport(*m_project, choice, kVersion, draw, m_platform, unknown);
  if (html) return m_means.SaveReport(path, *html);
  if (unknown.empty()) return;
  Warn(m_platform.Boxes, "The subjects have no measure '" + unknown + "' any more.  Create the master again.");
}

void Session::CloseMeans() {
  if (m_screen != Screen::Means) return;
  m_means.Close();
  Show(Screen::Main);
}

void Session::CreateNewMaster() {
  if (!OpenFirst()) return;
  LookForUnfinished();
  if (m_hasUnfinished) {
    if (Confirm(
            m_platform.Boxes,
            {.Text =
                 "You have unfinished business for this experiment.  The unfinished data will not be included in the "
                 "master.  Do you want to complete some data now?",
             .Icon = BoxIcon::Question})) {
      UnfinishedBusiness();
      return;
    }
  }
  m_masters.Open(*m_project);
}

void Session::FollowMasters() {
  Show(m_masters.CurrentStage() == MasterFlow::Stage::Closed ? Screen::Main : Screen::Masters);
}

void Session::OpenLastMasterFolder() {
  if (LastMaster().empty()) return;
  bool opened = true;
  WithRetry(m_platform.Boxes, [&] {
    opened = m_platform.Pointer.OpenFolder(DirectoryOf(m_platform.Files.Resolve(LastMaster(), FileOperation::List)));
  });
  if (opened) return;
  Warn(m_platform.Boxes, "The folder could not be opened.", std::string(DirectoryOfPath(LastMaster())));
}

void Session::CreateNewBackup() {
  if (!Menus().Backup) return;
  const BackupOutcome outcome = BeginBackup(*m_project, m_param.Path(), m_platform);
  if (outcome.AsksDestination) {
    m_location.OpenBackup(*m_project, m_saved);
    Show(Screen::Location);
  }
  if (outcome.Message) m_platform.Boxes.Show(*outcome.Message);
}

void Session::RestoreFromBackup() {
  if (!Menus().Restore || !WantsRestore(m_platform.Boxes)) return;
  // Kept: never reset, so later parameter files get no copy in their backup directory.
  m_restoring = true;
  const auto path = ChooseProjectFile("Please select a (.prm) file.", m_param.Path(), m_platform.Dialogs);
  if (!path) return;
  CloseProject();  // no project stays open if the file cannot be read
  ProjectParameters project;
  if (!WithRetry(m_platform.Boxes, [&] { project = ReadProjectFile(m_platform.Files, *path); })) return;
  if (const std::string reason = NoBackupReason(project); !reason.empty()) return Warn(m_platform.Boxes, reason);
  const bool wasBackupCopy = project.FormatMarker == kBackupMarker;
  const std::optional<MessageBox> message = RestoreData(project, *path, m_param.Path(), m_platform);
  std::string file = wasBackupCopy ? ParameterFilePath(m_param.Path(), project) : *path;
  SetProject(std::move(project), std::move(file));
  Show(Screen::Main);
  if (message) m_platform.Boxes.Show(*message);
}

void Session::ChangeParamLocation() {
  if (Menus().MoveParam) ShowParamLocation();
}

// An older project's backup takes the parameter file from where it was opened, which a move takes with it.
bool Session::IsSavedInParam() {
  try {
    return m_project && m_platform.Files.IsSame(DirectoryOfPath(m_saved.File), m_param.Path());
  } catch (const FileError&) {
    return false;
  }
}

void Session::ShowParamLocation() {
  m_savedInParam = IsSavedInParam();
  m_location.OpenParam();
  Show(Screen::Location);
}

void Session::FollowLocation(const LocationOutcome& outcome) {
  if (outcome.Next == LocationOutcome::Step::EndProgram) m_ended = true;
  if (outcome.Next == LocationOutcome::Step::Close && m_savedInParam) {
    m_saved.File = JoinPath(m_param.Path(), LastPathComponent(m_saved.File));
  }
  if (outcome.Next == LocationOutcome::Step::Close) Show(Screen::Main);
  if (outcome.Message) m_platform.Boxes.Show(*outcome.Message);
  if (outcome.Next == LocationOutcome::Step::Close) OfferRestore();
}

}  // namespace zova
