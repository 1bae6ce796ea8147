// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string_view>

namespace zova {

/// The sentence shown for a right-click on the control; "" without one. Members of an array (`lblVarLevel3`) share it.
std::string_view QuickHelp(std::string_view controlName) noexcept;

}  // namespace zova
