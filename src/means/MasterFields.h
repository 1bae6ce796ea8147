// SPDX-License-Identifier: GPL-3.0-or-later
//
// The pieces that the lines of all masters are made of.
#pragma once

#include <array>
#include <optional>
#include <string_view>

namespace zova {

/// Digits with at most one point, and a minus sign: ".285", "-12". Nothing for all else, also for exponents.
std::optional<double> MasterNumber(std::string_view text);

/// The numbers (from 1, without leading zeros) that stand in `text` where `form` has a %, at most two; all else has to
/// be the same. The second is 0 where there is one. "(Test 2 Min 3)" has 2 and 3 in the form "(Test % Min %)".
std::optional<std::array<int, 2>> NumbersIn(std::string_view text, std::string_view form);

}  // namespace zova
