// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zova {

enum class TableEncoding { Utf8, Windows1252 };

/// Long: a row per recall. Lists: a row per subject and test, the responses in one cell or a column each. Wide: a row
/// per subject, for each test one such cell or columns "Test1_1".
enum class TableShape { Long, Lists, Wide };

/// A column of the table for a role ("subject", "word", ...) or for a variable of the project.
struct ColumnChoice {
  std::string Role;
  std::string Column;  ///< its name, or "#3"; "" for none, whatever its name

  bool operator==(const ColumnChoice&) const = default;
};

/// Only the rows that have this value in this column.
struct RowFilter {
  std::string Column;
  std::string Value;

  bool operator==(const RowFilter&) const = default;
};

/// How the table is read. What is not given is found out.
struct TableOptions {
  std::optional<TableEncoding> Encoding;
  std::optional<char> Delimiter;
  bool HasHeader = true;
  std::optional<TableShape> Shape;
  std::vector<ColumnChoice> Columns;
  std::optional<std::string> Separator;  ///< of the responses in one cell
  std::vector<RowFilter> Where;          ///< all of them

  bool operator==(const TableOptions&) const = default;
};

enum class TestsBy { Labels, Rank };
enum class ItemsBy { Pool, Position };
/// MinuteNumbers: the minutes of the test, from 1, and no times.
enum class TimeUnit { Seconds, Milliseconds, Minutes, MinuteNumbers };
enum class Leftovers { Intrusion, Skip };
enum class Repeats { First, Keep };
enum class TooLong { Cut, LeaveOut };
enum class MissingTests { Empty, LeaveOut };
enum class ExistingSubjects { Skip, Replace };

/// The level of a variable for subjects for whom the table has none that fits.
struct LevelChoice {
  std::string Variable;
  std::string Level;

  bool operator==(const LevelChoice&) const = default;
};

/// All choices of an import. Those without a value are asked when the table needs them (ImportQuestion).
struct ImportOptions {
  TableOptions Table;
  std::optional<TestsBy> Tests;
  ItemsBy Items = ItemsBy::Pool;
  std::optional<int> FirstItem;  ///< 0 or 1
  bool OrderByRows = false;      ///< the order of recall is that of the rows, not of the positions
  std::optional<TimeUnit> Times;
  bool ExactAccents = false;
  std::optional<Leftovers> Others;  ///< what responses count as that are no words and not decided
  int AcceptDistance = 0;           ///< takes the proposals of at most this distance
  std::optional<Repeats> Repeated;  ///< KeptRepeats
  std::optional<TooLong> Long;
  std::optional<MissingTests> Missing;
  std::optional<ExistingSubjects> Existing;
  std::vector<LevelChoice> Levels;
  bool AcceptIncomplete = false;  ///< subjects that the checks refuse go to `Unfinished`
  bool NumberIds = false;         ///< subjects are numbered; "AB Subjects.csv" has their own identifiers

  bool operator==(const ImportOptions&) const = default;
};

/// A question that the table raises.
struct ImportQuestion {
  std::string Option;                ///< the option of zova-import that answers it: "--tests"
  std::string Text;                  ///< "..., or ...?"
  std::vector<std::string> Answers;  ///< values of that option; empty when any is allowed
  std::size_t Row = 0;               ///< line of the table that raises it, from 1; 0 for none
  std::string Variable = {};         ///< with "--level"

  bool operator==(const ImportQuestion&) const = default;
};

/// Sets an option of zova-import by its name, as on the command line. Returns what is wrong with the value, or "".
/// Options without a value take "".
std::string SetImportOption(ImportOptions& options, std::string_view name, std::string_view value);

/// The answer that the options have to a question, or "".
std::string AnswerTo(const ImportQuestion& question, const ImportOptions& options);

/// Answers a question with one of its answers, or for "--level" with a level's name or number.
std::string AnswerQuestion(ImportOptions& options, const ImportQuestion& question, std::string_view answer);

/// The word for a delimiter: "comma", "tab", "semicolon".
std::string_view DelimiterName(char delimiter) noexcept;
std::string_view EncodingName(TableEncoding encoding) noexcept;
std::string_view ShapeName(TableShape shape) noexcept;

}  // namespace zova
