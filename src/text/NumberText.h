// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

namespace zova {

/// The number texts of the data files, appended to `out`. Never an exponent for the values that the measures take,
/// no trailing zeros, no zero before the point (".285", "-.457"), never "-0"; no locale.
void AppendNumber(std::string& out, int value);
/// At most 7 significant digits.
void AppendNumber(std::string& out, float value);
/// At most 15 significant digits.
void AppendNumber(std::string& out, double value);

/// For other programs: the fewest digits that give the same single when they are read back, with a zero before the
/// point, never an exponent.
void AppendExactNumber(std::string& out, float value);
/// At most 15 significant digits, of which every double keeps its own; also with a zero before the point and without an
/// exponent.
void AppendPlainNumber(std::string& out, double value);

/// The same with one blank before a number that is not negative, as the rows of a master have it.
template <typename Number>
void AppendSpacedNumber(std::string& out, Number value) {
  if (!(value < Number{})) out += ' ';
  AppendNumber(out, value);
}

}  // namespace zova
