// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace zova {

bool IsValidUtf8(std::string_view text) noexcept;

/// Converts to UTF-8. The five undefined bytes become the control characters of the same number.
std::string FromWindows1252(std::string_view bytes);

/// Upper case of ASCII and Latin-1 letters, in every locale. Everything else is unchanged, also bytes that are not
/// UTF-8.
std::string UpperCase(std::string_view text);
/// Upper case of all letters, for the screen. Names of files and fields are compared by UpperCase.
std::string InCapitals(std::string_view text);

bool EqualsIgnoringCase(std::string_view left, std::string_view right);
bool BeginsIgnoringCase(std::string_view text, std::string_view prefix);
bool EndsIgnoringCase(std::string_view text, std::string_view suffix);

/// In code points, the unit of every length limit.
std::size_t CharacterCount(std::string_view text) noexcept;
std::string_view FirstCharacters(std::string_view text, std::size_t count) noexcept;
std::string_view WithoutLastCharacter(std::string_view text) noexcept;

/// The text of a data file's bytes: without byte-order mark, up to the end-of-file byte (1A), in UTF-8. Bytes that are
/// not UTF-8 are read as Windows-1252.
class DataText {
 public:
  /// `bytes` must outlive this object.
  explicit DataText(std::string_view bytes);
  [[nodiscard]] std::string_view Content() const noexcept { return m_content; }
  DataText(const DataText&) = delete;
  DataText& operator=(const DataText&) = delete;

 private:
  std::string m_converted;
  std::string_view m_content;
};

/// False for bytes that no data file holds, of this program or a lab's older ones: a NUL or the byte-order mark of
/// UTF-16. They would be read as zeros and later saved over a subject.
bool LooksLikeDataText(std::string_view bytes) noexcept;

/// The byte-order mark of UTF-8.
inline constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";

/// `bytes` without that mark and without what follows the end-of-file byte.
std::string_view WithoutMarks(std::string_view bytes) noexcept;

}  // namespace zova
