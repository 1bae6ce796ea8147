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
  if (value < 0) out += '-';
  value = std::abs(value);
  char buffer[400];  // the largest double has 309 digits
  const auto scientific =
      std::to_chars(buffer, buffer + sizeof buffer, value, std::chars_format::scientific, kDigits - 1);
  const std::string_view text(buffer, static_cast<std::size_t>(scientific.ptr - buffer));
  const std::size_t mark = text.find('e');
  int exponent = 0;
  std::from_chars(buffer + mark + 2, scientific.ptr, exponent);
  if (text[mark + 1] == '-') exponent = -exponent;
  if (exponent >= kDigits) {
    out.append(buffer, std::to_chars(buffer, buffer + sizeof buffer, value, std::chars_format::fixed, 0).ptr);
    return;
  }
  // From here on only the point moves: to write the digits again would take as long.
  std::string_view digits = text.substr(2, mark - 2);
  if (exponent < 0) {
    out += "0.";
    out.append(static_cast<std::size_t>(-exponent - 1), '0');
  }
  out += text.front();
  if (exponent > 0) {
    out += digits.substr(0, static_cast<std::size_t>(exponent));
    digits.remove_prefix(static_cast<std::size_t>(exponent));
  }
  digits = digits.substr(0, digits.find_last_not_of('0') + 1);
  if (exponent >= 0 && !digits.empty()) out += '.';
  out += digits;
}

std::string PlainNumberText(std::optional<double> value) {
  std::string text;
  if (value) AppendPlainNumber(text, *value);
  return text;
}

}  // namespace zova
