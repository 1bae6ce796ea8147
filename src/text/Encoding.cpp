// SPDX-License-Identifier: GPL-3.0-or-later

#include "text/Encoding.h"

#include <array>
#include <cstdint>
#include <cstring>

#include "text/Capitals.h"

namespace zova {

namespace {

constexpr char32_t kBadSequence = 0xFFFFFFFF;
constexpr char kEndOfFile = '\x1A';

// Bytes 80 to 9F of Windows-1252.
constexpr std::array<char16_t, 32> kWindows1252High = {0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                                       0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,
                                                       0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                                       0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

std::uint8_t Byte(std::string_view text, std::size_t index) noexcept { return static_cast<std::uint8_t>(text[index]); }

// The length of the sequence that the byte starts; 0 if it starts none.
std::size_t SequenceLength(std::uint8_t lead) noexcept {
  if (lead < 0x80) return 1;
  if (lead >= 0xC2 && lead <= 0xDF) return 2;
  if (lead >= 0xE0 && lead <= 0xEF) return 3;
  if (lead >= 0xF0 && lead <= 0xF4) return 4;
  return 0;
}

// The code point at `index`. Sets `length` to its number of bytes (1 for an invalid byte).
char32_t Decode(std::string_view text, std::size_t index, std::size_t& length) noexcept {
  const std::uint8_t lead = Byte(text, index);
  const std::size_t promised = SequenceLength(lead);
  length = 1;
  if (promised == 1) return lead;
  if (promised == 0 || promised > text.size() - index) return kBadSequence;
  char32_t point = lead & (0xFFU >> (promised + 1));
  for (std::size_t i = 1; i < promised; ++i) {
    const std::uint8_t next = Byte(text, index + i);
    if ((next & 0xC0U) != 0x80U) return kBadSequence;
    point = (point << 6U) | (next & 0x3FU);
  }
  const bool overlong = (promised == 3 && point < 0x800) || (promised == 4 && point < 0x10000);
  if (overlong || point > 0x10FFFF || (point >= 0xD800 && point <= 0xDFFF)) return kBadSequence;
  length = promised;
  return point;
}

void AppendUtf8(std::string& out, char32_t point) {
  if (point < 0x80) {
    out += static_cast<char>(point);
  } else if (point < 0x800) {
    out += static_cast<char>(0xC0U | (point >> 6U));
    out += static_cast<char>(0x80U | (point & 0x3FU));
  } else {
    out += static_cast<char>(0xE0U | (point >> 12U));
    out += static_cast<char>(0x80U | ((point >> 6U) & 0x3FU));
    out += static_cast<char>(0x80U | (point & 0x3FU));
  }
}

// The small Latin-1 letters are A0 (agrave) to BE (thorn) after C3, except the division sign; sharp s (C3 9F) and y
// with diaeresis (C3 BF) have no capital in Latin-1.
bool IsSmallLatin1(std::uint8_t second) noexcept { return second >= 0xA0 && second <= 0xBE && second != 0xB7; }

bool IsAscii(std::string_view text) noexcept {
  std::size_t index = 0;
  for (; index + 8 <= text.size(); index += 8) {
    std::uint64_t block = 0;
    std::memcpy(&block, text.data() + index, 8);
    if ((block & 0x8080808080808080ULL) != 0) return false;
  }
  for (; index < text.size(); ++index) {
    if (Byte(text, index) >= 0x80) return false;
  }
  return true;
}

}  // namespace

bool IsValidUtf8(std::string_view text) noexcept {
  if (IsAscii(text)) return true;
  std::size_t length = 1;
  for (std::size_t index = 0; index < text.size(); index += length) {
    if (Decode(text, index, length) == kBadSequence) return false;
  }
  return true;
}

std::string FromWindows1252(std::string_view bytes) {
  std::string out;
  out.reserve(bytes.size() + bytes.size() / 8);
  for (std::size_t index = 0; index < bytes.size(); ++index) {
    const std::uint8_t byte = Byte(bytes, index);
    AppendUtf8(out, byte >= 0x80 && byte < 0xA0 ? kWindows1252High[byte - 0x80U] : byte);
  }
  return out;
}

std::string UpperCase(std::string_view text) {
  std::string out(text);
  for (std::size_t i = 0; i < out.size(); ++i) {
    const std::uint8_t byte = Byte(out, i);
    if (byte >= 'a' && byte <= 'z') {
      out[i] = static_cast<char>(byte - 0x20);
    } else if (byte == 0xC3 && i + 1 < out.size() && IsSmallLatin1(Byte(out, i + 1))) {
      ++i;
      out[i] = static_cast<char>(Byte(out, i) - 0x20);
    }
  }
  return out;
}

std::string InCapitals(std::string_view text) {
  std::string out;
  std::size_t length = 1;
  for (std::size_t index = 0; index < text.size(); index += length) {
    const char32_t point = Decode(text, index, length);
    const char32_t capital = CapitalOf(point);
    capital == point ? void(out += text.substr(index, length)) : AppendUtf8(out, capital);
  }
  return out;
}

bool EqualsIgnoringCase(std::string_view left, std::string_view right) {
  return left.size() == right.size() && UpperCase(left) == UpperCase(right);
}

bool BeginsIgnoringCase(std::string_view text, std::string_view prefix) {
  return text.size() >= prefix.size() && EqualsIgnoringCase(text.substr(0, prefix.size()), prefix);
}

bool EndsIgnoringCase(std::string_view text, std::string_view suffix) {
  return text.size() >= suffix.size() && EqualsIgnoringCase(text.substr(text.size() - suffix.size()), suffix);
}

std::size_t CharacterCount(std::string_view text) noexcept {
  std::size_t count = 0;
  std::size_t length = 1;
  for (std::size_t index = 0; index < text.size(); index += length) {
    Decode(text, index, length);
    ++count;
  }
  return count;
}

std::string_view FirstCharacters(std::string_view text, std::size_t count) noexcept {
  std::size_t index = 0;
  std::size_t length = 1;
  for (; count > 0 && index < text.size(); --count) {
    Decode(text, index, length);
    index += length;
  }
  return text.substr(0, index);
}

std::string_view WithoutLastCharacter(std::string_view text) noexcept {
  const std::size_t count = CharacterCount(text);
  return count == 0 ? text : FirstCharacters(text, count - 1);
}

std::string_view WithoutMarks(std::string_view bytes) noexcept {
  if (bytes.substr(0, kUtf8Mark.size()) == kUtf8Mark) bytes.remove_prefix(kUtf8Mark.size());
  return bytes.substr(0, bytes.find(kEndOfFile));
}

DataText::DataText(std::string_view bytes) : m_content(WithoutMarks(bytes)) {
  if (IsValidUtf8(m_content)) return;
  m_converted = FromWindows1252(m_content);
  m_content = m_converted;
}

bool LooksLikeDataText(std::string_view bytes) noexcept {
  if (bytes.find('\0') != std::string_view::npos) return false;
  if (IsAscii(bytes)) return true;
  return bytes.find("\xFF\xFE") == std::string_view::npos && bytes.find("\xFE\xFF") == std::string_view::npos;
}

}  // namespace zova
