// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "master/ScoredSubject.h"
#include "master/SerialPositions.h"
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
  void AppendItem(std::string& row, const char* trialType, int position, int item) const;
  void AddRow(std::string& rows, int test, std::string_view middle) const;
  void AddRecalls(const RecallLists& lists, int test, std::string& rows);

  const ProjectParameters& m_project;
  bool m_hasLures;
  std::vector<std::string> m_study;  // what the study rows of all subjects and tests have in common
  // Kept between subjects so that a run allocates once.
  std::string m_subject;  // the field that opens all of a subject's rows
  std::string m_levels;   // what closes them
  std::string m_recall;
};

}  // namespace zova
