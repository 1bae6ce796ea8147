// SPDX-License-Identifier: GPL-3.0-or-later

#include "means/MasterFields.h"

#include <charconv>

namespace zova {

std::optional<double> MasterNumber(std::string_view text) {
  // std::from_chars also accepts "inf" and "nan"
  const char first = text.empty() ? ' ' : text[text.front() == '-' && text.size() > 1 ? 1 : 0];
  if (first != '.' && (first < '0' || first > '9')) return std::nullopt;
  double value = 0;
  const char* const end = text.data() + text.size();
  const auto result = std::from_chars(text.data(), end, value, std::chars_format::fixed);
  if (result.ec != std::errc{} || result.ptr != end) return std::nullopt;
  return value;
}

}  // namespace zova
