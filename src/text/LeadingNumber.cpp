// SPDX-License-Identifier: GPL-3.0-or-later

#include "text/LeadingNumber.h"

#include "text/TypedText.h"

namespace zova {

namespace {

struct NumberParts {
  bool Negative = false;
  std::string_view Whole;     // digits before the point
  std::string_view Fraction;  // digits after it
  std::string_view Rest;      // what follows the number
};

std::size_t CountDigits(std::string_view text) noexcept {
  std::size_t count = 0;
  while (count < text.size() && IsDigit(text[count])) ++count;
  return count;
}

std::string_view WithoutLeadingBlanks(std::string_view text) noexcept {
  while (!text.empty() && IsBlank(text.front())) text.remove_prefix(1);
  return text;
}

NumberParts Split(std::string_view text) noexcept {
  NumberParts parts;
  text = WithoutLeadingBlanks(text);
  if (!text.empty() && (text.front() == '-' || text.front() == '+')) {
    parts.Negative = text.front() == '-';
    text.remove_prefix(1);
  }
  const std::size_t whole = CountDigits(text);
  parts.Whole = text.substr(0, whole);
  std::size_t length = whole;
  if (whole < text.size() && text[whole] == '.') {
    parts.Fraction = text.substr(whole + 1, CountDigits(text.substr(whole + 1)));
    length += 1 + parts.Fraction.size();
  }
  parts.Rest = text.substr(length);
  return parts;
}

bool HasDigits(const NumberParts& parts) noexcept { return !parts.Whole.empty() || !parts.Fraction.empty(); }

// Compares the fraction with one half by its digits: a conversion to binary could break a tie.
bool RoundsUp(std::string_view fraction, bool odd) noexcept {
  if (fraction.empty() || fraction.front() < '5') return false;
  if (fraction.front() > '5') return true;
  return odd || fraction.find_first_not_of('0', 1) != std::string_view::npos;
}

}  // namespace

bool HasLeadingNumber(std::string_view text) noexcept { return HasDigits(Split(text)); }

bool IsWholeNumberText(std::string_view text) noexcept {
  const NumberParts parts = Split(text);
  return HasDigits(parts) && WithoutLeadingBlanks(parts.Rest).empty();
}

std::optional<std::int16_t> LeadingInteger16(std::string_view text) {
  const NumberParts parts = Split(text);
  long value = 0;
  for (const char digit : parts.Whole) {
    value = value * 10 + (digit - '0');
    if (value > 100000) return std::nullopt;
  }
  if (RoundsUp(parts.Fraction, value % 2 != 0)) ++value;
  if (parts.Negative) value = -value;
  if (value < INT16_MIN || value > INT16_MAX) return std::nullopt;
  return static_cast<std::int16_t>(value);
}

bool IsDigits(std::string_view text) noexcept { return !text.empty() && CountDigits(text) == text.size(); }

std::optional<std::int16_t> DigitsInteger16(std::string_view text) {
  return IsDigits(text) ? LeadingInteger16(text) : std::nullopt;
}

}  // namespace zova
