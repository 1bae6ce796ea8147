// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string_view>

namespace zova {

/// The one sentence that a right-click on a control answers with; "" for a name that has none. Members of an array
/// (`lblVarLevel3`) share that of the array.
std::string_view QuickHelp(std::string_view controlName) noexcept;

}  // namespace zova
