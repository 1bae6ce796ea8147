// SPDX-License-Identifier: GPL-3.0-or-later

#include "text/Records.h"

#include "text/NumberText.h"

namespace zova {

void RecordWriter::Separate() {
  if (m_lineStarted) m_content += ',';
  m_lineStarted = true;
}

RecordWriter& RecordWriter::Number(int value) {
  Separate();
  AppendNumber(m_content, value);
  return *this;
}

RecordWriter& RecordWriter::Text(std::string_view text) {
  Separate();
  m_content += '"';
  m_content += text;
  m_content += '"';
  return *this;
}

RecordWriter& RecordWriter::Empty() {
  Separate();
  return *this;
}

RecordWriter& RecordWriter::EndLine() {
  m_content += "\r\n";
  m_lineStarted = false;
  return *this;
}

}  // namespace zova
