// SPDX-License-Identifier: GPL-3.0-or-later

#include "text/NumberedText.h"

#include <algorithm>
#include <charconv>

#include "text/NumberText.h"

namespace zova {

namespace {

constexpr std::size_t kMaxDigits = 5;  // more than in any column's number

// Removes a number, from 1, from the beginning of `text`; 0 when there is none.
int ParseNumber(std::string_view& text) {
  int number = 0;
  if (text.empty() || text.front() == '0' || text.front() == '-') return 0;
  const auto result = std::from_chars(text.data(), text.data() + std::min(text.size(), kMaxDigits), number);
  text.remove_prefix(static_cast<std::size_t>(result.ptr - text.data()));
  return number;
}

}  // namespace

void AppendNumbered(std::string& out, std::string_view form, int first, int second) {
  for (const char c : form) {
    if (c == '%') {
      AppendNumber(out, first);
      first = second;
    } else {
      out += c;
    }
  }
}

std::optional<std::array<int, 2>> NumbersIn(std::string_view text, std::string_view form) {
  std::array<int, 2> numbers{};
  std::size_t found = 0;
  for (const char c : form) {
    if (c == '%') {
      numbers[found] = ParseNumber(text);
      if (numbers[found++] == 0) return std::nullopt;
    } else {
      if (text.empty() || text.front() != c) return std::nullopt;
      text.remove_prefix(1);
    }
  }
  if (!text.empty()) return std::nullopt;
  return numbers;
}

}  // namespace zova
