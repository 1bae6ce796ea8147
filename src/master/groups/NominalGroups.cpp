// SPDX-License-Identifier: GPL-3.0-or-later

#include "master/groups/NominalGroups.h"

#include <algorithm>
#include <iterator>
#include <map>
#include <numeric>

#include "scoring/MinuteRange.h"
#include "scoring/ScoreSubject.h"
#include "text/Cells.h"
#include "text/Counted.h"
#include "text/Encoding.h"
#include "text/LeadingNumber.h"
#include "text/TypedText.h"

namespace zova {

namespace {

// The subjects of each level, sorted by their order.
std::map<std::int16_t, std::vector<std::size_t>> SortedByLevel(const std::vector<std::int16_t>& levels,
                                                               const GroupOrder& order) {
  std::vector<std::size_t> subjects(levels.size());
  std::iota(subjects.begin(), subjects.end(), std::size_t{0});
  std::sort(subjects.begin(), subjects.end(), [&](std::size_t a, std::size_t b) { return order[a] < order[b]; });
  std::map<std::int16_t, std::vector<std::size_t>> sorted;
  for (const std::size_t subject : subjects) sorted[levels[subject]].push_back(subject);
  return sorted;
}

std::string LevelText(const ProjectParameters& project, std::size_t variable, std::int16_t level) {
  return project.VariableNames[variable] + ", " + LevelLabel(project, variable, level);
}

}  // namespace

std::optional<int> ParseGroupSize(std::string_view text) {
  const std::string_view digits = WithoutOuterBlanks(text);
  if (!IsDigits(digits)) return std::nullopt;
  const auto size = LeadingInteger16(digits);
  if (size && *size < 2) return std::nullopt;
  return size ? *size : kBeyondAnySize;
}

std::optional<std::size_t> FindVariable(const ProjectParameters& project, std::string_view name) {
  const auto begin = project.VariableNames.begin();
  const auto end = begin + project.VariableCount;
  auto found = std::find(begin, end, name);
  if (found == end)
    found = std::find_if(begin, end, [&](const auto& other) {
      return EqualsIgnoringCase(WithoutOuterBlanks(other), WithoutOuterBlanks(name));
    });
  if (found == end) return std::nullopt;
  return static_cast<std::size_t>(found - begin);
}

std::vector<std::size_t> FindVariables(const ProjectParameters& project, const std::vector<std::string>& names,
                                       std::string& unknown) {
  std::vector<std::size_t> variables;
  variables.reserve(names.size());
  for (std::size_t first = 0; first < names.size(); ++first) {
    std::string name = names[first];
    std::size_t last = first;
    auto variable = FindVariable(project, name);
    while (!variable && last + 1 < names.size()) {
      variable = FindVariable(project, name += "," + names[++last]);
    }
    if (!variable) {
      unknown = names[first];
      return variables;
    }
    variables.push_back(*variable);
    first = last;
  }
  return variables;
}

bool GroupPlan::HasLeftOver() const {
  return std::any_of(Levels.begin(), Levels.end(), [](const LevelPlan& level) { return !level.LeftOver.empty(); });
}

std::string NoVariableText(const ProjectParameters& project, std::string_view name) {
  const auto begin = project.VariableNames.begin();
  const std::vector<std::string> names(begin, begin + project.VariableCount);
  return "the project has no variable '" + std::string(name) + "'; it has " +
         (names.empty() ? "none" : Joined(names, ", "));
}

GroupPlan FormGroups(const std::vector<std::int16_t>& levels, const GroupOrder& order, int subjectsPerGroup) {
  GroupPlan plan;
  plan.SubjectsPerGroup = subjectsPerGroup;
  for (const auto& [level, subjects] : SortedByLevel(levels, order)) {
    const int count = static_cast<int>(subjects.size());
    LevelPlan& here = plan.Levels.emplace_back(LevelPlan{level, count, count / subjectsPerGroup, {}});
    auto next = subjects.begin();
    for (int group = 1; group <= here.GroupCount; ++group, next += subjectsPerGroup) {
      plan.Groups.push_back({level, {next, next + subjectsPerGroup}});
    }
    here.LeftOver.assign(next, subjects.end());
  }
  return plan;
}

std::string GroupPlanText(const GroupPlan& plan, const std::vector<std::string>& subjectIds,
                          const ProjectParameters& project, std::optional<std::size_t> separator) {
  std::string text;
  for (const LevelPlan& level : plan.Levels) {
    if (!text.empty()) text += '\n';
    if (separator) text += LevelText(project, *separator, level.Level) + ": ";
    text += Counted(level.GroupCount == 0 ? "no" : std::to_string(level.GroupCount), "group", "groups");
    if (plan.SubjectsPerGroup < kBeyondAnySize) text += " of " + std::to_string(plan.SubjectsPerGroup);
    const char* opening = level.LeftOver.size() == 1 ? ", left over: subject " : ", left over: subjects ";
    for (const std::size_t subject : level.LeftOver) {
      text += opening + subjectIds[subject];
      opening = ", ";
    }
  }
  return text;
}

void GroupRecall::Reset() {
  m_firsts.Reset(m_project.ItemCount, m_project.TestCount);
  m_places = 0;
}

void GroupRecall::RequireScorable(const RecallLists& lists) {
  m_checked.Reset(m_project.ItemCount, m_project.TestCount);
  IndexByItem(lists, m_project, m_checked);
  if (m_project.MinutesRecorded != 1) return;
  for (int test = 1; test <= lists.TestCount(); ++test) {
    for (int position = 1; position <= lists.RecallCount(test); ++position) {
      const Recall& recall = lists.At(test, position);
      if (recall.Item > 0) (void)MinuteInRange(recall, test, m_project);
    }
  }
}

// As in scoring, the walk ends after as many positions as the list has items, blanks included.
void GroupRecall::Add(const RecallLists& lists) {
  RequireScorable(lists);
  const bool hasMinutes = m_project.MinutesRecorded == 1;
  for (int test = 1; test <= lists.TestCount(); ++test) {
    for (int position = 1; position <= lists.RecallCount(test); ++position) {
      const Recall& recall = lists.At(test, position);
      if (recall.Item == 0) continue;
      First& first = m_firsts.At(recall.Item, test);
      ++m_places;
      if (first.Place == 0 || (hasMinutes && recall.Minute < first.Entry.Minute)) first = {recall, m_places};
    }
  }
}

RecallLists GroupRecall::Pooled() const {
  RecallLists pooled(m_project.TestCount, m_project.ItemCount);
  const bool hasMinutes = m_project.MinutesRecorded == 1;
  std::vector<First> firsts;
  for (int test = 1; test <= m_project.TestCount; ++test) {
    const First* const items = m_firsts.Test(test);
    firsts.clear();
    std::copy_if(items, items + m_firsts.RowCount(), std::back_inserter(firsts),
                 [](const First& first) { return first.Place > 0; });
    std::sort(firsts.begin(), firsts.end(), [&](const First& a, const First& b) {
      if (hasMinutes && a.Entry.Minute != b.Entry.Minute) return a.Entry.Minute < b.Entry.Minute;
      return a.Place < b.Place;
    });
    for (const First& first : firsts) pooled.At(test, ++pooled.RecallCount(test)) = first.Entry;
  }
  return pooled;
}

}  // namespace zova
