// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <algorithm>
#include <cstddef>
#include <string>
#include <vector>

#include "platform/files/Disk.h"
#include "tables/ImportOptions.h"
#include "text/CsvReader.h"
#include "text/TypedText.h"

namespace zova {

/// How a table's bytes are read.
struct TableFormat {
  TableEncoding Encoding = TableEncoding::Utf8;
  char Delimiter = ',';
  bool HasHeader = true;
  std::vector<std::string> Names;                ///< of the columns; "#1", "#2" without a header
  std::vector<std::vector<std::string>> Sample;  ///< the first rows below the header, at most kSampleRows
  std::size_t RowsAbove = 0;                     ///< rows above the data: the header, and what stands before it

  static constexpr std::size_t kSampleRows = 200;
};

/// False for a row of empty cells, as spreadsheets leave them: it is none.
template <typename Fields>
bool HasText(const Fields& fields) noexcept {
  return std::any_of(fields.begin(), fields.end(),
                     [](const auto& field) { return !WithoutOuterBlanks(field).empty(); });
}

/// Finds out what `options` leave open. Throws FileError: EndOfData, with what the file is and what to do, for bytes
/// that are no table of text.
TableFormat FindTableFormat(Disk& disk, const std::string& path, const TableOptions& options);

/// Reads the table's rows from the first, the header included, in UTF-8. `disk` must outlive the reader, whose Next
/// also throws FileError.
CsvReader OpenTable(Disk& disk, const std::string& path, const TableFormat& format);

/// A fault in the table's text as a FileError that names the line.
FileError TableError(const std::string& path, std::size_t line, const std::string& text);

}  // namespace zova
