// SPDX-License-Identifier: GPL-3.0-or-later
//
// The choices of an import as the screen offers them: a question with a few answers each.
#pragma once

#include <string>
#include <vector>

#include "tables/import/ImportPlan.h"

namespace zova {

struct ImportChoice {
  std::string Name;  ///< identifies it: "--shape"; of a variable's level "--level <variable>"
  std::string Text;
  std::vector<std::string> Answers;  ///< as shown
  int Chosen = -1;                   ///< index of the answer; -1 for none yet
};

/// How the table is read. The first answer is always that it is found out, and says what was found.
std::vector<ImportChoice> TableChoices(const ImportDraft& draft);
void ChooseForTable(TableOptions& options, const std::string& name, int answer);

/// What the import does where the table leaves it open; each has a default. In a new project those alone that concern
/// its items and minutes.
std::vector<ImportChoice> PlanChoices(const ImportDraft& draft, bool isNew);
void ChooseForPlan(ImportOptions& options, const std::string& name, int answer);

/// An answer of zova-import's options as the screen shows it: "leave-out" with "--too-long" is "Leave them out".
std::string AnswerText(const ImportQuestion& question, const std::string& answer);

/// A text about a table with the controls of the screen in place of zova-import's options.
std::string OnScreen(std::string text);

/// The uses of a column: "(none)", the roles, the project's variables.
std::vector<std::string> ColumnUses(const ProjectParameters& project);
/// The use of a column as an index of them.
int UseOfColumn(const TableColumns& columns, int column, const ProjectParameters& project);
/// Gives a column a use, which another column loses.
void UseColumn(TableOptions& options, const TableColumns& columns, int column, int use,
               const ProjectParameters& project);

}  // namespace zova
