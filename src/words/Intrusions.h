// SPDX-License-Identifier: GPL-3.0-or-later
//
// "AB Intrusions.csv": recalls that are no items of the list. Columns: subject, test, place, response, minute, rating.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "project/ProjectParameters.h"

namespace zova {

struct Intrusion {
  std::string Subject;
  int Test = 0;   ///< from 1
  int Place = 0;  ///< number of entries of the subject's list that stand before it, repeats and lures included
  std::string Response;
  int Minute = 0;  ///< from 1; 0 if missing
  int Rating = 0;  ///< from 1; 0 if missing

  bool operator==(const Intrusion&) const = default;
};

/// By subject in listing order, then test, then place; those of one place keep their order.
bool StandsBefore(const Intrusion& left, const Intrusion& right);

/// Sorted by StandsBefore (RowsOf, ReplaceRows). Throws CsvError.
std::vector<Intrusion> ParseIntrusions(std::string_view bytes, const ProjectParameters& project);
std::string FormatIntrusions(const std::vector<Intrusion>& intrusions);

}  // namespace zova
