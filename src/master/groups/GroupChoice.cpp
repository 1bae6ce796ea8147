// SPDX-License-Identifier: GPL-3.0-or-later

#include "master/groups/GroupChoice.h"

#include <set>
#include <string_view>
#include <utility>

#include "master/groups/SavedOrders.h"
#include "platform/desktop/FileErrorBoxes.h"

namespace zova {

namespace {

// No one reviews the order before it is used, so a misspelt identifier must be reported.
std::optional<GroupOrder> ReadOrder(const std::string& path, const std::vector<std::string>& subjectIds,
                                    const Platform& platform, std::vector<std::string>& notInOrder) {
  GroupOrderLines lines;
  if (!WithRetry(platform.Boxes, [&] { lines = ReadGroupOrder(platform.Files, path); })) return std::nullopt;
  if (const auto fault = GroupFileFault(lines, subjectIds)) {
    Warn(platform.Boxes, fault->Text, "Reading '" + path + "'");
    return std::nullopt;
  }
  const std::set<std::string_view> known(lines.SubjectIds.begin(), lines.SubjectIds.end());
  for (const std::string& id : subjectIds) {
    if (!known.contains(id)) notInOrder.push_back(id);
  }
  return FitGroupOrder(lines, subjectIds);
}

}  // namespace

std::optional<ChosenGroups> ReadChosenGroups(const ProjectParameters& project, int subjectFileCount,
                                             const GroupChoice& choice, const Platform& platform) {
  auto subjects = ReadGroupSubjects(project, subjectFileCount, choice.Separator.has_value(), platform);
  if (!subjects) return std::nullopt;
  ChosenGroups groups;
  groups.Subjects = std::move(*subjects);
  const std::vector<std::string>& ids = groups.Subjects.SubjectIds;
  GroupOrder order = FirstGroupOrder(ids.size());
  if (!choice.OrderFile.empty()) {
    auto read = ReadOrder(choice.OrderFile, ids, platform, groups.NotInOrder);
    if (!read) return std::nullopt;
    order = std::move(*read);
  }
  groups.Plan = FormGroups(groups.Subjects.LevelsOf(choice.Separator), order, choice.Size);
  if (groups.Plan.Groups.empty()) {
    Warn(platform.Boxes, kTooFewSubjects, GroupPlanText(groups.Plan, ids, project, choice.Separator));
    return std::nullopt;
  }
  return groups;
}

}  // namespace zova
