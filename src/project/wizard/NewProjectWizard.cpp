// SPDX-License-Identifier: GPL-3.0-or-later

#include "project/wizard/NewProjectWizard.h"

#include <algorithm>

#include "project/ProjectFile.h"
#include "project/ProjectLayout.h"
#include "text/TypedText.h"

namespace zova {

namespace {

using LeavePage = WizardFault (*)(WizardState&, const Platform&);
constexpr std::array<LeavePage, NewProjectWizard::kPages> kLeavePage = {
    LeaveTitlePage,     LeaveDirectoriesPage, LeaveGeneralPage, LeaveCategoriesPage,
    LeaveVariablesPage, LeaveMinutesPage,     LeaveRatingsPage, LeaveAbbreviationPage};

std::string DirectoryText(const std::string& directory) { return IsNoDirectory(directory) ? kNoDirectory : directory; }

void FillEntries(WizardEntries& entries, const ProjectParameters& project) {
  const auto fillCount = [&](WizardOption option, int flag, WizardBox box, int count) {
    entries.Option(option) = flag == 1;
    if (flag == 1) entries.Text(box) = std::to_string(count);
  };
  entries.Text(WizardBox::Title) = ProjectTitle(project);
  entries.Text(WizardBox::Primary) = DirectoryText(project.PrimaryDir);
  entries.Text(WizardBox::Backup) = DirectoryText(project.BackupDir);
  entries.Text(WizardBox::Tests) = std::to_string(project.TestCount);
  entries.Text(WizardBox::Items) = std::to_string(project.ItemCount);
  entries.Text(WizardBox::Abbreviation) = project.Abbreviation;
  fillCount(WizardOption::Categorized, project.Categorized, WizardBox::Categories, project.CategoryCount);
  fillCount(WizardOption::Minutes, project.MinutesRecorded, WizardBox::Minutes, project.MaxMinutes);
  fillCount(WizardOption::Ratings, project.Rated, WizardBox::MaxRating, project.MaxRating);
  entries.Option(WizardOption::FalseMemory) = project.FalseMemory == 1;
  entries.Option(WizardOption::Variables) = project.VariableCount > 0;
  entries.Variables.Load(project);
  for (int test = 1; test <= kMaxTests; ++test) {
    entries.RatedTests[static_cast<std::size_t>(test) - 1] = IsTestRated(project, test);
  }
}

}  // namespace

NewProjectWizard::NewProjectWizard(const Platform& platform)
    : m_platform(platform), m_browser(platform.Files, platform.Boxes, kDriveNotReady) {}

void NewProjectWizard::Reset() {
  m_state = {};
  m_page = m_reached = 1;
  m_viewing = false;
}

void NewProjectWizard::Start(const std::string& paramDir) {
  Reset();
  m_state.ParamDir = paramDir;
  Arrive(1);
}

void NewProjectWizard::Start(const std::string& paramDir, const ProjectParameters& proposal) {
  Reset();
  m_state.ParamDir = paramDir;
  FillEntries(m_state.Entries, proposal);
  Arrive(1);
}

void NewProjectWizard::View(const ProjectParameters& project) {
  Reset();
  m_viewing = true;
  m_state.Project = project;
  FillEntries(m_state.Entries, project);
  Arrive(1);
}

std::string NewProjectWizard::Counter() const { return std::to_string(m_page) + " of " + std::to_string(kPages); }

const std::string& NewProjectWizard::Text(WizardBox box) const {
  return box == WizardBox::Variable ? Variables().EntryText() : Entries().Text(box);
}

void NewProjectWizard::SetText(WizardBox box, std::string_view text) {
  if (m_viewing) return;
  if (box == WizardBox::Variable) {
    m_state.Entries.Variables.SetEntryText(text);
  } else {
    m_state.Entries.Text(box) = FieldText(text);
  }
}

void NewProjectWizard::SetOption(WizardOption option, bool yes) {
  if (m_viewing) return;
  m_state.Entries.Option(option) = yes;
  if (!yes) return;
  switch (option) {
    case WizardOption::Categorized: return PlaceCursor(WizardBox::Categories);
    case WizardOption::Variables: return PlaceCursor(WizardBox::Variable);
    case WizardOption::Minutes: return PlaceCursor(WizardBox::Minutes);
    case WizardOption::Ratings: return PlaceCursor(WizardBox::MaxRating);
    case WizardOption::FalseMemory: return;
  }
}

void NewProjectWizard::SetRated(int test, bool rated) {
  if (!m_viewing) m_state.Entries.RatedTests.at(static_cast<std::size_t>(test) - 1) = rated;
}

void NewProjectWizard::CopyPath(WizardBox box) {
  if (!m_viewing) m_state.Entries.Text(box) = m_browser.Path();
}

bool NewProjectWizard::Asks(WizardBox box) const {
  switch (box) {
    case WizardBox::Categories: return Option(WizardOption::Categorized);
    case WizardBox::Variable: return Option(WizardOption::Variables);
    case WizardBox::Minutes: return Option(WizardOption::Minutes);
    case WizardBox::MaxRating:
    case WizardBox::RatedTests: return Option(WizardOption::Ratings);
    default: return true;
  }
}

bool NewProjectWizard::ShowsLuresIncluded() const noexcept { return m_state.Project.FalseMemory == 1; }

bool NewProjectWizard::ShowsLureNote() const noexcept {
  return Option(WizardOption::Categorized) && Option(WizardOption::FalseMemory);
}

int NewProjectWizard::TestCount() const noexcept {
  return std::clamp<int>(m_state.Project.TestCount, 0, kMaxTests);  // an old file may hold any number
}

void NewProjectWizard::EnterVariableText() {
  if (m_viewing) return;
  if (Variables().EntryText().empty()) m_platform.Pointer.Beep();
  m_state.Entries.Variables.Enter();
  PlaceCursor(WizardBox::Variable);
}

void NewProjectWizard::HighlightVariable() { m_state.Entries.Variables.HighlightVariable(); }

void NewProjectWizard::HighlightLevel(int label) { m_state.Entries.Variables.HighlightLevel(label); }

void NewProjectWizard::DeleteHighlighted() {
  if (!m_viewing) m_state.Entries.Variables.DeleteHighlighted(m_platform.Boxes);
}

void NewProjectWizard::AddVariable() {
  if (m_viewing) return;
  m_state.Entries.Variables.AddVariable(m_platform.Boxes);
  PlaceCursor(WizardBox::Variable);
}

void NewProjectWizard::ReviewVariables() { m_state.Entries.Variables.Review(); }

void NewProjectWizard::Next() {
  if (m_page >= kPages) return;
  if (!m_viewing && !LeavesPage()) return;
  Arrive(m_page + 1);
}

void NewProjectWizard::Back() {
  if (m_page > 1) Arrive(m_page - 1);
}

bool NewProjectWizard::LeavesPage() {
  const LeavePage leave = kLeavePage.at(static_cast<std::size_t>(m_page) - 1);
  const WizardFault fault = leave(m_state, m_platform);
  if (fault) PlaceCursor(*fault);
  return !fault;
}

bool NewProjectWizard::Cancel() {
  if (m_page > 1 && !m_viewing &&
      !Confirm(m_platform.Boxes,
               {.Text = "This action will erase all of the entered parameters.  Are you sure you want to do this?",
                .Title = "Warning"})) {
    return false;
  }
  Reset();
  return true;
}

bool NewProjectWizard::Done(bool restoring) {
  if (m_viewing) {
    Reset();
    return true;
  }
  if (m_page != kPages || !LeavesPage()) return false;
  const Question question = {
      .Text =
          "ZOVA will not allow you to make changes to the parameters once they are completed.  If you are not sure "
          "that the parameters are correct, please select the 'No' button and use the 'Back' button to verify all "
          "of the parameters for your project.  If you are sure that the parameters are correct then select "
          "'Yes'.  Are you sure these parameters are correct?",
      .Buttons = BoxButtons::YesNo,
      .Title = "Warning"};
  if (!Confirm(m_platform.Boxes, question)) return false;
  if (!WriteProjectFile(m_state.Project, m_state.ParamDir, restoring, m_platform.Files, m_platform.Boxes)) return false;
  ProjectParameters written = std::move(m_state.Project);
  Reset();
  m_state.Project = std::move(written);
  return true;
}

std::string NewProjectWizard::Answer(int page) const {
  return m_viewing || page <= m_reached ? ShortAnswer(m_state.Entries, page) : std::string();
}

void NewProjectWizard::Arrive(int page) {
  m_page = page;
  m_reached = std::max(m_reached, page);
  if (page == 2) m_browser.Reset();
  PlaceCursor(FirstBox());
}

void NewProjectWizard::PlaceCursor(WizardBox box) {
  m_cursor = box;
  ++m_cursorRevision;
}

WizardBox NewProjectWizard::FirstBox() const {
  const auto asked = [&](WizardBox box, WizardBox option) { return Asks(box) ? box : option; };
  switch (m_page) {
    case 1: return WizardBox::Title;
    case 2: return WizardBox::DriveList;
    case 3: return WizardBox::Tests;
    case 4: return asked(WizardBox::Categories, WizardBox::CategoriesOption);
    case 5: return asked(WizardBox::Variable, WizardBox::VariablesOption);
    case 6: return asked(WizardBox::Minutes, WizardBox::MinutesOption);
    case 7: return WizardBox::RatingsOption;
    default: return WizardBox::Abbreviation;
  }
}

}  // namespace zova
