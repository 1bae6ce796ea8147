// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "tables/TableColumns.h"

namespace zova {

/// A column that holds responses.
struct ResponseColumn {
  std::size_t Column = 0;
  std::string TestLabel;  ///< of a wide table; else the row has it
  bool IsCell = false;    ///< holds several responses
};

/// Where a table has its responses.
struct TableLayout {
  TableShape Shape = TableShape::Long;
  std::vector<ResponseColumn> Responses;  ///< by test, then in the order of recall; one for a long table
  std::string Separator;                  ///< between the responses of a cell
};

/// Finds out what `options` leave open, from the columns' names and the sample.
TableLayout FindTableLayout(const TableFormat& format, const TableColumns& columns, const TableOptions& options);

/// The separator of the responses in the cells of a column: the one most cells have, the blank if none has another.
std::string FindSeparator(const TableFormat& format, const std::vector<ResponseColumn>& columns);

}  // namespace zova
