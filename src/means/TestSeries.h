// SPDX-License-Identifier: GPL-3.0-or-later
//
// Tests as a factor within subjects.
#pragma once

#include <optional>
#include <span>
#include <string_view>
#include <vector>

#include "means/MasterTable.h"

namespace zova {

/// The tests of one family among the measures of a request, at least two.
struct TestSeries {
  std::string_view Family;            ///< "Net"
  std::vector<std::size_t> Measures;  ///< of the table, by test
  std::vector<std::size_t> Places;    ///< of each among those of the request
};

std::vector<TestSeries> SeriesOfTests(const MasterTable& table, const std::vector<std::size_t>& measures);

/// A value as it counts in a mean: nullopt for one that could not be computed if `leavesOut`, or if it is one of a
/// further measure, which has no 0 in its place.
std::optional<double> CountedValue(const MasterTable& table, std::size_t row, std::size_t measure, bool leavesOut);

/// The values of the rows that have one on every test.
std::vector<std::vector<double>> CompleteRows(const MasterTable& table, std::span<const std::size_t> rows,
                                              const TestSeries& series, bool leavesOut);

}  // namespace zova
