// SPDX-License-Identifier: GPL-3.0-or-later
//
// "AB Study Order.csv": the order in which a subject studied the items before a test. Columns: subject, test, position,
// item; every true item of the test once, at the positions from 1 to their number.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "project/ProjectParameters.h"

namespace zova {

/// The study order of one subject and test.
struct StudyOrder {
  std::string Subject;
  int Test = 0;                         ///< from 1
  std::vector<std::int16_t> Positions;  ///< of item i at index i - 1, from 1; 0 for a lure

  bool operator==(const StudyOrder&) const = default;
};

/// By subject in listing order, then test.
bool StandsBefore(const StudyOrder& left, const StudyOrder& right);

/// Sorted by StandsBefore (RowsOf, ReplaceRows). Throws CsvError.
std::vector<StudyOrder> ParseStudyOrders(std::string_view bytes, const ProjectParameters& project);
std::string FormatStudyOrders(const std::vector<StudyOrder>& orders);

}  // namespace zova
