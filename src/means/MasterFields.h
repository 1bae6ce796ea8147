// SPDX-License-Identifier: GPL-3.0-or-later
//
// Fields of the lines of all masters.
#pragma once

#include <optional>
#include <string_view>

namespace zova {

/// Digits with at most one point and an optional minus sign: ".285", "-12". nullopt for any other text, also with an
/// exponent.
std::optional<double> MasterNumber(std::string_view text);

}  // namespace zova
