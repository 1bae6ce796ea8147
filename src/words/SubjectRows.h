// SPDX-License-Identifier: GPL-3.0-or-later
//
// Rows of a companion file that belong to subjects: kept sorted by subject in listing order, so that those of one are
// found by a search. A row has a field `Subject`.
#pragma once

#include <algorithm>
#include <iterator>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/files/EntryNames.h"

namespace zova {

/// The rows of one subject, which must be sorted.
template <typename Row>
std::span<const Row> RowsOf(const std::vector<Row>& rows, std::string_view subject) {
  const auto before = [](const Row& row, std::string_view id) { return ListsBefore(row.Subject, id); };
  const auto behind = [](std::string_view id, const Row& row) { return ListsBefore(id, row.Subject); };
  const auto first = std::lower_bound(rows.begin(), rows.end(), subject, before);
  return {first, std::upper_bound(first, rows.end(), subject, behind)};
}

/// Drops the rows of the subjects for which `isReplaced` holds, and adds `added`; the result is sorted by the rows'
/// StandsBefore.
template <typename Row, typename IsReplaced>
void ReplaceRows(std::vector<Row>& rows, IsReplaced&& isReplaced, std::vector<Row> added) {
  std::erase_if(rows, [&](const Row& row) { return isReplaced(row.Subject); });
  rows.insert(rows.end(), std::make_move_iterator(added.begin()), std::make_move_iterator(added.end()));
  std::stable_sort(rows.begin(), rows.end(),
                   [](const Row& left, const Row& right) { return StandsBefore(left, right); });
}

}  // namespace zova
