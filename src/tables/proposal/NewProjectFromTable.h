// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <vector>

#include "platform/desktop/MessageBoxes.h"
#include "platform/files/Disk.h"
#include "project/ProjectParameters.h"
#include "tables/import/ImportPlan.h"
#include "words/WordList.h"

namespace zova {

/// A column with one value for all rows of each subject: perhaps a variable.
struct VariableOffer {
  std::string Name;
  std::vector<std::string> Levels;  ///< 2 to 10, in the order of their first rows
};

/// A project for a table, without title, directories and abbreviation.
struct ProjectProposal {
  ProjectParameters Project;
  WordList Words;                        ///< empty where the table has none, and with --items position
  std::vector<VariableOffer> Variables;  ///< none is in `Project` yet
  std::vector<std::string> Notes;        ///< what was left out, and why
  std::string Fault;                     ///< why there can be no project; "" when there can
};

/// The table of a project that is not there yet, set up and surveyed; `words` are its word list, or empty. The plan has
/// but the questions whose answers a proposal needs. Throws FileError.
ImportDraft DraftNewProject(Disk& disk, const std::string& table, const ImportOptions& options, WordList words);
/// As RefreshImport.
void RefreshNewProject(Disk& disk, ImportDraft& draft);

/// What a project for this table would be. Throws FileError.
ProjectProposal ProposeProject(Disk& disk, const ImportDraft& draft);

/// "6 tests, 24 items in 4 categories, 3 minutes, ratings from 1 to 5".
std::string ProjectSummary(const ProjectParameters& project);

/// Adds an offered variable to the project. False for a name that is not offered.
bool AddVariable(ProjectProposal& proposal, const std::string& name);

/// The words of a file for a new project, in the forms of ReadForeignWords. Throws FileError.
WordList ReadNewWords(Disk& disk, const std::string& path);

/// Sets title, directories and abbreviation as the wizard would. Returns why it cannot be so, or "". Throws FileError.
std::string PlaceProject(Disk& disk, ProjectParameters& project, const std::string& title, const std::string& directory,
                         const std::string& paramDir);

/// Creates the directories that are missing, and writes parameter files and word list. False when the user cancels
/// after a fault; then no parameter file is left, so that the project can be made again.
bool CreateProject(Disk& disk, MessageBoxes& boxes, ProjectParameters& project, const WordList& words,
                   const std::string& paramDir);

}  // namespace zova
