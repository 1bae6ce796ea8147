// SPDX-License-Identifier: GPL-3.0-or-later
//
// The grammar of every data file:
//
//   field     = blanks ( quoted rest | plain ) delimiter
//   quoted    = '"' any characters but '"' and line ends [ '"' ]     (unclosed: to the end of the line)
//   rest      = any characters but ',' and line ends                 (dropped)
//   plain     = any characters but ',' and line ends, without the blanks on its right
//   delimiter = ',' | CR LF | LF | CR | end of the text
//   blanks    = ( ' ' | TAB )*
//
// CR LF is one delimiter. A blank line is one empty field. The last field needs no line end, but after a delimiter
// another field exists only if at least one character follows.

#include "text/FieldReader.h"

#include <algorithm>

#include "text/Encoding.h"
#include "text/LeadingNumber.h"
#include "text/TypedText.h"

namespace zova {

namespace {

bool IsLineEnd(char c) noexcept { return c == '\r' || c == '\n'; }

const char* FaultText(FieldFault fault) {
  switch (fault) {
    case FieldFault::EndOfData: return "input past end of file";
    case FieldFault::MoreData: return "the file goes on where it should end";
    case FieldFault::NulByte: return "the file holds a NUL byte";
    case FieldFault::Utf16: return "the file is in UTF-16, not in UTF-8 or Windows-1252";
    case FieldFault::BadIdentifier: return "no subject can have this identifier";
    case FieldFault::NotNumeric: return "number expected";
    case FieldFault::OutOfRange16: return "number beyond the 16-bit range";
    case FieldFault::NegativeCount: return "number too small";
    case FieldFault::TooMany: return "number too large";
  }
  return "";
}

std::size_t LineOf(std::string_view text, std::size_t position) noexcept {
  std::size_t line = 1;
  for (std::size_t i = 0; i < position && i < text.size(); ++i) {
    if (text[i] == '\n' || (text[i] == '\r' && (i + 1 >= text.size() || text[i + 1] != '\n'))) ++line;
  }
  return line;
}

}  // namespace

FieldError::FieldError(FieldFault fault, std::size_t line)
    : std::runtime_error(FaultText(fault)), m_fault(fault), m_line(line) {}

void RequireDataText(std::string_view bytes) {
  if (LooksLikeDataText(bytes)) return;
  const bool isUtf16 = bytes.starts_with("\xFF\xFE") || bytes.starts_with("\xFE\xFF");
  const std::size_t nul = isUtf16 ? std::string_view::npos : bytes.find('\0');
  if (nul != std::string_view::npos) throw FieldError(FieldFault::NulByte, LineOf(bytes, nul));
  throw FieldError(FieldFault::Utf16, LineOf(bytes, std::min(bytes.find("\xFF\xFE"), bytes.find("\xFE\xFF"))));
}

void FieldReader::Fail(FieldFault fault, std::size_t position) const {
  throw FieldError(fault, LineOf(m_text, position));
}

// The position is at the delimiter or at the end of the text.
void FieldReader::CloseField() {
  m_lineEnded = true;
  if (m_position >= m_text.size()) return;
  const char delimiter = m_text[m_position++];
  if (delimiter == ',') {
    m_lineEnded = false;
  } else if (delimiter == '\r' && m_position < m_text.size() && m_text[m_position] == '\n') {
    ++m_position;
  }
}

std::string_view FieldReader::Next() {
  const std::size_t size = m_text.size();
  m_fieldStart = m_position;
  if (m_position >= size) Fail(FieldFault::EndOfData, size);
  while (m_position < size && IsBlank(m_text[m_position])) ++m_position;
  std::size_t begin = m_position;
  std::size_t end = begin;
  if (m_position < size && m_text[m_position] == '"') {
    begin = ++m_position;
    while (m_position < size && m_text[m_position] != '"' && !IsLineEnd(m_text[m_position])) ++m_position;
    end = m_position;
    while (m_position < size && m_text[m_position] != ',' && !IsLineEnd(m_text[m_position])) ++m_position;
  } else {
    while (m_position < size && m_text[m_position] != ',' && !IsLineEnd(m_text[m_position])) ++m_position;
    end = m_position;
    while (end > begin && IsBlank(m_text[end - 1])) --end;
  }
  CloseField();
  return m_text.substr(begin, end - begin);
}

std::int16_t FieldReader::NextNumber() {
  const std::string_view field = Next();
  const auto number = LeadingInteger16(field);
  if (!number) Fail(FieldFault::OutOfRange16, m_fieldStart);
  if (*number == 0 && !field.empty() && !HasLeadingNumber(field)) m_hasReadText = true;
  return *number;
}

std::int16_t FieldReader::NextStrictNumber() {
  const std::string_view field = Next();
  if (!field.empty() && !HasLeadingNumber(field)) Fail(FieldFault::NotNumeric, m_fieldStart);
  const auto number = LeadingInteger16(field);
  if (!number) Fail(FieldFault::OutOfRange16, m_fieldStart);
  return *number;
}

std::int16_t FieldReader::NextCount(int limit, int least) {
  const std::int16_t count = NextStrictNumber();
  if (count < least) Fail(FieldFault::NegativeCount, m_fieldStart);
  if (count > limit) Fail(FieldFault::TooMany, m_fieldStart);
  return count;
}

void FieldReader::SkipLine() {
  if (m_position >= m_text.size()) Fail(FieldFault::EndOfData, m_text.size());
  while (m_position < m_text.size() && !IsLineEnd(m_text[m_position])) ++m_position;
  CloseField();
}

bool FieldReader::OnlyBlankLinesFollow() const {
  FieldReader rest = *this;
  while (!rest.AtEnd()) {
    if (!rest.Next().empty() || !rest.AtLineStart()) return false;
  }
  return true;
}

}  // namespace zova
