// SPDX-License-Identifier: GPL-3.0-or-later

#include "subjects/entry/EntryLists.h"

#include <algorithm>
#include <cassert>
#include <charconv>
#include <limits>

namespace zova {

namespace {

// Above every limit: what a pasted cell with anything but a number counts as.
constexpr int kBeyondAnyRange = std::numeric_limits<int>::max();

int ColumnLimit(const ProjectParameters& project, int column) {
  if (column == kItemColumn) return project.ItemCount;
  return column == kMinuteColumn ? project.MaxMinutes : project.MaxRating;
}

const char* RangeRefusal(int column) {
  if (column == kItemColumn) return "The entered number was out of item range.";
  if (column == kMinuteColumn) return "The entered number was out of minute range.";
  return "The entered number was out of the rating range.";
}

std::string RefusalInRange(const ProjectParameters& project, int column, int number) {
  return number > ColumnLimit(project, column) ? RangeRefusal(column) : "";
}

const std::string& RatedFlag(const ProjectParameters& project, int test) {
  return project.RatedTests.at(static_cast<std::size_t>(test) - 1);
}

std::string PastedCellRefusal(const ProjectParameters& project, int test, int column, int number) {
  // A pasted column of items is many numbers, not one that fills all lines.
  return column == kItemColumn ? CellRefusal(project, test, column, number)
                               : BlockRefusal(project, test, column, number);
}

std::string_view TrimmedBlanks(std::string_view text) {
  const std::size_t first = text.find_first_not_of(" \t");
  return first == std::string_view::npos ? "" : text.substr(first, text.find_last_not_of(" \t") - first + 1);
}

int PastedNumber(std::string_view digits) {
  int number = 0;
  const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), number);
  const bool isNumber = digits.front() != '-' && error == std::errc() && end == digits.data() + digits.size();
  return isNumber ? number : kBeyondAnyRange;
}

// Takes the part of `rest` before the next of `ends` and that one too; a CR LF is one end.
std::string_view TakePart(std::string_view& rest, std::string_view ends) {
  const std::size_t end = rest.find_first_of(ends);
  const std::string_view part = rest.substr(0, end);
  rest.remove_prefix(end == std::string_view::npos ? rest.size() : rest.substr(end, 2) == "\r\n" ? end + 2 : end + 1);
  return part;
}

char SeparatorOf(std::string_view text) {
  for (const char separator : {'\t', ';'}) {
    if (text.find(separator) != std::string_view::npos) return separator;
  }
  return ',';
}

// The fault of a pasted line, "" without one.
std::string AddPastedLine(PastedBlock& block, std::string_view text, char separator, const ProjectParameters& project,
                          int test, int column) {
  auto& cells = block.Lines.emplace_back();
  int count = 0;
  for (bool isLast = false; !isLast; ++count) {
    if (column + count > kRatingColumn) return RangeRefusal(kRatingColumn);
    const std::size_t end = text.find(separator);
    isLast = end == std::string_view::npos;
    const std::string_view digits = TrimmedBlanks(text.substr(0, end));
    const int number = digits.empty() ? 0 : PastedNumber(digits);
    if (!digits.empty()) {
      std::string refusal = PastedCellRefusal(project, test, column + count, number);
      if (!refusal.empty()) return refusal;
    }
    cells.at(static_cast<std::size_t>(count)) = static_cast<std::int16_t>(number);
    if (!isLast) text.remove_prefix(end + 1);
  }
  block.Columns = std::max(block.Columns, count);
  return {};
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

std::string CellRefusal(const ProjectParameters& project, int test, int column, int number) {
  if (column == kMinuteColumn && project.MinutesRecorded != 1) return "You cannot enter minutes for this project.";
  if (column == kRatingColumn) {
    if (project.Rated != 1) return "You cannot enter ratings for this project.";
    // Kept: one cell takes ratings unless the flag is "N", a block only when it is "Y". An older file may say neither.
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
  // Not IsTestRated: the cursor stops wherever one cell takes a rating.
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

bool BumpMinutes(RecallLists& lists, int test, int firstLine, int lastLine, int step, int maxMinutes) {
  bool changed = false;
  for (int line = firstLine; line <= lastLine; ++line) {
    std::int16_t& minute = lists.At(test, line).Minute;
    const bool mayMove = step > 0 ? minute < maxMinutes : minute > 0;
    if (!mayMove) continue;
    minute = static_cast<std::int16_t>(minute + step);
    changed = true;
  }
  return changed;
}

PastedBlock ParsePaste(std::string_view text, const ProjectParameters& project, int test, int line, int column) {
  PastedBlock block;
  // Empty lines at the end are the spreadsheet's, not cells to be blanked.
  text = text.substr(0, text.find_last_not_of("\r\n") + 1);
  const char separator = SeparatorOf(text);
  while (!text.empty()) {
    const int pastedLine = static_cast<int>(block.Lines.size()) + 1;
    if (line + pastedLine - 1 > project.ItemCount) {
      block.Fault = RangeRefusal(column);
    } else {
      block.Fault = AddPastedLine(block, TakePart(text, "\r\n"), separator, project, test, column);
    }
    if (!block.Fault.empty()) {
      block.Lines.clear();
      block.Columns = 0;
      block.FaultLine = pastedLine;
      break;
    }
  }
  return block;
}

}  // namespace zova
