// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <vector>

#include "platform/files/Disk.h"
#include "project/ProjectParameters.h"
#include "tables/TableReader.h"
#include "words/WordList.h"

namespace zova {

/// A column with one value for all rows of each subject: perhaps a variable.
struct VariableOffer {
  std::string Name;
  std::vector<std::string> Levels;  ///< 2 to 10, numbers by value, others by first row
};

/// A project for a table, without title, directories and abbreviation.
struct ProjectProposal {
  ProjectParameters Project;
  WordList Words;                        ///< empty in a table of numbers
  std::vector<VariableOffer> Variables;  ///< none is in `Project` yet
  std::vector<std::string> Notes;        ///< "made without categories: ..."
  std::string Fault;                     ///< why there can be no project; "" when there can
};

/// What a project for this table would be; `words` are its word list, or empty. Throws FileError.
ProjectProposal ProposeProject(Disk& disk, const TableSetup& setup, const ImportOptions& options,
                               const WordList& words);

/// Adds an offered variable to the project. False for a name that is not offered.
bool AddVariable(ProjectProposal& proposal, const std::string& name);

/// The words of a file for a new project: a word a line, or item,word[,category]. Throws FileError.
WordList ReadNewWords(Disk& disk, const std::string& path, ProjectParameters& project);

}  // namespace zova
