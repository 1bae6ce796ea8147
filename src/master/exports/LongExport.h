// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "master/exports/ScoredSubject.h"
#include "master/groups/SerialPositions.h"
#include "project/ProjectParameters.h"

namespace zova {

/// The recall protocols for other programs: a tidy CSV (RFC 4180) in the shape that toolkits for free recall import.
/// Columns: subject, list (the test), trial_type ("study" or "recall"), position, item; category in a categorised
/// project; lure (1 or 0) where lures are told apart; minute and rating where they are kept; then the variables with
/// the names of their levels.
///
/// Per subject and test there is a row for each studied item (no lure), by serial position, then one for each recalled
/// item, by its place in the recall as it was typed. Repeats and lures stand; a blank has no row, but keeps its place.
/// Minute and rating are empty where there is none, and on study rows.
class LongExport {
 public:
  /// `order` has the items' serial positions, each once; without one they are the item numbers.
  LongExport(const ProjectParameters& project, const std::optional<SerialOrder>& order);

  /// Without its line end.
  [[nodiscard]] std::string Header() const;
  /// Replaces `rows` by the subject's lines, the last without its line end.
  void Build(const ScoredSubject& subject, std::string& rows);

 private:
  void AppendItem(std::string& row, int item) const;
  void AddRecalls(const RecallLists& lists, int test, std::string& rows) const;

  const ProjectParameters& m_project;
  bool m_hasLures;
  // A row is put together of texts that stay the same: there are millions of them.
  std::vector<std::string> m_items;   // by item: item, category, lure
  std::vector<std::string> m_places;  // by position - 1: what stands before the item in the row of a recall
  std::vector<std::string> m_study;   // a row of a studied item between test and levels
  std::string m_opening;              // subject and test, with which a row begins
  std::string m_end;                  // the levels and the line's end
};

}  // namespace zova
