// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <functional>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace zova {

/// A fault in a table, and the line, from 1, on which its row begins.
class CsvError : public std::runtime_error {
 public:
  CsvError(const std::string& text, std::size_t line) : std::runtime_error(text), m_line(line) {}
  [[nodiscard]] std::size_t Line() const noexcept { return m_line; }

 private:
  std::size_t m_line;
};

/// Reads the rows of a table (RFC 4180, with any delimiter) one by one, without allocating per field. A field that
/// begins with a quote runs to the closing one, over delimiters and line ends; two quotes are one. What stands between
/// the closing quote and the delimiter is kept, as are quotes inside other fields. A row ends with CR LF, LF or CR.
/// Blank lines are no rows. The mark of UTF-8 is dropped.
class CsvReader {
 public:
  /// Fills the buffer with the next bytes; returns how many, 0 at the end.
  using Source = std::function<std::size_t(char* buffer, std::size_t size)>;

  static constexpr std::size_t kMaxField = 1024UL * 1024;
  static constexpr std::size_t kMaxRow = 16 * kMaxField;

  explicit CsvReader(Source source, char delimiter = ',') : m_source(std::move(source)), m_delimiter(delimiter) {}

  /// Reads the next row; false at the end. Throws CsvError for a quote that is never closed, a NUL byte, a field above
  /// kMaxField bytes, or a row above kMaxRow.
  bool Next();
  /// The fields of the row read last, without their quotes. Valid until the next call of Next.
  [[nodiscard]] std::span<const std::string_view> Fields() const noexcept { return m_fields; }
  /// The line on which it begins.
  [[nodiscard]] std::size_t Line() const noexcept { return m_rowLine; }

 private:
  enum class State { FieldStart, Plain, Quoted, QuoteInQuoted, AfterQuote };
  struct Field {
    std::size_t Begin;
    std::size_t End;
    bool IsQuoted;
  };

  bool ReadRow();
  bool Fill();
  bool Take(char c);
  void EndField();
  void EndRow(char end);
  void Publish();
  // In the field that is being read.
  [[noreturn]] void Fail(const char* text, const char* advice = "") const {
    throw CsvError(text + (" (column " + std::to_string(m_bounds.size() + 1) + ")") + advice, m_rowLine);
  }

  Source m_source;
  char m_delimiter;
  std::string m_buffer;    // from the row's first byte on
  std::size_t m_next = 0;  // the next byte of the buffer
  std::size_t m_rowStart = 0;
  std::size_t m_line = 1;
  std::size_t m_rowLine = 1;
  State m_state = State::FieldStart;
  std::size_t m_fieldStart = 0;
  bool m_isQuoted = false;
  bool m_holdsNul = false;  // behind the buffer's last byte
  bool m_atEnd = false;
  bool m_begun = false;
  bool m_afterReturn = false;  // a line feed that follows belongs to it
  std::vector<Field> m_bounds;
  std::vector<std::string_view> m_fields;
};

/// A source that reads a text in memory, which must outlive it.
CsvReader::Source TextSource(std::string_view text);

}  // namespace zova
