// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/desktop/MessageBoxes.h"
#include "project/ProjectParameters.h"

namespace zova {

/// The editor of the between-subject variables and their levels: one entry box for all names, a heading for the current
/// variable, and a label for each of its levels. The box holds the highlighted name. Variables and levels count from 1.
class VariableEditor {
 public:
  /// The most levels the wizard gives a variable.

  /// Leaves one variable without name and levels.
  void Clear();
  /// Shows the variables of a project, read-only, the first one current.
  void Load(const ProjectParameters& project);
  /// Writes names, levels and their counts into the record. A single variable without name and levels counts as none.
  void Store(ProjectParameters& project) const;

  [[nodiscard]] const std::string& EntryText() const noexcept { return m_entry; }
  /// Drops what the name cannot hold: a comma in a variable's, which becomes a column, but not in a level's.
  void SetEntryText(std::string_view text);

  /// "What is the name of variable 1?" or "What is the name of level 1?"; "" when all levels are named.
  [[nodiscard]] std::string Prompt() const;
  /// "The variable GROUP has the following levels:"; "" without anything to highlight.
  [[nodiscard]] std::string Heading() const;
  /// "1. Control" and so on, then "Add Level" if one can be added.
  [[nodiscard]] std::vector<std::string> LevelLabels() const;
  /// True when all 10 levels are named and none is highlighted: the box accepts no text.
  [[nodiscard]] bool AsksNothing() const;
  [[nodiscard]] int CurrentVariable() const noexcept { return m_variable; }
  [[nodiscard]] std::vector<std::string> Names() const;
  /// "2 of 3": which variable is shown; "" while there is at most one.
  [[nodiscard]] std::string Place() const;
  /// 0: the box holds the variable's name; from 1: the level it holds or will add; above 10: neither.
  [[nodiscard]] int CurrentLevel() const noexcept { return m_level; }

  /// The Enter key: names what is highlighted or prompted for, then prompts for the next free level. Ignores empty
  /// text.
  void Enter();
  void HighlightVariable();
  /// `label` counts from 1; the label after the last level is "Add Level".
  void HighlightLevel(int label);
  /// Deletes the variable after a question, or a level at once; the others are renumbered.
  void DeleteHighlighted(MessageBoxes& boxes);
  /// "New Variable" and "Review"; both enter the pending text first.
  void AddVariable(MessageBoxes& boxes);
  void Review();

  /// Enters the pending text, then reports and shows the first variable without name or level. False if there is one.
  bool Check(MessageBoxes& boxes);

 private:
  struct Variable {
    std::string Name;
    std::vector<std::string> Levels;
  };

  [[nodiscard]] const Variable& Current() const { return m_variables[static_cast<std::size_t>(m_variable - 1)]; }
  Variable& Current() { return m_variables[static_cast<std::size_t>(m_variable - 1)]; }
  [[nodiscard]] bool HasNothing() const noexcept;  ///< a single variable without name and levels
  [[nodiscard]] int LevelCount() const;
  [[nodiscard]] int NextFreeLevel() const;
  [[nodiscard]] int FirstUnnamed() const;  ///< from 1, or 0
  [[nodiscard]] std::string Highlighted() const;
  void NameHighlighted(const std::string& name);
  void EnterPendingText();
  void Show(int variable, int level);

  std::vector<Variable> m_variables{1};  // never empty
  int m_variable = 1;
  int m_level = 0;
  std::string m_entry;
  bool m_viewing = false;
};

}  // namespace zova
