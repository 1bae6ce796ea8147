// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "master/columns/MeasureFamilies.h"

namespace zova {

/// A measure column of a master.
struct MasterColumn {
  const MeasureFamily* Family = nullptr;
  ColumnPlace Place;
};

/// Appends the name as the header of a master has it: the family's stem and the place, "Net(Test 2)".
void AppendColumnName(std::string& out, const MasterColumn& column);

/// The column with this name; nullopt for a name that no column of a master has.
std::optional<MasterColumn> ColumnByName(std::string_view name);

/// A pattern of recall as letters, one per test: "NNC".
std::string PatternText(ColumnPlace place);

}  // namespace zova
