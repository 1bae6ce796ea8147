// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "subjects/table/SubjectRow.h"

namespace zova {

/// The subjects of a project as a table: a column for the identifier, the state, each variable's level, the recalls of
/// each test, failed checks, the second entry, and when it was last saved. Lines count from 0: the rows that the filter
/// leaves, sorted.
class SubjectTable {
 public:
  static constexpr std::size_t kIdColumn = 0;

  SubjectTable() = default;
  SubjectTable(const ProjectParameters& project, std::vector<SubjectRow> rows);

  [[nodiscard]] const std::vector<std::string>& Headings() const noexcept { return m_headings; }
  [[nodiscard]] std::size_t RowCount() const noexcept { return m_rows.size(); }
  [[nodiscard]] std::size_t LineCount() const noexcept { return m_lines.size(); }
  [[nodiscard]] const SubjectRow& At(std::size_t line) const { return m_rows[m_lines[line]]; }
  [[nodiscard]] const std::string& Text(std::size_t line, std::size_t column) const {
    return m_texts[m_lines[line]][column];
  }
  [[nodiscard]] bool IsNumber(std::size_t column) const;
  /// The identifier that a text is, or else the first one that it begins; case makes no difference.
  [[nodiscard]] std::optional<std::size_t> LineOfId(std::string_view typed) const;
  [[nodiscard]] std::optional<std::size_t> LineOf(std::string_view file, bool isRemoved) const;

  /// Conditions, separated by ";", that all hold: a text that stands in any cell of the row, or, after the beginning of
  /// a column's name and a colon, in the cell of that column. Case makes no difference.
  void SetFilter(std::string_view filter);
  [[nodiscard]] const std::string& Filter() const noexcept { return m_filter; }
  /// By the column; again by the same one: in the opposite order. Equal rows keep their order.
  void SortBy(std::size_t column);
  void SortBy(std::size_t column, bool isDescending);
  [[nodiscard]] std::size_t SortColumn() const noexcept { return m_sortColumn; }
  [[nodiscard]] bool IsDescending() const noexcept { return m_isDescending; }

  /// The heading and the lines; cells separated by tabs, every line ended by LF.
  [[nodiscard]] std::string TabText() const;
  /// The same as RFC 4180 has it.
  [[nodiscard]] std::string CsvText() const;

 private:
  struct Condition {
    std::optional<std::size_t> Column;
    std::string Text;  // in upper case
  };
  [[nodiscard]] std::vector<Condition> Conditions() const;
  [[nodiscard]] std::vector<std::string> TextsOf(const SubjectRow& row, const ProjectParameters& project) const;
  [[nodiscard]] std::int64_t NumberAt(std::size_t row, std::size_t column) const;
  void Arrange();

  std::vector<std::string> m_headings;
  std::size_t m_firstTest = 0;  // its column
  std::size_t m_tests = 0;
  std::vector<SubjectRow> m_rows;
  std::vector<std::vector<std::string>> m_texts;  // by row and column
  std::vector<std::string> m_searched;            // by row: all its cells in upper case
  std::vector<std::size_t> m_order;               // rows, sorted
  std::vector<std::size_t> m_lines;               // rows, sorted and filtered
  std::string m_filter;
  std::size_t m_sortColumn = kIdColumn;
  bool m_isDescending = false;
};

}  // namespace zova
