// SPDX-License-Identifier: GPL-3.0-or-later
//
// Texts with one or two numbers in a fixed form, such as "Test 2 Min 3". A form has a % for each number.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>

namespace zova {

/// Appends `form` with its first and second % replaced by the numbers.
void AppendNumbered(std::string& out, std::string_view form, int first, int second = 0);

/// The numbers (from 1, without leading zeros) in `text` where `form` has a %, at most two; the second is 0 if there is
/// only one. nullopt if `text` does not match. "(Test 2 Min 3)" in the form "(Test % Min %)" gives 2 and 3.
std::optional<std::array<int, 2>> NumbersIn(std::string_view text, std::string_view form);

}  // namespace zova
