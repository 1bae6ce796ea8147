// SPDX-License-Identifier: GPL-3.0-or-later

#include "subjects/entry/CompletionChecks.h"

#include <algorithm>

#include "subjects/entry/EntryLists.h"

namespace zova {

namespace {

// Kept: also shown for a missing rating.
constexpr const char* kSpaceMessage = "There was a space detected in the data.  Please correct the data.";

bool HasItem(const Recall& entry) { return entry.Item >= 1; }

// Kept: only an item of 0 is a gap; a negative one, from a foreign file, is neither a recall nor a gap.
bool FollowsGap(const RecallLists& lists, int test, int position) {
  return position > 1 && lists.At(test, position - 1).Item == 0;
}

std::optional<CheckFinding> CheckItems(RecallLists& lists, int test, bool rated) {
  std::int16_t& count = lists.RecallCount(test);
  count = 0;
  for (int position = 1; position <= lists.PositionCount(); ++position) {
    Recall& entry = lists.At(test, position);
    if (!HasItem(entry)) {
      // Kept: a rating without an item is dropped on every line but the first.
      if (rated && position > 1) entry.Rating = 0;
      continue;
    }
    ++count;
    if (FollowsGap(lists, test, position)) {
      return CheckFinding{test, position - 1, kItemColumn, kSpaceMessage};
    }
    if (rated && entry.Rating == 0) return CheckFinding{test, position, kRatingColumn, kSpaceMessage};
  }
  return std::nullopt;
}

std::optional<CheckFinding> CheckMinutes(const RecallLists& lists, int test) {
  const int count = lists.RecallCount(test);
  for (int position = 1; position <= count; ++position) {
    const int minute = lists.At(test, position).Minute;
    if (minute == 0) {
      return CheckFinding{
          test, position, kMinuteColumn,
          "There was at least 1 blank space detected in the minute data for this test.  Please update."};
    }
    if (position == count) break;
    const int next = lists.At(test, position + 1).Minute;
    if (next != 0 && minute > next) {
      return CheckFinding{test, position + 1, kMinuteColumn, "Minute data must be in ascending order."};
    }
  }
  return std::nullopt;
}

std::vector<CheckFinding> Warnings(const RecallLists& lists, bool withMinutes) {
  std::vector<CheckFinding> warnings;
  for (int test = 1; test <= lists.TestCount(); ++test) {
    const std::string number = std::to_string(test);
    if (!HasItem(lists.At(test, 1))) {
      warnings.push_back(
          {test, 1, kItemColumn, "Test number " + number + " was blank.  Do you wish to edit the data?"});
    }
    const int last = lists.RecallCount(test);
    if (withMinutes && last > 0 && lists.At(test, last).Minute == 1) {
      warnings.push_back({test, last, kMinuteColumn,
                          "The last item in Test " + number + " was during minute 1.  Do you wish to edit the data?"});
    }
  }
  return warnings;
}

std::string DuplicateMessage(int item, int first, int second, int test) {
  const std::string removed = std::to_string(second);
  return "Duplicate entry found! Item # " + std::to_string(item) + " was located in positions " +
         std::to_string(first) + " and " + removed + " of test " + std::to_string(test) + ".  Item in position " +
         removed + " has been deleted.  Please edit the raw data.  You will be given a chance to review the data.";
}

}  // namespace

namespace {

bool HasDuplicate(const RecallLists& lists, int test, std::vector<std::int16_t>& items) {
  items.clear();
  for (int position = 1; position <= lists.PositionCount(); ++position) {
    if (HasItem(lists.At(test, position))) items.push_back(lists.At(test, position).Item);
  }
  std::sort(items.begin(), items.end());
  return std::adjacent_find(items.begin(), items.end()) != items.end();
}

}  // namespace

std::string FailedChecks(const SubjectRecord& record, const ProjectParameters& project) {
  const RecallLists& lists = record.Lists;
  bool gaps = false, ratings = false, minutes = false, duplicates = false;
  std::vector<std::int16_t> items;
  items.reserve(static_cast<std::size_t>(lists.PositionCount()));
  for (int test = 1; test <= lists.TestCount(); ++test) {
    const bool isRated = IsTestRated(project, test);
    for (int position = 1; position <= lists.PositionCount(); ++position) {
      if (!HasItem(lists.At(test, position))) continue;
      gaps = gaps || FollowsGap(lists, test, position);
      ratings = ratings || (isRated && lists.At(test, position).Rating == 0);
    }
    minutes = minutes || (project.MinutesRecorded == 1 && CheckMinutes(lists, test).has_value());
    duplicates = duplicates || HasDuplicate(lists, test, items);
  }
  std::string text;
  const auto add = [&](bool fails, std::string_view kind) {
    if (fails) text.append(text.empty() ? "" : ", ").append(kind);
  };
  add(gaps, "gaps");
  add(ratings, "ratings");
  add(minutes, "minutes");
  add(duplicates, "duplicates");
  add(FindOutOfRange(record, project).has_value(), "numbers out of range");
  return text;
}

CheckResult CheckLists(RecallLists& lists, const ProjectParameters& project) {
  const bool withMinutes = project.MinutesRecorded == 1;
  CheckResult result;
  for (int test = 1; test <= lists.TestCount() && !result.Fault; ++test) {
    result.Fault = CheckItems(lists, test, IsTestRated(project, test));
  }
  for (int test = 1; withMinutes && test <= lists.TestCount() && !result.Fault; ++test) {
    result.Fault = CheckMinutes(lists, test);
  }
  if (!result.Fault) result.Warnings = Warnings(lists, withMinutes);
  return result;
}

std::optional<CheckFinding> RemoveFirstDuplicate(RecallLists& lists) {
  for (int test = 1; test <= lists.TestCount(); ++test) {
    Recall* const entries = lists.Test(test);
    Recall* const end = entries + lists.PositionCount();
    for (const Recall* first = entries; first != end; ++first) {
      if (!HasItem(*first)) continue;
      const int item = first->Item;
      const Recall* const second = std::find_if(first + 1, static_cast<const Recall*>(end),
                                                [=](const Recall& entry) { return entry.Item == item; });
      if (second == end) continue;
      const int position = static_cast<int>(second - entries) + 1;
      const int firstPosition = static_cast<int>(first - entries) + 1;
      DeleteLines(lists, test, position, position);
      lists.RecallCount(test) = static_cast<std::int16_t>(std::count_if(entries, end, HasItem));
      return CheckFinding{test, position, kItemColumn, DuplicateMessage(item, firstPosition, position, test), item};
    }
  }
  return std::nullopt;
}

std::optional<CheckFinding> FindOutOfRange(const SubjectRecord& record, const ProjectParameters& project) {
  const auto question = [](const std::string& place, std::string_view kind, int value) {
    return place + ": the " + std::string(kind) + " " + std::to_string(value) +
           " is out of range.  Do you wish to save the data as they are?";
  };
  for (std::size_t v = 0; v < static_cast<std::size_t>(project.VariableCount); ++v) {
    const int level = record.Levels[v];
    if (level >= 1 && level <= project.LevelCounts[v]) continue;
    return CheckFinding{.Message = question("Variable '" + project.VariableNames[v] + "'", "level", level)};
  }
  for (int test = 1; test <= record.Lists.TestCount(); ++test) {
    for (int line = 1; line <= record.Lists.PositionCount(); ++line) {
      for (const int column : {kItemColumn, kMinuteColumn, kRatingColumn}) {
        const int value = CellValue(record.Lists.At(test, line), column);
        if (value == 0 || !IsColumnUsed(project, test, column)) continue;
        if (value >= 1 && value <= ColumnLimit(project, column)) continue;
        static constexpr std::string_view kKinds[] = {"", "item", "minute", "rating"};
        const std::string place = "Test " + std::to_string(test) + ", line " + std::to_string(line);
        return CheckFinding{test, line, column, question(place, kKinds[column], value)};
      }
    }
  }
  return std::nullopt;
}

}  // namespace zova
