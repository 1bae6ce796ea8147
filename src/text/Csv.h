// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>

namespace zova {

/// Ends a line of a CSV file (RFC 4180).
inline constexpr std::string_view kCsvLineEnd = "\r\n";

/// Appends `text` as one field (RFC 4180): in quotes where it holds a comma, a quote or a line break, or blanks at its
/// ends that a reader might drop. The commas between fields are the caller's.
void AppendCsvField(std::string& line, std::string_view text);

}  // namespace zova
