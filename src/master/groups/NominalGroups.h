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

/// The position, from 1, of each subject when groups are formed; subjects in the order of their listing.
using GroupOrder = std::vector<std::int16_t>;

/// One nominal group: people tested alone whose recall is pooled as if they had worked together. Members are indexes
/// from 0 into the listing, in the order of the group.
struct NominalGroup {
  std::int16_t Level = 0;  ///< of the separating variable
  std::vector<std::size_t> Members;

  bool operator==(const NominalGroup&) const = default;
};

/// What becomes of the subjects of one level.
struct LevelPlan {
  std::int16_t Level = 0;
  int SubjectCount = 0;
  int GroupCount = 0;
  std::vector<std::size_t> LeftOver;  ///< too few for one more group; as Members

  bool operator==(const LevelPlan&) const = default;
};

struct GroupPlan {
  int SubjectsPerGroup = 0;
  std::vector<NominalGroup> Groups;  ///< group 1 first
  std::vector<LevelPlan> Levels;     ///< levels with subjects, ascending; without a separating variable one, 0

  [[nodiscard]] bool HasLeftOver() const;
};

/// Shown for a text that is no group size, and for a plan without groups.
inline constexpr const char* kGroupSizeFault = "Subjects per group must be a number greater than 1.  Please re-enter.";
inline constexpr const char* kTooFewSubjects = "There are not enough subjects for one group.";

/// A group size that is larger than any number of subjects.
inline constexpr int kBeyondAnySize = INT16_MAX + 1;

/// The whole text as a whole number of at least 2; nothing for all else. One larger than any number of subjects is
/// `kBeyondAnySize`.
std::optional<int> ParseGroupSize(std::string_view text);

/// The variable of that name (from index 0): spelt so, else without regard to case.
std::optional<std::size_t> FindVariable(const ProjectParameters& project, std::string_view name);

/// Cuts the subjects, sorted by `order`, into consecutive groups within each level; a remainder forms none. `levels`
/// has a level per subject in the order of their listing; `order` is without fault.
GroupPlan FormGroups(const std::vector<std::int16_t>& levels, const GroupOrder& order, int subjectsPerGroup);

/// What `plan` gives, a line per level: "Sex, Male: 2 groups of 3, left over: subjects 5, 9". Identifiers in the order
/// of the listing. Of a size beyond any, "no groups".
std::string GroupPlanText(const GroupPlan& plan, const std::vector<std::string>& subjectIds,
                          const ProjectParameters& project, std::optional<std::size_t> separator);

/// The recall of a nominal group, pooled member by member: per test every distinct item once, by the entry with the
/// earliest minute, in the order of these entries. Where minutes are the same or not kept, the earlier member comes
/// first, then the earlier position.
class GroupRecall {
 public:
  explicit GroupRecall(const ProjectParameters& project) : m_project(project) { Reset(); }

  void Reset();
  /// Throws ScoringError for what could not be scored of a subject either, and then has taken nothing.
  void Add(const RecallLists& lists);
  /// Lures are in their places, and there are no blanks inside.
  [[nodiscard]] RecallLists Pooled() const;

 private:
  // The entry that stands for an item, and its place among all that were added for the test; 0: not recalled.
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
