// SPDX-License-Identifier: GPL-3.0-or-later
//
// "AB Subjects.csv": what the subjects were called in the tables from which they were imported. Columns: subject,
// original.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace zova {

struct OriginalId {
  std::string Subject;
  std::string Original;

  bool operator==(const OriginalId&) const = default;
};

/// By subject in listing order.
bool StandsBefore(const OriginalId& left, const OriginalId& right);

/// In listing order of the subjects, each once, each original once. Throws CsvError.
std::vector<OriginalId> ParseOriginalIds(std::string_view bytes);
std::string FormatOriginalIds(const std::vector<OriginalId>& ids);

}  // namespace zova
