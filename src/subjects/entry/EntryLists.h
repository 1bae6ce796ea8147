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

/// Why a number may not stand in a cell of the column on this test; "" when it may. One cell and a block are refused
/// in different words, and not on quite the same tests: both kept.
std::string CellRefusal(const ProjectParameters& project, int test, int column, int number);
std::string BlockRefusal(const ProjectParameters& project, int test, int column, int number);
/// The refusal of a number above the column's limit, whatever the project keeps.
std::string RangeRefusal(int column);

/// Whether the cursor stops in the column on this test: minutes only when kept, ratings only on rated tests.
bool IsColumnUsed(const ProjectParameters& project, int test, int column);

/// The question before an insertion that would push filled cells off the list's end; "" when none would be lost.
std::string InsertionLossQuestion(const RecallLists& lists, int test);
// Neither counts the test's recalls anew.
void InsertBlankLine(RecallLists& lists, int test, int line);
void DeleteLines(RecallLists& lists, int test, int firstLine, int lastLine);

/// `step` is 1 or -1: raises the minutes below `maxMinutes` (a blank becomes 1), or lowers those above 0 (a 1 becomes
/// blank).
void BumpMinutes(RecallLists& lists, int test, int firstLine, int lastLine, int step, int maxMinutes);

}  // namespace zova
