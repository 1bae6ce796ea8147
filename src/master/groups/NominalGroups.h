// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "project/ProjectParameters.h"
#include "scoring/ScoringArrays.h"
#include "subjects/RecallLists.h"

namespace zova {

/// The position, from 1, of each subject of the listing when groups are formed.
using GroupOrder = std::vector<std::int16_t>;

/// A nominal group: people tested alone whose recall is pooled as if they had worked together. Members are indexes into
/// the listing, in group order.
struct NominalGroup {
  std::int16_t Level = 0;  ///< of the separating variable
  std::vector<std::size_t> Members;

  bool operator==(const NominalGroup&) const = default;
};

/// The groups of one level.
struct LevelPlan {
  std::int16_t Level = 0;
  int SubjectCount = 0;
  int GroupCount = 0;
  std::vector<std::size_t> LeftOver;  ///< too few for another group; indexes like Members

  bool operator==(const LevelPlan&) const = default;
};

struct GroupPlan {
  int SubjectsPerGroup = 0;
  std::vector<NominalGroup> Groups;  ///< group 1 first
  std::vector<LevelPlan> Levels;     ///< levels with subjects, ascending; only level 0 without a separating variable

  [[nodiscard]] bool HasLeftOver() const;
};

/// Shown for an invalid group size and for a plan without groups.
inline constexpr const char* kGroupSizeFault = "Subjects per group must be a number greater than 1.  Please re-enter.";
inline constexpr const char* kTooFewSubjects = "There are not enough subjects for one group.";

/// Stands for a group size above any number of subjects.
inline constexpr int kBeyondAnySize = INT16_MAX + 1;

/// A whole number of at least 2; nullopt for any other text. `kBeyondAnySize` for one above any number of subjects.
std::optional<int> ParseGroupSize(std::string_view text);

/// The index of the variable with this name: exact, else without regard to case and outer blanks.
std::optional<std::size_t> FindVariable(const ProjectParameters& project, std::string_view name);

/// The variables with these names, as a command has them between commas: in an older file a name may contain commas
/// itself. The first name that no variable has goes to `unknown`.
std::vector<std::size_t> FindVariables(const ProjectParameters& project, const std::vector<std::string>& names,
                                       std::string& unknown);

/// "the project has no variable 'Foo'; it has Sex, Age".
std::string NoVariableText(const ProjectParameters& project, std::string_view name);

/// Divides the subjects of each level, sorted by `order`, into consecutive groups; a remainder forms no group. `levels`
/// has one entry per subject of the listing. `order` must be valid.
GroupPlan FormGroups(const std::vector<std::int16_t>& levels, const GroupOrder& order, int subjectsPerGroup);

/// The plan in words, one line per level: "Sex, Male: 2 groups of 3, left over: subjects 5, 9". `subjectIds` are in the
/// order of the listing. "no groups" for `kBeyondAnySize`.
std::string GroupPlanText(const GroupPlan& plan, const std::vector<std::string>& subjectIds,
                          const ProjectParameters& project, std::optional<std::size_t> separator);

/// Pools the recall of a nominal group: per test each distinct item once, by its entry with the earliest minute, in the
/// order of these entries. Without minutes, or at equal ones, the earlier member comes first, then the earlier
/// position.
class GroupRecall {
 public:
  explicit GroupRecall(const ProjectParameters& project) : m_project(project) { Reset(); }

  void Reset();
  /// Adds a member. Throws ScoringError, and adds nothing, for lists that cannot be scored.
  void Add(const RecallLists& lists);
  /// Includes lures; has no blanks inside the lists.
  [[nodiscard]] RecallLists Pooled() const;

 private:
  // The entry for an item, and its rank among all entries added for the test; 0: not recalled.
  struct First {
    Recall Entry;
    int Place = 0;
  };

  void RequireScorable(const RecallLists& lists);

  const ProjectParameters& m_project;
  TestTable<First> m_firsts;  // row: item
  int m_places = 0;
  ItemTable m_checked;
};

}  // namespace zova
