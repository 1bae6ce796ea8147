// SPDX-License-Identifier: GPL-3.0-or-later
//
// A new project from a table: the table's page, what is proposed, and going on once the wizard has defined it.

#include <algorithm>
#include <utility>

#include "platform/desktop/FileErrorBoxes.h"
#include "session/ImportFlow.h"
#include "words/CompanionCsv.h"

namespace zova {

void ImportFlow::OpenWithoutProject() {
  m_project = nullptr;
  Show(Stage::Project);
}

void ImportFlow::ChooseNew() {
  const auto table = AskTable();
  if (!table) return;
  const BusyPointer busy(m_platform.Pointer);
  if (!WithRetry(m_platform.Boxes, [&] { m_draft = DraftNewProject(m_platform.Files, *table, {}, {}); })) return;
  ForgetAnswers();
  m_project = &m_unmade;
  m_isNew = true;
  ListChoices();
  Show(Stage::Table);
}

void ImportFlow::ChooseWords() {
  const auto path = m_platform.Dialogs.ChooseFile(
      {.Title = "Open Word List",
       .Directory = {},
       .Filters = {{"Word lists (*.csv)", "*.csv"}, {"Text files (*.txt)", "*.txt"}, {"All files (*.*)", "*.*"}}});
  if (!path) return;
  const BusyPointer busy(m_platform.Pointer);
  const bool isRead = WithRetry(m_platform.Boxes, [&] {
    WordList words = ReadNewWords(m_platform.Files, *path);
    m_draft = DraftNewProject(m_platform.Files, m_draft->Setup.Path, m_draft->Options, std::move(words));
  });
  if (!isRead) return;
  m_wordsFile = *path;
  ListChoices();
  Show(Stage::Table);
}

// Variables that were chosen before stay so.
bool ImportFlow::Propose() {
  std::vector<std::string> chosen;
  for (std::size_t offer = 0; offer < m_offers.size(); ++offer) {
    if (m_offers[offer]) chosen.push_back(m_proposal.Variables[offer].Name);
  }
  const BusyPointer busy(m_platform.Pointer);
  if (!WithRetry(m_platform.Boxes, [&] { m_proposal = ProposeProject(m_platform.Files, *m_draft); })) return false;
  m_offers.clear();
  m_offers.reserve(m_proposal.Variables.size());
  for (const VariableOffer& offer : m_proposal.Variables) {
    m_offers.push_back(std::find(chosen.begin(), chosen.end(), offer.Name) != chosen.end());
  }
  if (m_proposal.Fault.empty()) return true;
  Warn(m_platform.Boxes, OnScreen(m_proposal.Fault));
  return false;
}

ProjectParameters ImportFlow::TakeProposal() {
  ProjectProposal proposal = m_proposal;
  for (std::size_t offer = 0; offer < m_offers.size(); ++offer) {
    if (m_offers[offer]) AddVariable(proposal, m_proposal.Variables[offer].Name);
  }
  m_isWaiting = true;
  m_stage = Stage::Closed;
  return proposal.Project;
}

void ImportFlow::Forget() {
  if (std::exchange(m_isWaiting, false)) Close();
}

// Another number of items than proposed has other words, which the user then opens as a word list.
void ImportFlow::Resume(const ProjectParameters& project) {
  m_isWaiting = false;
  m_isNew = false;
  m_project = &project;
  if (!m_proposal.Words.IsEmpty() && project.ItemCount == static_cast<int>(m_proposal.Words.Words.size())) {
    WordList words = m_proposal.Words;
    words.HasCategories = words.HasCategories && project.Categorized == 1 && FindWordFaults(words, project).empty();
    const bool isSaved = WithRetry(m_platform.Boxes, [&] {
      WriteCompanion(m_platform.Files, project, CompanionFile::Words, FormatWordList(words));
    });
    if (!isSaved) return Show(Stage::Closed);
  }
  const std::string table = m_draft->Setup.Path;
  const ImportOptions options = m_draft->Options;
  Show(Draw(table, options) ? Stage::Table : Stage::Closed);
}

}  // namespace zova
