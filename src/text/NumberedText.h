// SPDX-License-Identifier: GPL-3.0-or-later
//
// Texts that are the same but for one or two numbers, such as "Test 2 Min 3". A form has a % for each number.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>

namespace zova {

/// Appends `form` with the numbers in place of its first and second %.
void AppendNumbered(std::string& out, std::string_view form, int first, int second = 0);

/// The numbers (from 1, without leading zeros) that stand in `text` where `form` has a %, at most two; all else has to
/// be the same. The second is 0 where there is one. "(Test 2 Min 3)" has 2 and 3 in the form "(Test % Min %)".
std::optional<std::array<int, 2>> NumbersIn(std::string_view text, std::string_view form);

}  // namespace zova
