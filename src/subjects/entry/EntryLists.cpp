// SPDX-License-Identifier: GPL-3.0-or-later

#include "subjects/entry/EntryLists.h"

#include <algorithm>
#include <cassert>

namespace zova {

int ColumnLimit(const ProjectParameters& project, int column) noexcept {
  if (column == kItemColumn) return project.ItemCount;
  return column == kMinuteColumn ? project.MaxMinutes : project.MaxRating;
}

namespace {

std::string RefusalInRange(const ProjectParameters& project, int column, int number) {
  return number > ColumnLimit(project, column) ? RangeRefusal(column) : std::string();
}

const std::string& RatedFlag(const ProjectParameters& project, int test) {
  return project.RatedTests.at(static_cast<std::size_t>(test) - 1);
}

}  // namespace

std::int16_t CellValue(const Recall& entry, int column) noexcept {
  assert(column >= kItemColumn && column <= kRatingColumn);
  if (column == kItemColumn) return entry.Item;
  return column == kMinuteColumn ? entry.Minute : entry.Rating;
}

void SetCellValue(Recall& entry, int column, std::int16_t value) noexcept {
  assert(column >= kItemColumn && column <= kRatingColumn);
  (column == kItemColumn ? entry.Item : column == kMinuteColumn ? entry.Minute : entry.Rating) = value;
}

std::string RangeRefusal(int column) {
  if (column == kItemColumn) return "The entered number was out of item range.";
  if (column == kMinuteColumn) return "The entered number was out of minute range.";
  return "The entered number was out of the rating range.";
}

std::string CellRefusal(const ProjectParameters& project, int test, int column, int number) {
  if (column == kMinuteColumn && project.MinutesRecorded != 1) return "You cannot enter minutes for this project.";
  if (column == kRatingColumn) {
    if (project.Rated != 1) return "You cannot enter ratings for this project.";
    // Kept: a cell accepts ratings unless the flag is "N", a block only if it is "Y". An older file may have neither.
    if (RatedFlag(project, test) == "N") return "You cannot enter ratings for this test.";
  }
  return RefusalInRange(project, column, number);
}

std::string BlockRefusal(const ProjectParameters& project, int test, int column, int number) {
  if (column == kItemColumn) return "You cannot fill the 'Recalled' column with all the same number.";
  if (column == kMinuteColumn) return CellRefusal(project, test, column, number);
  if (project.Rated != 1) return "The parameters do not allow ratings to be entered for this project.";
  if (RatedFlag(project, test) != "Y") return "You cannot enter ratings on this test.";
  return RefusalInRange(project, column, number);
}

bool IsColumnUsed(const ProjectParameters& project, int test, int column) {
  if (column == kItemColumn) return true;
  if (column == kMinuteColumn) return project.MinutesRecorded == 1;
  // Not IsTestRated: the cursor stops wherever a cell accepts a rating.
  return project.Rated == 1 && RatedFlag(project, test) != "N";
}

std::string InsertionLossQuestion(const RecallLists& lists, int test) {
  static constexpr const char* kKinds[] = {"",
                                           "item",
                                           "minute",
                                           "item and minute",
                                           "rating",
                                           "item and rating",
                                           "minute and rating",
                                           "item, minute and rating"};
  const Recall& last = lists.At(test, lists.PositionCount());
  const std::size_t kinds = (last.Item != 0 ? 1U : 0U) + (last.Minute != 0 ? 2U : 0U) + (last.Rating != 0 ? 4U : 0U);
  if (kinds == 0) return {};
  return std::string("Doing this will delete ") + kKinds[kinds] +
         " data from the bottom of the list.  Do you wish to continue anyway?";
}

void InsertBlankLine(RecallLists& lists, int test, int line) {
  Recall* const entries = lists.Test(test);
  Recall* const end = entries + lists.PositionCount();
  std::move_backward(entries + line - 1, end - 1, end);
  entries[line - 1] = {};
}

void DeleteLines(RecallLists& lists, int test, int firstLine, int lastLine) {
  Recall* const entries = lists.Test(test);
  Recall* const end = entries + lists.PositionCount();
  std::fill(std::move(entries + lastLine, end, entries + firstLine - 1), end, Recall{});
}

void BumpMinutes(RecallLists& lists, int test, int firstLine, int lastLine, int step, int maxMinutes) {
  for (int line = firstLine; line <= lastLine; ++line) {
    std::int16_t& minute = lists.At(test, line).Minute;
    const bool mayMove = step > 0 ? minute < maxMinutes : minute > 0;
    if (mayMove) minute = static_cast<std::int16_t>(minute + step);
  }
}

}  // namespace zova
