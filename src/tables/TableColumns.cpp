// SPDX-License-Identifier: GPL-3.0-or-later

#include "tables/TableColumns.h"

#include <algorithm>
#include <optional>

#include "text/LeadingNumber.h"
#include "text/TypedText.h"

namespace zova {

namespace {

struct RoleNames {
  std::string_view Role;
  std::array<std::string_view, 8> Names;  // plain names, the first that fits is taken
};

constexpr std::array<RoleNames, kColumnRoleCount> kRoles = {{
    {"subject", {"subject", "sub", "subid", "subjectid", "participant", "participantid", "id", "username"}},
    {"test", {"test", "list", "trial", "listnumber"}},
    {"position", {"position", "outputposition", "serialposition", "order"}},
    {"item", {"item", "itemnumber"}},
    {"word", {"word", "response", "recall", "recalled"}},
    {"minute", {"minute"}},
    {"rating", {"rating"}},
    {"trialtype", {"trialtype"}},
    {"category", {"category"}},
}};

const RoleNames& NamesOf(ColumnRole role) noexcept { return kRoles[static_cast<std::size_t>(role)]; }

std::optional<std::size_t> RoleOf(std::string_view plainName) {
  for (std::size_t role = 0; role < kRoles.size(); ++role) {
    if (kRoles[role].Role == plainName) return role;
  }
  return std::nullopt;
}

void FindRole(std::size_t role, const std::vector<std::string>& plain, const TableFormat& format,
              std::vector<bool>& isTaken, TableColumns& columns) {
  for (const std::string_view name : kRoles[role].Names) {
    if (name.empty()) return;
    for (std::size_t i = 0; i < plain.size(); ++i) {
      if (plain[i] != name || isTaken[i]) continue;
      int& column = columns.Roles[role];
      if (column != kNoColumn) {
        columns.Notes.push_back({format.Names[i], "could be the " + std::string(kRoles[role].Role) + " as well; '" +
                                                      format.Names[static_cast<std::size_t>(column)] + "' is taken"});
        continue;
      }
      column = static_cast<int>(i);
      isTaken[i] = true;
    }
  }
}

}  // namespace

std::string_view RoleName(ColumnRole role) noexcept { return NamesOf(role).Role; }

std::string PlainName(std::string_view name) {
  std::string plain;
  for (const char c : name) {
    if (IsJoint(c) || c == ',' || BreaksField(c)) continue;
    plain += c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
  }
  return plain;
}

bool IsNameOfRole(std::string_view plainName, ColumnRole role) {
  const auto& names = NamesOf(role).Names;
  return !plainName.empty() && std::find(names.begin(), names.end(), plainName) != names.end();
}

int ColumnNamed(const TableFormat& format, std::string_view name) {
  const auto exact = std::find(format.Names.begin(), format.Names.end(), name);
  if (exact != format.Names.end()) return static_cast<int>(exact - format.Names.begin());
  if (name.starts_with('#')) {
    const auto number = DigitsInteger16(name.substr(1));
    return number && *number >= 1 && static_cast<std::size_t>(*number) <= format.Names.size() ? *number - 1 : kNoColumn;
  }
  const std::string plain = PlainName(name);
  const auto found = std::find_if(format.Names.begin(), format.Names.end(),
                                  [&](const std::string& other) { return PlainName(other) == plain; });
  return found == format.Names.end() ? kNoColumn : static_cast<int>(found - format.Names.begin());
}

int VariableNamed(std::string_view name, const ProjectParameters& project) {
  for (int v = 0; v < project.VariableCount; ++v) {
    if (PlainName(project.VariableNames.at(static_cast<std::size_t>(v))) == PlainName(name)) return v;
  }
  return kNoColumn;
}

TableColumns FindTableColumns(const TableFormat& format, const std::vector<ColumnChoice>& choices,
                              const ProjectParameters& project) {
  TableColumns columns;
  columns.Roles.fill(kNoColumn);
  columns.Variables.fill(kNoColumn);
  std::vector<bool> isTaken(format.Names.size());
  std::array<bool, kColumnRoleCount> hasChoice{};
  std::array<bool, kMaxVariables> isChosen{};
  for (const ColumnChoice& choice : choices) {
    const int column = ColumnNamed(format, choice.Column);
    const auto role = RoleOf(PlainName(choice.Role));
    const int variable = VariableNamed(choice.Role, project);
    if (role) hasChoice[*role] = true;
    if (variable != kNoColumn) isChosen[static_cast<std::size_t>(variable)] = true;
    if (choice.Column.empty() && (role || variable != kNoColumn)) continue;
    if (column == kNoColumn) {
      columns.Faults.push_back({choice.Column, "There is no column '" + choice.Column + "' in the table"});
    } else if (role) {
      columns.Roles[*role] = column;
      isTaken[static_cast<std::size_t>(column)] = true;
    } else if (variable != kNoColumn) {
      columns.Variables[static_cast<std::size_t>(variable)] = column;
    } else {
      columns.Faults.push_back(
          {choice.Column, "'" + choice.Role + "' is neither a role nor a variable of the project"});
    }
  }
  std::vector<std::string> plain;
  plain.reserve(format.Names.size());
  for (const std::string& name : format.Names) plain.push_back(PlainName(WithoutOuterBlanks(name)));
  for (std::size_t role = 0; role < kRoles.size(); ++role) {
    if (!hasChoice[role]) FindRole(role, plain, format, isTaken, columns);
  }
  for (std::size_t v = 0; v < static_cast<std::size_t>(project.VariableCount); ++v) {
    if (!isChosen[v]) columns.Variables[v] = ColumnNamed(format, project.VariableNames[v]);
  }
  return columns;
}

}  // namespace zova
