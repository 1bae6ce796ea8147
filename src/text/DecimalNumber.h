// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string_view>

namespace zova {

enum class Exponent { None, Optional };

/// The number that the whole text is: an optional minus sign, digits with at most one decimal point, and an exponent
/// where there may be one ("1.5e3"). Rounded to the nearest double, in no locale. nullopt for any other text, such as
/// "inf", and for a number out of the range of a double.
std::optional<double> DecimalNumber(std::string_view text, Exponent exponent);

}  // namespace zova
