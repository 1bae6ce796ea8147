// SPDX-License-Identifier: GPL-3.0-or-later

#include "words/WordKey.h"

#include <utf8proc.h>

#include <algorithm>
#include <cstdlib>
#include <memory>

#include "text/LeadingNumber.h"

namespace zova {

namespace {

struct Freed {
  void operator()(utf8proc_uint8_t* text) const noexcept { std::free(text); }  // NOLINT: utf8proc allocates so
};

std::string Mapped(std::string_view text, int options) {
  utf8proc_uint8_t* mapped = nullptr;
  const auto* bytes = reinterpret_cast<const utf8proc_uint8_t*>(text.data());
  const utf8proc_ssize_t size =
      utf8proc_map(bytes, static_cast<utf8proc_ssize_t>(text.size()), &mapped, static_cast<utf8proc_option_t>(options));
  const std::unique_ptr<utf8proc_uint8_t, Freed> owner(mapped);
  if (size < 0) return std::string(text);  // not UTF-8
  return {reinterpret_cast<const char*>(mapped), static_cast<std::size_t>(size)};
}

bool IsAscii(std::string_view text) {
  return std::all_of(text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

bool IsKept(utf8proc_int32_t point) {
  switch (utf8proc_category(point)) {
    case UTF8PROC_CATEGORY_LU:
    case UTF8PROC_CATEGORY_LL:
    case UTF8PROC_CATEGORY_LT:
    case UTF8PROC_CATEGORY_LM:
    case UTF8PROC_CATEGORY_LO:
    case UTF8PROC_CATEGORY_MN:
    case UTF8PROC_CATEGORY_MC:
    case UTF8PROC_CATEGORY_ND:
    case UTF8PROC_CATEGORY_NL:
    case UTF8PROC_CATEGORY_NO: return true;
    default: return false;
  }
}

// Calls visit(code point, its bytes) up to the first byte that is no UTF-8.
template <typename Visit>
void WalkPoints(std::string_view text, Visit&& visit) {
  while (!text.empty()) {
    utf8proc_int32_t point = 0;
    const auto* bytes = reinterpret_cast<const utf8proc_uint8_t*>(text.data());
    const utf8proc_ssize_t length = utf8proc_iterate(bytes, static_cast<utf8proc_ssize_t>(text.size()), &point);
    if (length <= 0) return;
    visit(point, text.substr(0, static_cast<std::size_t>(length)));
    text.remove_prefix(static_cast<std::size_t>(length));
  }
}

void AppendAsciiKey(std::string& key, std::string_view text) {
  for (const char c : text) {
    if (c >= 'A' && c <= 'Z') {
      key += static_cast<char>(c - 'A' + 'a');
    } else if ((c >= 'a' && c <= 'z') || IsDigit(c)) {
      key += c;
    }
  }
}

}  // namespace

std::string WordKey(std::string_view text) {
  std::string key;
  key.reserve(text.size());
  if (IsAscii(text)) {
    AppendAsciiKey(key, text);
    return key;
  }
  const std::string folded = Mapped(text, UTF8PROC_STABLE | UTF8PROC_COMPAT | UTF8PROC_COMPOSE | UTF8PROC_CASEFOLD);
  WalkPoints(folded, [&](utf8proc_int32_t point, std::string_view bytes) {
    if (IsKept(point)) key += bytes;
  });
  return key;
}

std::string WithoutAccents(std::string_view key) {
  if (IsAscii(key)) return std::string(key);
  return Mapped(key, UTF8PROC_STABLE | UTF8PROC_COMPOSE | UTF8PROC_STRIPMARK);
}

std::u32string KeyPoints(std::string_view key) {
  std::u32string points;
  points.reserve(key.size());
  WalkPoints(key, [&](utf8proc_int32_t point, std::string_view) { points += static_cast<char32_t>(point); });
  return points;
}

bool HasDigits(std::u32string_view points) {
  return std::any_of(points.begin(), points.end(), [](char32_t point) {
    if (point < 0x80) return point >= U'0' && point <= U'9';
    const utf8proc_category_t category = utf8proc_category(static_cast<utf8proc_int32_t>(point));
    return category == UTF8PROC_CATEGORY_ND || category == UTF8PROC_CATEGORY_NL || category == UTF8PROC_CATEGORY_NO;
  });
}

}  // namespace zova
