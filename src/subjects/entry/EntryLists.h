// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "project/ProjectParameters.h"
#include "subjects/RecallLists.h"

namespace zova {

inline constexpr int kItemColumn = 1;
inline constexpr int kMinuteColumn = 2;
inline constexpr int kRatingColumn = 3;

struct EntryCell {
  int Line = 1;
  int Column = kItemColumn;
  bool operator==(const EntryCell&) const = default;
};

/// A block of cells of the entry grid, both ends included. Lines (positions) and columns count from 1.
struct EntryBlock {
  int FirstLine = 1;
  int LastLine = 1;
  int FirstColumn = kItemColumn;
  int LastColumn = kItemColumn;

  [[nodiscard]] bool IsOneCell() const noexcept { return FirstLine == LastLine && FirstColumn == LastColumn; }
  [[nodiscard]] int Lines() const noexcept { return LastLine - FirstLine + 1; }
  bool operator==(const EntryBlock&) const = default;
};

std::int16_t CellValue(const Recall& entry, int column) noexcept;
void SetCellValue(Recall& entry, int column, std::int16_t value) noexcept;

/// Why a number may not stand in a cell of the column on this test; "" when it may. One cell and a block are refused
/// in different words, and not on quite the same tests: both kept.
std::string CellRefusal(const ProjectParameters& project, int test, int column, int number);
std::string BlockRefusal(const ProjectParameters& project, int test, int column, int number);

/// Whether the cursor stops in the column on this test: minutes only when kept, ratings only on rated tests.
bool IsColumnUsed(const ProjectParameters& project, int test, int column);

/// The question before an insertion that would push filled cells off the list's end; "" when none would be lost.
std::string InsertionLossQuestion(const RecallLists& lists, int test);
// Neither counts the test's recalls anew.
void InsertBlankLine(RecallLists& lists, int test, int line);
void DeleteLines(RecallLists& lists, int test, int firstLine, int lastLine);

/// `step` is 1 or -1: raises the minutes below `maxMinutes` (a blank becomes 1), or lowers those above 0 (a 1 becomes
/// blank). True when any changed.
bool BumpMinutes(RecallLists& lists, int test, int firstLine, int lastLine, int step, int maxMinutes);

/// A block of numbers from a spreadsheet: lines ended by CR LF, LF or CR, their cells separated by tabs; in a text
/// without tabs by semicolons, without those by commas. A cell holds digits, or nothing for a blank.
struct PastedBlock {
  /// Per pasted line its cells, the first at index 0, wherever in the grid it goes. A cell that a short line does not
  /// have is not set: the grid's stays as it is. No lines with a fault.
  std::vector<std::array<std::optional<std::int16_t>, 3>> Lines;
  int Columns = 0;    ///< of the widest line
  std::string Fault;  ///< its fixed message, "" when all cells may stand where they would go
  int FaultLine = 0;  ///< of the pasted data, from 1; 0 without a fault
};
/// `text` as it would go into the grid from (line, column) on, checked like typed entries; the first fault ends it.
PastedBlock ParsePaste(std::string_view text, const ProjectParameters& project, int test, int line, int column);

}  // namespace zova
