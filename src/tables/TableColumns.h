// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "project/ProjectParameters.h"
#include "tables/TableFormat.h"

namespace zova {

enum class ColumnRole { Subject, Test, Position, Item, Word, Minute, Rating, TrialType, Category };
inline constexpr std::size_t kColumnRoleCount = 9;
inline constexpr int kNoColumn = -1;

/// The role's word in --columns.
std::string_view RoleName(ColumnRole role) noexcept;

/// A remark on a column, and the table's column that it is about ("" for none).
struct ColumnNote {
  std::string Column;
  std::string Text;

  bool operator==(const ColumnNote&) const = default;
};

/// Which columns of a table have which roles. Columns count from 0.
struct TableColumns {
  std::array<int, kColumnRoleCount> Roles{};
  std::array<int, kMaxVariables> Variables{};  ///< of the project's variables
  std::vector<ColumnNote> Notes;               ///< columns that would have fitted, too
  std::vector<ColumnNote> Faults;              ///< choices that name no column or no role

  [[nodiscard]] int Of(ColumnRole role) const noexcept { return Roles[static_cast<std::size_t>(role)]; }
  [[nodiscard]] bool Has(ColumnRole role) const noexcept { return Of(role) != kNoColumn; }
};

/// Assigns columns by `choices`, else by their names, without regard to case and " ._-". Of two that fit, the one whose
/// name stands first in the role's list of names is taken.
TableColumns FindTableColumns(const TableFormat& format, const std::vector<ColumnChoice>& choices,
                              const ProjectParameters& project);

/// The column named so, or numbered so ("#3"); kNoColumn if there is none.
int ColumnNamed(const TableFormat& format, std::string_view name);

constexpr bool IsJoint(char c) noexcept { return c == ' ' || c == '.' || c == '_' || c == '-'; }

/// The variable of the project that is named so, from 0; kNoColumn if there is none.
int VariableNamed(std::string_view name, const ProjectParameters& project);

/// A name as it is compared with others: lower case, without " ._-" and without what a variable's name cannot hold.
std::string PlainName(std::string_view name);
/// True when a column of this plain name could have the role.
bool IsNameOfRole(std::string_view plainName, ColumnRole role);

}  // namespace zova
