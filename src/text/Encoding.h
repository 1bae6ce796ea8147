// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace zova {

bool IsValidUtf8(std::string_view text) noexcept;

/// Windows-1252 as UTF-8; the five bytes without a character become the control characters of their number.
std::string FromWindows1252(std::string_view bytes);

/// Upper case of ASCII and Latin-1 letters, in every locale alike. All else, also bytes that are not UTF-8, stays.
std::string UpperCase(std::string_view text);

bool EqualsIgnoringCase(std::string_view left, std::string_view right);
bool BeginsIgnoringCase(std::string_view text, std::string_view prefix);
bool EndsIgnoringCase(std::string_view text, std::string_view suffix);

/// Number of characters (code points), the unit of every length limit.
std::size_t CharacterCount(std::string_view text) noexcept;
/// The first `count` characters.
std::string_view FirstCharacters(std::string_view text, std::size_t count) noexcept;
/// `text` without its last character; "" stays.
std::string_view WithoutLastCharacter(std::string_view text) noexcept;

/// What the bytes of a data file hold for a reader: without mark, up to the end-of-file byte (1A), and in UTF-8
/// (bytes that are no UTF-8 are taken as Windows-1252).
class DataText {
 public:
  /// `bytes` must outlive this and stay as they are, unless they had to be converted.
  explicit DataText(std::string_view bytes);
  [[nodiscard]] std::string_view Content() const noexcept { return m_content; }
  DataText(const DataText&) = delete;
  DataText& operator=(const DataText&) = delete;

 private:
  std::string m_converted;
  std::string_view m_content;
};

/// False for bytes that no data file of ours or of a lab's older programs holds: a NUL, or the mark of UTF-16.
/// (Read on, they would become zeros that are later saved over a subject.)
bool LooksLikeDataText(std::string_view bytes) noexcept;

/// `bytes` without mark and without what follows the end-of-file byte.
std::string_view WithoutMarks(std::string_view bytes) noexcept;

}  // namespace zova
