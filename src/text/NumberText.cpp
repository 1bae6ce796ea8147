// SPDX-License-Identifier: GPL-3.0-or-later

#include "text/NumberText.h"

#include <charconv>
#include <cmath>
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
  // The shortest text that names the value is the rounded one wherever it has no more digits than that may have (at
  // most `digits` and a point and a zero), and several times faster to make; only below a thousandth the two can
  // differ.
  auto result = std::to_chars(buffer, buffer + sizeof buffer, value, std::chars_format::fixed);
  const auto longest = digits + (value < Real{} ? 1 : 0);
  if (result.ec != std::errc() || result.ptr - buffer > longest || std::abs(value) < Real(0.001)) {
    result = std::to_chars(buffer, buffer + sizeof buffer, value, std::chars_format::general, digits);
  }
  std::string_view text(buffer, static_cast<std::size_t>(result.ptr - buffer));
  if (text.front() == '-') {
    out += '-';
    text.remove_prefix(1);
  }
  if (text.size() > 1 && text[0] == '0' && text[1] == '.') text.remove_prefix(1);
  out += text;
}

}  // namespace

void AppendNumber(std::string& out, int value) {
  char buffer[16];
  const auto result = std::to_chars(buffer, buffer + sizeof buffer, value);
  out.append(buffer, result.ptr);
}

void AppendNumber(std::string& out, float value) { AppendReal(out, value, 7); }
void AppendNumber(std::string& out, double value) { AppendReal(out, value, 15); }

}  // namespace zova
