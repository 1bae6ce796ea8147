// SPDX-License-Identifier: GPL-3.0-or-later

#include "text/CsvReader.h"

#include <algorithm>
#include <cstring>
#include <utility>

#include "text/Encoding.h"

namespace zova {

namespace {

constexpr std::size_t kPiece = 256UL * 1024;
constexpr const char* kLongRow = "A row is longer than 16 MiB";

// The content of a quoted field, written over its beginning. Returns its length.
std::size_t Unquote(char* text, std::size_t length) {
  std::size_t out = 0;
  bool quoted = true;  // `text` begins behind the opening quote
  for (std::size_t in = 0; in < length; ++in) {
    if (quoted && text[in] == '"') {
      if (in + 1 >= length || text[in + 1] != '"') {
        quoted = false;
        continue;
      }
      ++in;
    }
    text[out++] = text[in];
  }
  return out;
}

}  // namespace

// Moves the row that is being read to the buffer's beginning and appends the next bytes.
bool CsvReader::Fill() {
  if (m_holdsNul) Fail("The bytes are no text: one of them is NUL", "; save the file as CSV UTF-8");
  if (m_atEnd) return false;
  m_buffer.erase(0, m_rowStart);
  m_next -= m_rowStart;
  m_fieldStart -= m_rowStart;
  for (Field& field : m_bounds) field.Begin -= m_rowStart, field.End -= m_rowStart;
  m_rowStart = 0;
  const std::size_t kept = m_buffer.size();
  m_buffer.resize(kept + kPiece);
  const std::size_t got = m_source(m_buffer.data() + kept, kPiece);
  m_buffer.resize(kept + got);
  m_atEnd = got == 0;
  const char* const nul = static_cast<const char*>(std::memchr(m_buffer.data() + kept, '\0', got));
  if (nul != nullptr) {  // reported where it stands
    m_buffer.resize(static_cast<std::size_t>(nul - m_buffer.data()));
    m_holdsNul = true;
    m_atEnd = true;
    return true;
  }
  return !m_atEnd;
}

void CsvReader::EndField() {
  const std::size_t begin = m_fieldStart + (m_isQuoted ? 1 : 0);
  if (m_next - begin > kMaxField) Fail("A field is longer than 1 MiB");
  m_bounds.push_back({begin, m_next, m_isQuoted});
  m_fieldStart = m_next + 1;
  m_isQuoted = false;
  m_state = State::FieldStart;
}

void CsvReader::EndRow(char end) {
  EndField();
  if (m_next - m_rowStart > kMaxRow) throw CsvError(kLongRow, m_rowLine);
  ++m_line;
  m_afterReturn = end == '\r';
}

// True when `c`, at m_next, ends the row.
bool CsvReader::Take(char c) {
  if (m_state == State::Quoted) {
    if (c == '"') m_state = State::QuoteInQuoted;
    if (c == '\n') ++m_line;
    return false;
  }
  if (c == '"') {
    if (m_state == State::FieldStart) m_isQuoted = true;
    if (m_state == State::FieldStart || m_state == State::QuoteInQuoted) {
      m_state = State::Quoted;
      return false;
    }
  }
  if (c == m_delimiter) {
    EndField();
    return false;
  }
  if (c == '\n' || c == '\r') {
    EndRow(c);
    return true;
  }
  if (m_state == State::FieldStart) m_state = State::Plain;
  if (m_state == State::QuoteInQuoted) m_state = State::AfterQuote;
  return false;
}

bool CsvReader::ReadRow() {
  for (;; ++m_next) {
    if (m_next == m_buffer.size()) {
      if (m_next - m_rowStart > kMaxRow) throw CsvError(kLongRow, m_rowLine);
      if (!Fill()) break;
      if (m_next == m_buffer.size()) Fill();
    }
    const char c = m_buffer[m_next];
    // Most bytes change nothing.
    if (c != '"' && c != m_delimiter && c != '\n' && c != '\r' &&
        (m_state == State::Plain || m_state == State::Quoted || m_state == State::AfterQuote)) {
      continue;
    }
    if (Take(c)) {
      ++m_next;
      return true;
    }
  }
  if (m_state == State::Quoted) Fail("A quote is never closed");
  if (m_next == m_rowStart) return false;
  EndField();
  return true;
}

void CsvReader::Publish() {
  m_fields.clear();
  for (const Field& field : m_bounds) {
    char* const text = m_buffer.data() + field.Begin;
    const std::size_t length = field.End - field.Begin;
    m_fields.emplace_back(text, field.IsQuoted ? Unquote(text, length) : length);
  }
}

bool CsvReader::Next() {
  if (!std::exchange(m_begun, true)) {
    while (m_buffer.size() < kUtf8Mark.size() && Fill()) continue;
    if (std::string_view(m_buffer).starts_with(kUtf8Mark)) m_next = kUtf8Mark.size();
  }
  for (;;) {
    m_rowStart = m_fieldStart = m_next;
    m_bounds.clear();
    m_state = State::FieldStart;
    if (m_next == m_buffer.size() && !Fill()) return false;
    m_rowLine = m_line;
    if (std::exchange(m_afterReturn, false) && m_buffer[m_next] == '\n') {
      ++m_next;
      continue;
    }
    if (!ReadRow()) return false;
    const bool isBlank = m_bounds.size() == 1 && !m_bounds[0].IsQuoted && m_bounds[0].Begin == m_bounds[0].End;
    if (isBlank) continue;
    Publish();
    return true;
  }
}

CsvReader::Source TextSource(std::string_view text) {
  return [text](char* buffer, std::size_t size) mutable {
    const std::size_t taken = std::min(size, text.size());
    std::memcpy(buffer, text.data(), taken);
    text.remove_prefix(taken);
    return taken;
  };
}

}  // namespace zova
