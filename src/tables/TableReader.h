// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/desktop/Desktop.h"
#include "tables/TableLayout.h"

namespace zova {

/// All that is needed to read a table.
struct TableSetup {
  std::string Path;
  TableOptions Options;  ///< that it was made with
  TableFormat Format;
  TableColumns Columns;
  TableLayout Layout;
  /// The column in which this program's own tables say whose order of study a list has ("none" if it is not known).
  int OrderColumn = kNoColumn;
};

/// What a row is by its trial type. A table without that column has recalls alone.
enum class RowKind { Study, Recall, Other };
RowKind KindOfRow(std::string_view trialType);

/// Throws FileError. What the options name and the table does not have is in `Columns.Faults`.
TableSetup SetUpTable(Disk& disk, const std::string& path, const TableOptions& options,
                      const ProjectParameters& project);

/// What becomes of repeats: this program's own tables keep them unless an option says otherwise.
Repeats KeptRepeats(const ImportOptions& options, const TableSetup& setup) noexcept;

/// True for a column that has a role or holds responses.
bool HasRole(const TableSetup& setup, int column);

/// Reads the rows of a table that its filters let through, without allocating per row.
class TableReader {
 public:
  TableReader(Disk& disk, const TableSetup& setup);

  /// False at the end. Throws FileError, also for a row whose number of fields is not that of the header.
  bool Next();
  /// The text without outer blanks; "" where the table has no such column.
  [[nodiscard]] std::string_view Text(int column) const noexcept {
    return column < 0 || static_cast<std::size_t>(column) >= m_fields.size()
               ? std::string_view()
               : m_fields[static_cast<std::size_t>(column)];
  }
  [[nodiscard]] std::string_view Text(ColumnRole role) const noexcept { return Text(m_setup.Columns.Of(role)); }
  [[nodiscard]] std::size_t Line() const noexcept { return m_reader.Line(); }

 private:
  [[nodiscard]] bool Passes() const noexcept;

  const TableSetup& m_setup;
  CsvReader m_reader;
  std::vector<std::string_view> m_fields;
  std::vector<std::pair<int, std::string_view>> m_where;  // by column
  std::size_t m_passedOver;                               // rows above the data that are still to come
};

/// A text of SubjectRows.
struct TextSpan {
  std::uint32_t Begin = 0;
  std::uint32_t Size = 0;
};

/// What a row, or one of its response columns, says of a subject.
struct TableEntry {
  std::size_t Line = 0;
  int Column = kNoColumn;  ///< of the response
  int Label = 0;           ///< index of the test's label in the survey
  bool IsStudy = false;
  bool IsOrdered = true;  ///< of a study row: its position is the order of study
  bool IsCell = false;
  TextSpan Response;  ///< the word or, in a table of numbers, the item
  TextSpan Item;      ///< empty in a table without item numbers
  TextSpan Position;
  TextSpan Minute;
  TextSpan Rating;
};

/// A subject's value of a variable.
struct LevelText {
  std::string Text;
  std::size_t Line = 0;         ///< 0 when no row has one
  std::size_t ChangedLine = 0;  ///< the first row with another one; 0 for none
};

/// All rows of one subject.
struct SubjectRows {
  std::string Original;  ///< the identifier in the table
  std::size_t Line = 0;  ///< its first row
  std::string Texts;
  std::vector<TableEntry> Entries;
  std::vector<LevelText> Levels;  ///< by variable of the project
  std::uint64_t Digest = 0;       ///< of all that was read

  [[nodiscard]] std::string_view TextOf(TextSpan span) const noexcept {
    return std::string_view(Texts).substr(span.Begin, span.Size);
  }
};

struct TableSurvey;

/// Calls `use` with the rows of each subject, in the order of their first rows; `use` returns false to stop. Holds one
/// subject at a time when the survey found the table sorted by subject, else all. Throws FileError.
void ForEachSubject(Disk& disk, const TableSetup& setup, const TableSurvey& survey, std::size_t variableCount,
                    const std::function<bool(const SubjectRows&)>& use);

}  // namespace zova
