// SPDX-License-Identifier: GPL-3.0-or-later

#include "text/DecimalNumber.h"

#include <charconv>

#include "text/LeadingNumber.h"

#ifndef __cpp_lib_to_chars
#include <locale>
#include <sstream>
#include <string>
#endif

namespace zova {

namespace {

#ifdef __cpp_lib_to_chars

std::optional<double> Read(std::string_view text, Exponent exponent) {
  double value = 0;
  const char* const end = text.data() + text.size();
  const auto format = exponent == Exponent::None ? std::chars_format::fixed : std::chars_format::general;
  const auto result = std::from_chars(text.data(), end, value, format);
  if (result.ec != std::errc{} || result.ptr != end) return std::nullopt;
  return value;
}

#else

// Apple's library reads no real numbers with std::from_chars. A stream also takes hexadecimal digits.
std::optional<double> Read(std::string_view text, Exponent exponent) {
  const std::string_view allowed = exponent == Exponent::None ? "-.0123456789" : "-.0123456789+eE";
  if (text.find_first_not_of(allowed) != std::string_view::npos) return std::nullopt;
  std::istringstream stream{std::string(text)};
  stream.imbue(std::locale::classic());
  double value = 0;
  if (!(stream >> value) || stream.peek() != std::istringstream::traits_type::eof()) return std::nullopt;
  return value;
}

#endif

}  // namespace

std::optional<double> DecimalNumber(std::string_view text, Exponent exponent) {
  // std::from_chars also accepts "inf" and "nan"
  const char first = text.empty() ? ' ' : text[text.front() == '-' && text.size() > 1 ? 1 : 0];
  return first == '.' || IsDigit(first) ? Read(text, exponent) : std::nullopt;
}

}  // namespace zova
