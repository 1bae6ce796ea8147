// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>

namespace zova {

/// Writes text records: bare numbers, texts in double quotes without escaping, fields separated by commas, lines ended
/// by CR LF.
class RecordWriter {
 public:
  RecordWriter& Number(int value);
  RecordWriter& Text(std::string_view text);
  RecordWriter& Empty();
  RecordWriter& EndLine();

  [[nodiscard]] const std::string& Content() const noexcept { return m_content; }
  [[nodiscard]] std::string Release() noexcept { return std::move(m_content); }
  void Reserve(std::size_t size) { m_content.reserve(size); }

 private:
  void Separate();

  std::string m_content;
  bool m_lineStarted = false;
};

}  // namespace zova
