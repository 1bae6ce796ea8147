// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>

namespace zova {

/// What two spellings of a word have in common: the letters and digits, case-folded, in Unicode's composed
/// compatibility form (NFKC). "yo-yo", "YOYO" and "yo yo" have one key, "yoyo". Marks of a letter that have no composed
/// form stay with it. "" for a text without letters and digits. `text` is UTF-8.
std::string WordKey(std::string_view text);

/// A key without the marks of its letters: "creme" for "crème".
std::string WithoutAccents(std::string_view key);

std::u32string KeyPoints(std::string_view key);
bool HasDigits(std::u32string_view points);

}  // namespace zova
