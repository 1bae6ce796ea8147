// SPDX-License-Identifier: GPL-3.0-or-later

#include "project/wizard/VariableEditor.h"

#include <algorithm>
#include <cstdint>

#include "text/Encoding.h"
#include "text/TypedText.h"

namespace zova {

namespace {

constexpr const char* kNoName = "You must have a name for each variable.";

}  // namespace

void VariableEditor::Clear() {
  m_viewing = false;
  m_variables.assign(1, {});
  Show(1, 0);
}

void VariableEditor::Load(const ProjectParameters& project) {
  m_viewing = true;
  m_variables.clear();
  const auto variables = static_cast<std::size_t>(std::clamp<int>(project.VariableCount, 0, kMaxVariables));
  for (std::size_t v = 0; v < variables; ++v) {
    const auto levels = std::clamp<std::ptrdiff_t>(project.LevelCounts[v], 0, kMaxLevels);
    const auto names = project.LevelNames[v].begin();
    m_variables.push_back({project.VariableNames[v], {names, names + levels}});
  }
  if (m_variables.empty()) m_variables.emplace_back();
  Show(1, 0);
}

void VariableEditor::Store(ProjectParameters& project) const {
  const std::size_t variables = HasNothing() ? 0 : m_variables.size();
  project.VariableCount = static_cast<std::int16_t>(variables);
  project.VariableNames = {};
  project.LevelCounts = {};
  project.LevelNames = {};
  for (std::size_t v = 0; v < variables; ++v) {
    const Variable& variable = m_variables[v];
    project.VariableNames.at(v) = variable.Name;
    project.LevelCounts.at(v) = static_cast<std::int16_t>(variable.Levels.size());
    std::copy(variable.Levels.begin(), variable.Levels.end(), project.LevelNames.at(v).begin());
  }
}

bool VariableEditor::HasNothing() const noexcept {
  return m_variables.size() == 1 && m_variables.front().Name.empty() && m_variables.front().Levels.empty();
}

std::vector<std::string> VariableEditor::Names() const {
  std::vector<std::string> names;
  names.reserve(m_variables.size());
  for (const Variable& variable : m_variables) names.push_back(variable.Name);
  return names;
}

std::string VariableEditor::Place() const {
  if (m_variables.size() < 2) return {};
  return std::to_string(m_variable) + " of " + std::to_string(m_variables.size());
}

int VariableEditor::LevelCount() const { return static_cast<int>(Current().Levels.size()); }

int VariableEditor::NextFreeLevel() const { return LevelCount() + 1; }

bool VariableEditor::AsksNothing() const { return m_level > std::max(LevelCount(), kMaxEditedLevels); }

std::string VariableEditor::Highlighted() const {
  if (m_level == 0) return Current().Name;
  return m_level <= LevelCount() ? Current().Levels[static_cast<std::size_t>(m_level - 1)] : std::string();
}

void VariableEditor::Show(int variable, int level) {
  m_variable = variable;
  m_level = level;
  m_entry = Highlighted();
}

void VariableEditor::SetEntryText(std::string_view text) {
  m_entry = AsksNothing() ? std::string() : m_level > 0 ? FieldText(text) : ColumnText(text);
}

std::string VariableEditor::Prompt() const {
  if (AsksNothing()) return {};
  const std::string what = m_level == 0 ? "variable " + std::to_string(m_variable) : "level " + std::to_string(m_level);
  return "What is the name of " + what + "?";
}

std::string VariableEditor::Heading() const {
  return HasNothing() ? "" : "The variable " + InCapitals(Current().Name) + " has the following levels:";
}

std::vector<std::string> VariableEditor::LevelLabels() const {
  std::vector<std::string> labels;
  const int listed = LevelCount();
  for (int level = 1; level <= listed; ++level) {
    labels.push_back(std::to_string(level) + ". " + Current().Levels[static_cast<std::size_t>(level - 1)]);
  }
  const bool hasNameOrLevel = !Current().Name.empty() || listed > 0;
  if (!m_viewing && hasNameOrLevel && listed < kMaxEditedLevels) labels.emplace_back("     Add Level");
  return labels;
}

void VariableEditor::NameHighlighted(const std::string& name) {
  if (m_level == 0) {
    Current().Name = name;
  } else if (m_level <= LevelCount()) {
    Current().Levels[static_cast<std::size_t>(m_level - 1)] = name;
  } else {
    Current().Levels.push_back(name);
  }
}

void VariableEditor::Enter() {
  if (WithoutOuterBlanks(m_entry).empty()) {
    Show(m_variable, m_level);
    return;
  }
  EnterPendingText();
  // Also after a renaming, so that further typing adds a level and never overwrites a name.
  Show(m_variable, NextFreeLevel());
}

void VariableEditor::EnterPendingText() {
  // Displaying a name from an old file does not trim it.
  const std::string name(WithoutOuterBlanks(m_entry));
  if (!name.empty() && m_entry != Highlighted()) NameHighlighted(name);
  Show(m_variable, m_level);
}

void VariableEditor::HighlightVariable() {
  if (!HasNothing()) Show(m_variable, 0);
}

void VariableEditor::HighlightLevel(int label) {
  if (label >= 1 && label <= static_cast<int>(LevelLabels().size())) Show(m_variable, label);
}

void VariableEditor::DeleteHighlighted(MessageBoxes& boxes) {
  if (m_level > LevelCount() || (m_level == 0 && HasNothing())) return;
  if (m_level > 0) {
    Current().Levels.erase(Current().Levels.begin() + (m_level - 1));
    Show(m_variable, m_level);
    return;
  }
  if (!Confirm(boxes,
               {.Text = "Do you wish to erase variable " + std::to_string(m_variable) + " and all of its levels?",
                .Title = "Warning"}))
    return;
  m_variables.erase(m_variables.begin() + (m_variable - 1));
  if (m_variables.empty()) m_variables.emplace_back();
  Show(std::min(m_variable, static_cast<int>(m_variables.size())), 0);
}

int VariableEditor::FirstUnnamed() const {
  const auto isUnnamed = [](const Variable& variable) { return WithoutOuterBlanks(variable.Name).empty(); };
  const auto found = std::find_if(m_variables.begin(), m_variables.end(), isUnnamed);
  return found == m_variables.end() ? 0 : static_cast<int>(found - m_variables.begin()) + 1;
}

void VariableEditor::AddVariable(MessageBoxes& boxes) {
  EnterPendingText();
  const int count = static_cast<int>(m_variables.size());
  if (count >= kMaxVariables) {
    Warn(boxes, "Sorry. ZOVA will allow a maximum of 10 variables.");
    return;
  }
  if (const int unnamed = FirstUnnamed(); unnamed > 0) {
    Show(unnamed, 0);
    Warn(boxes, "You cannot add new variable " + std::to_string(unnamed + 1) +
                    " until you have filled in at least a name for variable " + std::to_string(unnamed));
    return;
  }
  m_variables.emplace_back();
  Show(count + 1, 0);
}

void VariableEditor::Review() {
  EnterPendingText();
  Show(m_variable % static_cast<int>(m_variables.size()) + 1, 0);
}

bool VariableEditor::Check(MessageBoxes& boxes) {
  // An emptied name is reported; it stays until another one is entered.
  const bool isEmptied = m_level == 0 && !Current().Name.empty() && WithoutOuterBlanks(m_entry).empty();
  EnterPendingText();
  if (isEmptied) {
    Warn(boxes, kNoName);
    return false;
  }
  if (HasNothing()) return true;
  for (int variable = 1; variable <= static_cast<int>(m_variables.size()); ++variable) {
    const Variable& checked = m_variables[static_cast<std::size_t>(variable - 1)];
    if (WithoutOuterBlanks(checked.Name).empty()) {
      Show(variable, 0);
      Warn(boxes, kNoName);
      return false;
    }
    if (checked.Levels.empty()) {
      Show(variable, 1);
      Warn(boxes, "You must have at least 1 level per variable.  Please review.");
      return false;
    }
  }
  return true;
}

}  // namespace zova
