// SPDX-License-Identifier: GPL-3.0-or-later
//
// Responses stand in a column of their own ("Response"), in columns numbered by their order ("Word1", "Word2"), or, in
// a wide table, in columns numbered by tests ("List1") or by both ("Test1_1", "List 2 Word 3").

#include "tables/TableLayout.h"

#include <algorithm>
#include <array>
#include <map>
#include <optional>
#include <set>
#include <utility>

#include "text/LeadingNumber.h"
#include "text/TypedText.h"

namespace zova {

namespace {

constexpr std::array<std::string_view, 6> kSeparators = {"\n", ";", "|", ",", "/", "\t"};

// A column's name with one or two numbers, "List2_Word3".
struct NumberedName {
  std::string Stem;  // plain: "list"
  std::string Middle;
  std::optional<int> First;
  int Last = 0;
};

std::optional<int> TakeNumber(std::string_view& name) {
  while (!name.empty() && IsJoint(name.back())) name.remove_suffix(1);
  std::size_t begin = name.size();
  while (begin > 0 && IsDigit(name[begin - 1])) --begin;
  const auto number = DigitsInteger16(name.substr(begin));
  if (!number) return std::nullopt;
  name = name.substr(0, begin);
  return *number;
}

std::optional<NumberedName> ParseNumbered(std::string_view name) {
  name = WithoutOuterBlanks(name);
  NumberedName numbered;
  const auto last = TakeNumber(name);
  if (!last) return std::nullopt;
  numbered.Last = *last;
  std::string_view before = name;
  while (!before.empty() && !IsDigit(before.back())) before.remove_suffix(1);
  const std::string_view middle = name.substr(before.size());
  if (!before.empty() && !middle.empty()) {
    numbered.First = TakeNumber(before);
    numbered.Middle = PlainName(middle);
    name = before;
  }
  numbered.Stem = PlainName(name);
  return numbered;
}

bool HoldsResponses(std::string_view plain) {
  return plain == "r" || IsNameOfRole(plain, ColumnRole::Word) || IsNameOfRole(plain, ColumnRole::Item);
}

struct Family {
  std::string Stem;
  std::vector<std::pair<NumberedName, std::size_t>> Columns;
};

// The largest family of numbered columns for which `fits` holds; of several, that of the first column.
template <typename Fits>
Family LargestFamily(const TableFormat& format, Fits&& fits) {
  std::vector<Family> families;
  for (std::size_t i = 0; i < format.Names.size(); ++i) {
    auto name = ParseNumbered(format.Names[i]);
    if (!name || !fits(*name)) continue;
    const std::string stem = name->Stem + '\n' + name->Middle;
    auto family = std::find_if(families.begin(), families.end(), [&](const Family& f) { return f.Stem == stem; });
    if (family == families.end()) family = families.insert(families.end(), Family{stem, {}});
    family->Columns.emplace_back(*std::move(name), i);
  }
  const auto largest = std::max_element(families.begin(), families.end(), [](const Family& left, const Family& right) {
    return left.Columns.size() < right.Columns.size();
  });
  return largest == families.end() ? Family{} : std::move(*largest);
}

std::vector<ResponseColumn> ColumnsOf(Family family, bool areCells, bool haveTests) {
  std::stable_sort(family.Columns.begin(), family.Columns.end(), [](const auto& left, const auto& right) {
    return std::pair(left.first.First.value_or(0), left.first.Last) <
           std::pair(right.first.First.value_or(0), right.first.Last);
  });
  std::vector<ResponseColumn> columns;
  columns.reserve(family.Columns.size());
  for (const auto& [name, column] : family.Columns) {
    const int test = areCells ? name.Last : name.First.value_or(0);
    columns.push_back({column, haveTests ? std::to_string(test) : std::string(), areCells});
  }
  return columns;
}

std::vector<ResponseColumn> TestAndPlaceColumns(const TableFormat& format, bool isGiven) {
  Family family = LargestFamily(format, [&](const NumberedName& name) {
    return name.First && (isGiven || IsNameOfRole(name.Stem, ColumnRole::Test) || HoldsResponses(name.Stem) ||
                          HoldsResponses(name.Middle));
  });
  if (family.Columns.size() < 2) return {};
  return ColumnsOf(std::move(family), false, true);
}

std::vector<ResponseColumn> TestCells(const TableFormat& format, bool isGiven) {
  Family family = LargestFamily(format, [&](const NumberedName& name) {
    return !name.First && (isGiven || IsNameOfRole(name.Stem, ColumnRole::Test) || HoldsResponses(name.Stem));
  });
  return ColumnsOf(std::move(family), true, true);
}

std::vector<ResponseColumn> PlaceColumns(const TableFormat& format) {
  Family family =
      LargestFamily(format, [](const NumberedName& name) { return !name.First && HoldsResponses(name.Stem); });
  if (family.Columns.size() < 2) return {};
  return ColumnsOf(std::move(family), false, false);
}

std::string_view SampleText(const std::vector<std::string>& row, std::size_t column) {
  return column < row.size() ? WithoutOuterBlanks(row[column]) : std::string_view();
}

// Most cells hold several pieces, if only parted by blanks.
bool HoldSeveral(const TableFormat& format, const std::vector<ResponseColumn>& columns, std::string_view separator) {
  std::size_t filled = 0;
  std::size_t several = 0;
  for (const auto& row : format.Sample) {
    for (const ResponseColumn& column : columns) {
      const std::string_view text = SampleText(row, column.Column);
      if (text.empty()) continue;
      ++filled;
      if (text.find(separator) != std::string_view::npos) ++several;
    }
  }
  return several * 2 > filled;
}

bool HasOneRowPerTest(const TableFormat& format, const TableColumns& columns) {
  std::set<std::pair<std::string_view, std::string_view>> seen;
  const auto text = [&](const auto& row, ColumnRole role) {
    return columns.Has(role) ? SampleText(row, static_cast<std::size_t>(columns.Of(role))) : std::string_view();
  };
  return std::all_of(format.Sample.begin(), format.Sample.end(), [&](const auto& row) {
    return seen.emplace(text(row, ColumnRole::Subject), text(row, ColumnRole::Test)).second;
  });
}

// The column of a long table, or the one with cells.
std::vector<ResponseColumn> ResponseColumns(const TableColumns& columns, bool isCell) {
  const int column = columns.Has(ColumnRole::Word) ? columns.Of(ColumnRole::Word) : columns.Of(ColumnRole::Item);
  if (column == kNoColumn) return {};
  return {{static_cast<std::size_t>(column), {}, isCell}};
}

TableLayout WideLayout(const TableFormat& format, bool isGiven) {
  TableLayout layout{TableShape::Wide, TestAndPlaceColumns(format, isGiven), {}};
  if (layout.Responses.empty()) layout.Responses = TestCells(format, isGiven);
  return layout;
}

TableLayout ListsLayout(const TableFormat& format, const TableColumns& columns) {
  TableLayout layout{TableShape::Lists, PlaceColumns(format), {}};
  if (layout.Responses.empty()) layout.Responses = ResponseColumns(columns, true);
  return layout;
}

TableLayout FoundLayout(const TableFormat& format, const TableColumns& columns, const TableOptions& options) {
  const TableLayout inLong{TableShape::Long, ResponseColumns(columns, false), {}};
  const bool hasColumn = !inLong.Responses.empty();
  if (!columns.Has(ColumnRole::Test)) {
    TableLayout wide = WideLayout(format, false);
    const bool hasCells = !wide.Responses.empty() && wide.Responses.front().IsCell;
    const std::string separator =
        options.Separator.value_or(hasCells ? FindSeparator(format, wide.Responses) : std::string());
    // "Word1", "Word2" without a test are the places of one list, unless they hold lists.
    const bool arePlaces = hasCells && !PlaceColumns(format).empty() && !HoldSeveral(format, wide.Responses, separator);
    if (!wide.Responses.empty() && !arePlaces && !hasColumn) return wide;
  }
  if (!hasColumn) {
    TableLayout lists = ListsLayout(format, columns);
    return lists.Responses.empty() ? inLong : lists;
  }
  TableLayout cells{TableShape::Lists, ResponseColumns(columns, true), {}};
  const bool isLong =
      columns.Has(ColumnRole::TrialType) || columns.Has(ColumnRole::Position) || !HasOneRowPerTest(format, columns);
  const std::string separator = options.Separator.value_or(FindSeparator(format, cells.Responses));
  return !isLong && HoldSeveral(format, cells.Responses, separator) ? cells : inLong;
}

}  // namespace

std::string FindSeparator(const TableFormat& format, const std::vector<ResponseColumn>& columns) {
  std::array<std::size_t, kSeparators.size()> cells{};
  std::size_t several = 0;
  for (const auto& row : format.Sample) {
    for (const ResponseColumn& column : columns) {
      const std::string_view text = SampleText(row, column.Column);
      bool hasSeveral = text.find(' ') != std::string_view::npos;
      for (std::size_t s = 0; s < kSeparators.size(); ++s) {
        if (text.find(kSeparators[s]) == std::string_view::npos) continue;
        ++cells[s];
        hasSeveral = true;
      }
      if (hasSeveral) ++several;
    }
  }
  const auto most = std::max_element(cells.begin(), cells.end());
  if (*most * 2 <= several) return " ";
  return std::string(kSeparators[static_cast<std::size_t>(most - cells.begin())]);
}

TableLayout FindTableLayout(const TableFormat& format, const TableColumns& columns, const TableOptions& options) {
  TableLayout layout = !options.Shape                       ? FoundLayout(format, columns, options)
                       : *options.Shape == TableShape::Wide ? WideLayout(format, true)
                       : *options.Shape == TableShape::Lists
                           ? ListsLayout(format, columns)
                           : TableLayout{TableShape::Long, ResponseColumns(columns, false), {}};
  const bool hasCells = !layout.Responses.empty() && layout.Responses.front().IsCell;
  if (hasCells) layout.Separator = options.Separator.value_or(FindSeparator(format, layout.Responses));
  return layout;
}

}  // namespace zova
