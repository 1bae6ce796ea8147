// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <stdexcept>
#include <string_view>

namespace zova {

/// Why a text cannot be read as fields.
enum class FieldFault {
  EndOfData,      ///< a field was asked for and no character was left
  MoreData,       ///< fields follow where the text must end
  NulByte,        ///< the bytes are no text: one of them is NUL
  Utf16,          ///< the text is UTF-16, or has its mark
  BadIdentifier,  ///< a subject's identifier that cannot be one
  NotNumeric,     ///< a numeric field holds text without a leading number
  OutOfRange16,   ///< a number beyond the 16-bit signed range
  NegativeCount,  ///< a number below its lower limit
  TooMany         ///< a number above its upper limit
};

/// A fault in a text and its line, from 1.
class FieldError : public std::runtime_error {
 public:
  FieldError(FieldFault fault, std::size_t line);
  [[nodiscard]] FieldFault Fault() const noexcept { return m_fault; }
  [[nodiscard]] std::size_t Line() const noexcept { return m_line; }

 private:
  FieldFault m_fault;
  std::size_t m_line;
};

/// Throws FieldError (NulByte, Utf16) for bytes that no data file of ours or of a lab's older programs holds. Read on,
/// they would become zeros that are later saved over a subject.
void RequireDataText(std::string_view bytes);

/// Reads the comma-separated fields of a text as one stream, without allocating: lines do not count, except that
/// each line end closes a field. The text must outlive the reader, and what it hands out points into it.
class FieldReader {
 public:
  /// `text` as `DataText` provides it.
  explicit FieldReader(std::string_view text) noexcept : m_text(text) {}

  /// The next field without its quotes. Throws FieldError (EndOfData).
  std::string_view Next();
  void Skip() { (void)Next(); }

  /// The next field's leading number, rounded to an integer (halves to even); no leading number is 0 (HasReadText).
  /// Throws FieldError (EndOfData, OutOfRange16).
  std::int16_t NextNumber();
  /// Like NextNumber, but throws FieldError (NotNumeric) for a field without a number that is not empty.
  std::int16_t NextStrictNumber();
  /// Like NextStrictNumber, from `least` to `limit`. Throws FieldError (NegativeCount, TooMany).
  std::int16_t NextCount(int limit = INT16_MAX, int least = 0);

  /// Skips the rest of the line, without regard to quotes. Throws FieldError (EndOfData) at the end of the text.
  void SkipLine();
  /// True when nothing but blank lines, which are no lines, is left.
  [[nodiscard]] bool OnlyBlankLinesFollow() const;
  /// Throws FieldError with the line of the field read last.
  [[noreturn]] void Refuse(FieldFault fault) const { Fail(fault, m_fieldStart); }

  /// Reads a line of exactly `Count` numbers of one to four digits each, ended by CR LF, as this program writes them.
  /// Otherwise returns false and reads nothing; use NextNumber. Several times faster than NextNumber on nearly every
  /// line of a lab's files.
  template <std::size_t Count>
  bool ReadPlainLine(std::array<std::int16_t, Count>& numbers) noexcept {
    constexpr std::size_t kLongest = Count * 5 + 1;
    if (m_text.size() - m_position < kLongest) return false;
    const char* next = m_text.data() + m_position;
    for (std::size_t i = 0; i < Count; ++i) {
      unsigned value = Digit(*next);
      if (value > 9) return false;
      const char* const longest = next + 4;
      for (++next; next != longest && Digit(*next) <= 9; ++next) value = value * 10 + Digit(*next);
      if (*next != (i + 1 < Count ? ',' : '\r')) return false;
      ++next;
      numbers[i] = static_cast<std::int16_t>(value);
    }
    if (*next != '\n') return false;
    m_position = static_cast<std::size_t>(next + 1 - m_text.data());
    m_lineEnded = true;
    return true;
  }
  /// True when the last field was closed by a line end or by the end of the text.
  [[nodiscard]] bool AtLineStart() const noexcept { return m_lineEnded; }
  [[nodiscard]] bool AtEnd() const noexcept { return m_position >= m_text.size(); }
  /// True when NextNumber made 0 of a field that holds other text.
  [[nodiscard]] bool HasReadText() const noexcept { return m_hasReadText; }

 private:
  static unsigned Digit(char c) noexcept { return static_cast<unsigned char>(c) - static_cast<unsigned>('0'); }
  [[noreturn]] void Fail(FieldFault fault, std::size_t position) const;
  void CloseField();

  std::string_view m_text;
  std::size_t m_position = 0;
  std::size_t m_fieldStart = 0;
  bool m_lineEnded = true;
  bool m_hasReadText = false;
};

}  // namespace zova
