// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace zova {

// A leading decimal number: blanks and tabs, a sign, digits, at most one point, digits. No exponent, no hexadecimal, no
// decimal comma, never the locale: "12abc" is 12, "1e3" is 1.

/// True when `text` begins with such a number (at least one digit).
bool HasLeadingNumber(std::string_view text) noexcept;

/// True when such a number is the whole text, blanks around it aside.
bool IsWholeNumberText(std::string_view text) noexcept;

/// The leading number rounded to an integer, halves to even, 0 when there is none; nothing when it is beyond -32,768
/// to 32,767.
std::optional<std::int16_t> LeadingInteger16(std::string_view text);

/// True when `text` is digits alone, at least one.
bool IsDigits(std::string_view text) noexcept;

/// The number of a text of digits alone; nothing for any other text, nor beyond 32,767.
std::optional<std::int16_t> DigitsInteger16(std::string_view text);

}  // namespace zova
