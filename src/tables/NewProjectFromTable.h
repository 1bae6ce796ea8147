// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <vector>

#include "platform/desktop/MessageBoxes.h"
#include "platform/files/Disk.h"
#include "project/ProjectParameters.h"
#include "tables/TableReader.h"
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
  WordList Words;                        ///< empty in a table of numbers, and with --items position
  std::vector<VariableOffer> Variables;  ///< none is in `Project` yet
  std::vector<std::string> Notes;        ///< what was left out, and why
  std::string Fault;                     ///< why there can be no project; "" when there can
};

/// What a project for this table would be; `words` are its word list, or empty. `setup` may be that of an empty
/// project. Throws FileError.
ProjectProposal ProposeProject(Disk& disk, const TableSetup& setup, const ImportOptions& options, WordList words);

/// Adds an offered variable to the project. False for a name that is not offered.
bool AddVariable(ProjectProposal& proposal, const std::string& name);

/// The words of a file for a new project: a word a line, or a CSV with the header item,word[,category]. Throws
/// FileError.
WordList ReadNewWords(Disk& disk, const std::string& path);

/// Sets title, directories and abbreviation as the wizard would. Returns why it cannot be so, or "". Throws FileError.
std::string PlaceProject(Disk& disk, ProjectParameters& project, const std::string& title, const std::string& directory,
                         const std::string& paramDir);

/// Creates the directories that are missing, and writes parameter files and word list. False when the user cancels
/// after a fault.
bool CreateProject(Disk& disk, MessageBoxes& boxes, ProjectParameters& project, const WordList& words,
                   const std::string& paramDir);

}  // namespace zova
