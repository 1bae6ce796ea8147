// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/desktop/MessageBoxes.h"
#include "project/ProjectParameters.h"

namespace zova {

/// The editor of the between-subject variables and their levels: one entry box through which every name is typed, a
/// heading that stands for the variable on display, and ten labels for its levels. Whatever is highlighted stands in
/// the box. Variables and levels count from 1.
class VariableEditor {
 public:
  /// The wizard gives a variable at most this many levels.

  /// To an only variable without name and levels.
  void Clear();
  /// The variables of a project, the first one on display, to be looked at: no level can be added.
  void Load(const ProjectParameters& project);
  /// Writes names, levels and their counts into the record. An only variable without any name or level is none.
  void Store(ProjectParameters& project) const;

  [[nodiscard]] const std::string& EntryText() const noexcept { return m_entry; }
  /// Drops what the name cannot hold: a comma in a variable's, which becomes a column, but not in a level's.
  void SetEntryText(std::string_view text);

  /// "What is the name of variable 1?" or "What is the name of level 1?"; "" when all levels have one.
  [[nodiscard]] std::string Prompt() const;
  /// "The variable GROUP has the following levels:"; "" while there is nothing to highlight.
  [[nodiscard]] std::string Heading() const;
  /// "1. Control" and so on, then "Add Level" while one can be added.
  [[nodiscard]] std::vector<std::string> LevelLabels() const;
  /// All 10 levels have their names, and none of them is highlighted: the box takes nothing.
  [[nodiscard]] bool AsksNothing() const;
  [[nodiscard]] int CurrentVariable() const noexcept { return m_variable; }
  /// 0: the variable's name, from 1: the level that the box holds or will add; beyond 10 nothing is asked.
  [[nodiscard]] int CurrentLevel() const noexcept { return m_level; }

  /// Enter: the box's text names what is highlighted or asked for, then the next free level is asked. Empty text is
  /// not taken.
  void Enter();
  void HighlightVariable();
  /// `label` counts from 1; the one behind the last level is "Add Level".
  void HighlightLevel(int label);
  /// The variable after a question; a level without one, the rest renumber.
  void DeleteHighlighted(MessageBoxes& boxes);
  /// "New Variable" and "Review"; the text standing in the box is taken first.
  void AddVariable(MessageBoxes& boxes);
  void Review();

  /// Takes the box's text, then tells of a variable without name or level and shows it. False when there is one.
  bool Check(MessageBoxes& boxes);

 private:
  struct Variable {
    std::string Name;
    std::vector<std::string> Levels;
  };

  [[nodiscard]] const Variable& Current() const { return m_variables[static_cast<std::size_t>(m_variable - 1)]; }
  Variable& Current() { return m_variables[static_cast<std::size_t>(m_variable - 1)]; }
  [[nodiscard]] bool HasNothing() const noexcept;  ///< an only variable, without name and levels
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
