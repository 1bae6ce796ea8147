// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace zova {

// A leading decimal number: blanks and tabs, a sign, digits, at most one point, digits. No exponent, no hexadecimal, no
// decimal comma, no locale: "12abc" is 12, "1e3" is 1.

constexpr bool IsDigit(char c) noexcept { return c >= '0' && c <= '9'; }

/// True when `text` begins with such a number (at least one digit).
bool HasLeadingNumber(std::string_view text) noexcept;

/// True when the text is such a number and nothing else but blanks around it.
bool IsWholeNumberText(std::string_view text) noexcept;

/// The leading number rounded to an integer, halves to even; 0 without one; nullopt outside -32,768 to 32,767.
std::optional<std::int16_t> LeadingInteger16(std::string_view text);

/// True for one or more digits and nothing else.
bool IsDigits(std::string_view text) noexcept;

/// The number of a text for which IsDigits holds; nullopt for any other text and above 32,767.
std::optional<std::int16_t> DigitsInteger16(std::string_view text);

}  // namespace zova
