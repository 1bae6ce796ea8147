// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "master/exports/ScoredSubject.h"
#include "master/groups/SerialPositions.h"
#include "project/ProjectParameters.h"

namespace zova {

/// The recall protocols for other programs: a tidy CSV (RFC 4180) in the layout that toolkits for free recall import.
/// Columns: subject, list (the test), trial_type ("study" or "recall"), position, item; category in a categorised
/// project; lure (1 or 0) in a false-memory project; minute and rating if recorded; then the variables with level
/// names.
///
/// For each subject and test, one row per studied item (not lures) by serial position, then one row per recalled item
/// by its position as typed. Repeats and lures are included; a blank has no row but counts as a position. Minute and
/// rating are empty if missing, and on study rows.
class LongExport {
 public:
  /// `order` has the items' serial positions, each once; without it they are the item numbers.
  LongExport(const ProjectParameters& project, const std::optional<SerialOrder>& order);

  /// Without its line end.
  [[nodiscard]] std::string Header() const;
  /// Replaces `rows` by the subject's lines, without the last line end.
  void Build(const ScoredSubject& subject, std::string& rows);

 private:
  void AppendItem(std::string& row, int item) const;
  void AddRecalls(const RecallLists& lists, int test, std::string& rows) const;

  const ProjectParameters& m_project;
  bool m_hasLures;
  // Rows are built from cached texts: there are millions of them.
  std::vector<std::string> m_items;   // by item: item, category, lure
  std::vector<std::string> m_places;  // by position - 1: a recall row up to the item
  std::vector<std::string> m_study;   // study rows between test and levels
  std::string m_opening;              // the beginning of a row: subject and test
  std::string m_end;                  // the levels and the line end
};

}  // namespace zova
