// SPDX-License-Identifier: GPL-3.0-or-later

#include "means/OccurringLevels.h"

#include <algorithm>
#include <charconv>
#include <numeric>
#include <optional>
#include <unordered_map>

#include "master/groups/NominalGroups.h"
#include "text/TypedText.h"

namespace zova {

namespace {

constexpr std::string_view kNoLevel = "XXXXXXX";  // for a nominal group: its members may differ

std::optional<int> LevelNumber(std::string_view level) {
  int number = 0;
  const auto result = std::from_chars(level.data(), level.data() + level.size(), number);
  if (level.empty() || result.ec != std::errc{} || result.ptr != level.data() + level.size()) return std::nullopt;
  return number;
}

// By number if all levels are numbers, else by text; kNoLevel comes last.
void SortLevels(std::vector<std::string_view>& texts) {
  const auto isNumber = [](std::string_view text) { return text == kNoLevel || LevelNumber(text); };
  const bool byNumber = std::all_of(texts.begin(), texts.end(), isNumber);
  std::sort(texts.begin(), texts.end(), [&](std::string_view a, std::string_view b) {
    if ((a == kNoLevel) != (b == kNoLevel)) return b == kNoLevel;
    const int left = byNumber ? LevelNumber(a).value_or(0) : 0;
    const int right = byNumber ? LevelNumber(b).value_or(0) : 0;
    return left != right ? left < right : a < b;
  });
}

// Prefers the variable at the column's own position, since two variables may have one name.
std::optional<std::size_t> VariableOf(const ProjectParameters& project, const MasterTable& table, std::size_t column) {
  const std::string& name = table.Variables[column];
  if (column < static_cast<std::size_t>(project.VariableCount) &&
      WithoutOuterBlanks(project.VariableNames[column]) == name) {
    return column;
  }
  return FindVariable(project, name);
}

std::string Numbered(const std::string& name, std::string_view number) {
  return std::string(name).append(" (").append(number).append(")");
}

// Distinguishes a level whose name is the number of an unnamed level from that level.
void NameLevels(OccurringLevels& levels, const ProjectParameters* project, std::optional<std::size_t> variable) {
  std::unordered_map<std::string, int> uses;
  for (const std::string_view text : levels.Texts) {
    const auto number = project != nullptr && variable ? LevelNumber(text) : std::nullopt;
    ++uses[levels.Names.emplace_back(number ? LevelLabel(*project, *variable, *number) : std::string(text))];
  }
  for (std::size_t place = 0; place < levels.Names.size(); ++place) {
    std::string& name = levels.Names[place];
    if (uses[name] > 1) name = Numbered(name, levels.Texts[place]);
  }
}

}  // namespace

std::vector<std::string> LevelsOf(const ProjectParameters& project, std::size_t variable) {
  std::vector<std::string> labels;
  labels.reserve(static_cast<std::size_t>(project.LevelCounts[variable]));
  for (int level = 1; level <= project.LevelCounts[variable]; ++level) {
    labels.push_back(LevelLabel(project, variable, level));
  }
  std::vector<std::string> names;
  names.reserve(2 * labels.size());
  for (std::size_t level = 0; level < labels.size(); ++level) {
    const std::string& label = labels[level];
    if (std::find(names.begin(), names.end(), label) == names.end()) names.push_back(label);
    if (std::count(labels.begin(), labels.end(), label) > 1)
      names.push_back(Numbered(label, std::to_string(level + 1)));
  }
  return names;
}

OccurringLevels LevelsOf(const MasterTable& table, std::size_t variable, const ProjectParameters* project) {
  OccurringLevels levels;
  std::unordered_map<std::string_view, std::size_t> places;
  for (std::size_t row = 0; row < table.RowCount(); ++row) {
    if (places.emplace(table.Level(row, variable), 0).second) levels.Texts.push_back(table.Level(row, variable));
  }
  SortLevels(levels.Texts);
  for (std::size_t place = 0; place < levels.Texts.size(); ++place) places[levels.Texts[place]] = place;
  levels.OfRow.reserve(table.RowCount());
  for (std::size_t row = 0; row < table.RowCount(); ++row) {
    levels.OfRow.push_back(places.find(table.Level(row, variable))->second);
  }
  NameLevels(levels, project, project != nullptr ? VariableOf(*project, table, variable) : std::nullopt);
  return levels;
}

void Arrange(const LevelOrder& order, OccurringLevels& levels) {
  const std::size_t count = levels.Names.size();
  const auto rankOf = [&](std::size_t level) {
    return std::find(order.Levels.begin(), order.Levels.end(), levels.Names[level]) - order.Levels.begin();
  };
  std::vector<std::size_t> sorted(count);
  std::iota(sorted.begin(), sorted.end(), std::size_t{0});
  std::stable_sort(sorted.begin(), sorted.end(), [&](std::size_t a, std::size_t b) { return rankOf(a) < rankOf(b); });
  std::vector<std::size_t> places(count);
  OccurringLevels arranged;
  for (std::size_t place = 0; place < count; ++place) {
    places[sorted[place]] = place;
    arranged.Texts.push_back(levels.Texts[sorted[place]]);
    arranged.Names.push_back(std::move(levels.Names[sorted[place]]));
  }
  arranged.OfRow = std::move(levels.OfRow);
  for (std::size_t& level : arranged.OfRow) level = places[level];
  levels = std::move(arranged);
}

}  // namespace zova
