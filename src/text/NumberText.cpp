// SPDX-License-Identifier: GPL-3.0-or-later

#include "text/NumberText.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <string_view>

namespace zova {

namespace {

template <typename Real>
void AppendReal(std::string& out, Real value, int digits) {
  if (value == Real{}) {  // also -0
    out += '0';
    return;
  }
  char buffer[64];
  const auto result = std::to_chars(buffer, buffer + sizeof buffer, value, std::chars_format::general, digits);
  std::string_view text(buffer, static_cast<std::size_t>(result.ptr - buffer));
  if (text.front() == '-') {
    out += '-';
    text.remove_prefix(1);
  }
  if (text.size() > 1 && text[0] == '0' && text[1] == '.') text.remove_prefix(1);
  out += text;
}

// Fast path for ratios, which are cut to thousandths: if the value is the single nearest to a whole number of
// thousandths below 1000, its seven significant digits are those of that number, and an integer is written several
// times faster. False for all other values.
bool AppendThousandths(std::string& out, float value) {
  if (!(std::abs(value) < 1000.0F)) return false;
  const int thousandths = static_cast<int>(std::lround(value * 1000.0F));
  if (thousandths == 0 || static_cast<float>(thousandths) / 1000.0F != value) return false;
  if (thousandths < 0) out += '-';
  const int size = std::abs(thousandths);
  if (size >= 1000) AppendNumber(out, size / 1000);
  const int fraction = size % 1000;
  if (fraction == 0) return true;
  const char text[] = {'.', static_cast<char>('0' + fraction / 100), static_cast<char>('0' + fraction / 10 % 10),
                       static_cast<char>('0' + fraction % 10)};
  out.append(text, fraction % 100 == 0 ? 2 : fraction % 10 == 0 ? 3 : 4);
  return true;
}

}  // namespace

void AppendNumber(std::string& out, int value) {
  char buffer[16];
  const auto result = std::to_chars(buffer, buffer + sizeof buffer, value);
  out.append(buffer, result.ptr);
}

void AppendNumber(std::string& out, float value) {
  if (!AppendThousandths(out, value)) AppendReal(out, value, 7);
}

void AppendNumber(std::string& out, double value) { AppendReal(out, value, 15); }

void AppendExactNumber(std::string& out, float value) {
  if (value == 0.0F) {  // also -0
    out += '0';
    return;
  }
  char buffer[64];  // 2^-149, the longest, takes 48
  const auto result = std::to_chars(buffer, buffer + sizeof buffer, value, std::chars_format::fixed);
  out.append(buffer, result.ptr);
}

void AppendPlainNumber(std::string& out, double value) {
  constexpr int kDigits = 15;
  if (value == 0) {  // also -0
    out += '0';
    return;
  }
  char buffer[400];  // the smallest double's 15 digits end at the 338th place
  const auto scientific =
      std::to_chars(buffer, buffer + sizeof buffer, value, std::chars_format::scientific, kDigits - 1);
  const std::string_view digits(buffer, static_cast<std::size_t>(scientific.ptr - buffer));
  const bool isSmall = digits.find("e-") != std::string_view::npos;
  int exponent = 0;
  std::from_chars(buffer + digits.find('e') + 2, scientific.ptr, exponent);
  const int places = isSmall ? kDigits - 1 + exponent : std::max(0, kDigits - 1 - exponent);
  const auto fixed = std::to_chars(buffer, buffer + sizeof buffer, value, std::chars_format::fixed, places);
  std::string_view text(buffer, static_cast<std::size_t>(fixed.ptr - buffer));
  if (places > 0) text = text.substr(0, text.find_last_not_of('0') + 1);
  if (text.ends_with('.')) text.remove_suffix(1);
  out += text;
}

std::string PlainNumberText(std::optional<double> value) {
  std::string text;
  if (value) AppendPlainNumber(text, *value);
  return text;
}

}  // namespace zova
