// SPDX-License-Identifier: GPL-3.0-or-later
//
// The pieces that the lines of all masters are made of.
#pragma once

#include <optional>
#include <string_view>

namespace zova {

/// Digits with at most one point, and a minus sign: ".285", "-12". Nothing for all else, also for exponents.
std::optional<double> MasterNumber(std::string_view text);

}  // namespace zova
