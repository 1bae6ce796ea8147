// SPDX-License-Identifier: GPL-3.0-or-later
//
// Sections "[Name]", in them lines "key=value", in UTF-8. In names every byte but letters, digits, "_", "-" and "." is
// "%" and two hexadecimal digits. A value is quoted when it holds ; , or =, or when a blank stands at its ends. A
// backslash begins an escape: \\ \" \n \r \t, or \x and hexadecimal digits.

#include "text/IniText.h"

#include <algorithm>
#include <array>
#include <charconv>

#include "text/LeadingNumber.h"
#include "text/TypedText.h"

namespace zova {

namespace {

constexpr std::string_view kHexDigits = "0123456789ABCDEFabcdef";
constexpr std::string_view kUpperHexDigits = kHexDigits.substr(0, 16);
// What stands behind the backslash, and what is meant.
constexpr std::array<std::pair<char, char>, 5> kEscapes = {
    {{'\\', '\\'}, {'"', '"'}, {'n', '\n'}, {'r', '\r'}, {'t', '\t'}}};

std::string EscapedName(std::string_view name) {
  std::string escaped;
  for (const char c : name) {
    const bool isPlain =
        (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || IsDigit(c) || c == '_' || c == '-' || c == '.';
    if (isPlain) {
      escaped += c;
    } else {
      const auto byte = static_cast<unsigned char>(c);
      escaped += {'%', kUpperHexDigits[byte / 16], kUpperHexDigits[byte % 16]};
    }
  }
  return escaped;
}

std::string EscapedValue(std::string_view value) {
  std::string escaped;
  bool afterHex = false;  // a digit behind such an escape would be taken for a part of it
  for (const char c : value) {
    const auto* named = std::find_if(kEscapes.begin(), kEscapes.end(), [c](const auto& e) { return e.second == c; });
    const auto byte = static_cast<unsigned char>(c);
    const bool inHex = byte < 0x20 || (afterHex && kHexDigits.find(c) != std::string_view::npos);
    afterHex = named == kEscapes.end() && inHex;
    if (named != kEscapes.end()) {
      escaped += {'\\', named->first};
    } else if (inHex) {
      escaped += {'\\', 'x', kUpperHexDigits[byte / 16], kUpperHexDigits[byte % 16]};
    } else {
      escaped += c;
    }
  }
  const bool needsQuotes =
      value.find_first_of(";,=") != std::string_view::npos || value.starts_with(' ') || value.ends_with(' ');
  return needsQuotes ? '"' + escaped + '"' : escaped;
}

// Takes the escape at the start of `text`, behind the backslash, off it.
char TakeEscape(std::string_view& text) {
  const char c = text.front();
  text.remove_prefix(1);
  if (c == 'x') {
    const std::size_t digits = std::min(text.find_first_not_of(kHexDigits), text.size());
    unsigned code = 0;
    std::from_chars(text.data(), text.data() + digits, code, 16);
    text.remove_prefix(digits);
    return static_cast<char>(code);
  }
  const auto* named = std::find_if(kEscapes.begin(), kEscapes.end(), [c](const auto& e) { return e.first == c; });
  return named == kEscapes.end() ? c : named->second;
}

std::string PlainValue(std::string_view text) {
  std::string value;
  bool isQuoted = false;
  text = WithoutOuterBlanks(text);
  while (!text.empty()) {
    const char c = text.front();
    text.remove_prefix(1);
    if (c == '"') {
      isQuoted = !isQuoted;
    } else if (c == ';' && !isQuoted) {
      break;  // a comment
    } else if (c == '\\' && !text.empty()) {
      value += TakeEscape(text);
    } else {
      value += c;
    }
  }
  return value;
}

struct KeyPlace {
  bool HasSection = false;
  bool HasKey = false;
  std::size_t Begin = 0;  // of the key's line, or where it would stand
  std::size_t End = 0;    // behind its line end
  std::string_view Value;
};

KeyPlace FindKey(std::string_view content, std::string_view section, std::string_view key) {
  const std::string heading = '[' + EscapedName(section) + ']';
  const std::string name = EscapedName(key);
  KeyPlace place;
  bool isInside = false;
  for (std::size_t begin = 0; begin < content.size();) {
    const std::size_t lineEnd = std::min(content.find('\n', begin), content.size());
    const std::size_t next = std::min(lineEnd + 1, content.size());
    std::string_view line = content.substr(begin, lineEnd - begin);
    if (line.ends_with('\r')) line.remove_suffix(1);
    line = WithoutOuterBlanks(line);
    if (line.starts_with('[')) isInside = line == heading;
    if (isInside && !line.empty()) {
      place.HasSection = true;
      place.Begin = place.End = next;
      const std::size_t equals = line.find('=');
      if (equals != std::string_view::npos && WithoutOuterBlanks(line.substr(0, equals)) == name) {
        return {true, true, begin, next, line.substr(equals + 1)};
      }
    }
    begin = next;
  }
  if (!place.HasSection) place.Begin = place.End = content.size();
  return place;
}

}  // namespace

std::optional<std::string> IniValue(std::string_view content, std::string_view section, std::string_view key) {
  const KeyPlace place = FindKey(content, section, key);
  return place.HasKey ? std::optional(PlainValue(place.Value)) : std::nullopt;
}

std::string WithIniValue(std::string_view content, std::string_view section, std::string_view key,
                         const std::optional<std::string>& value) {
  const KeyPlace place = FindKey(content, section, key);
  std::string changed(content.substr(0, place.Begin));
  if (value) {
    if (!changed.empty() && changed.back() != '\n') changed += '\n';
    if (!place.HasSection) changed += (changed.empty() ? "[" : "\n[") + EscapedName(section) + "]\n";
    changed += EscapedName(key) + '=' + EscapedValue(*value) + '\n';
  }
  changed += content.substr(place.End);
  return changed;
}

}  // namespace zova
