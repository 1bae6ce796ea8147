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

/// Appends the name in a master's header: the family's stem and the place, "Net(Test 2)".
void AppendColumnName(std::string& out, const MasterColumn& column);

/// nullopt for a name that is not that of a measure column.
std::optional<MasterColumn> ColumnByName(std::string_view name);

/// A recall pattern as one letter per test: "NNC".
std::string PatternText(ColumnPlace place);

}  // namespace zova
