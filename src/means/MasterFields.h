// SPDX-License-Identifier: GPL-3.0-or-later
//
// The pieces that the lines of all masters are made of.
#pragma once

#include <optional>
#include <string_view>
#include <vector>

namespace zova {

/// The fields of a line one after the other, without the blanks around them. An empty line has one, like any other.
class LineFields {
 public:
  explicit LineFields(std::string_view line) : m_rest(line) {}
  std::optional<std::string_view> Next();

 private:
  std::string_view m_rest;
  bool m_ended = false;
};

/// All fields of a line.
std::vector<std::string_view> FieldsOf(std::string_view line);

/// Takes the next line off `text`. Its end (CR LF, LF, or that of the text) belongs to none.
std::string_view TakeLine(std::string_view& text);

/// Digits with at most one point, and a minus sign: ".285", "-12". Nothing for all else, also for exponents.
std::optional<double> MasterNumber(std::string_view text);

}  // namespace zova
