// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <string>

#include "project/ProjectParameters.h"
#include "subjects/RecallLists.h"

namespace zova {

inline constexpr int kItemColumn = 1;
inline constexpr int kMinuteColumn = 2;
inline constexpr int kRatingColumn = 3;

std::int16_t CellValue(const Recall& entry, int column) noexcept;
void SetCellValue(Recall& entry, int column, std::int16_t value) noexcept;

/// The largest number in the column.
int ColumnLimit(const ProjectParameters& project, int column) noexcept;

/// The message that refuses a number in the column on this test; "" if it is valid. Kept: one cell and a block have
/// different messages, and slightly different conditions.
std::string CellRefusal(const ProjectParameters& project, int test, int column, int number);
std::string BlockRefusal(const ProjectParameters& project, int test, int column, int number);
/// The message for a number above the column's limit, whatever the project records.
std::string RangeRefusal(int column);

/// Whether the cursor stops in the column on this test: minutes only if recorded, ratings only on rated tests.
bool IsColumnUsed(const ProjectParameters& project, int test, int column);

/// The question before an insertion that would push filled cells off the end of the list; "" if none would be lost.
std::string InsertionLossQuestion(const RecallLists& lists, int test);
// Neither recounts the test's recalls.
void InsertBlankLine(RecallLists& lists, int test, int line);
void DeleteLines(RecallLists& lists, int test, int firstLine, int lastLine);

/// `step` 1 raises the minutes below `maxMinutes` (a blank becomes 1), -1 lowers those above 0 (a 1 becomes blank).
void BumpMinutes(RecallLists& lists, int test, int firstLine, int lastLine, int step, int maxMinutes);

}  // namespace zova
