// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>

namespace zova {

/// Append a number as the data files write it: no exponent for any value of a measure, no trailing zeros, no zero
/// before the point (".285", "-.457"), no "-0", no locale.
void AppendNumber(std::string& out, int value);
/// At most 7 significant digits.
void AppendNumber(std::string& out, float value);
/// At most 15 significant digits.
void AppendNumber(std::string& out, double value);

/// For other programs: the fewest digits that read back as the same single, with a zero before the point, no exponent.
void AppendExactNumber(std::string& out, float value);
/// At most 15 significant digits, of which every double keeps its own; also with a zero before the point and without an
/// exponent.
void AppendPlainNumber(std::string& out, double value);
/// That number's text; empty for nullopt.
std::string PlainNumberText(std::optional<double> value);

/// AppendNumber with one blank before a number that is not negative, as in the rows of a master.
template <typename Number>
void AppendSpacedNumber(std::string& out, Number value) {
  if (!(value < Number{})) out += ' ';
  AppendNumber(out, value);
}

}  // namespace zova
