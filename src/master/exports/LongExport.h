// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <vector>

#include "master/exports/FurtherData.h"
#include "master/exports/ScoredSubject.h"
#include "project/ProjectParameters.h"

namespace zova {

/// The recall protocols for other programs: a tidy CSV (RFC 4180) in the layout that toolkits for free recall import.
/// Columns: subject, list (the test), trial_type ("study" or "recall"), position, item; word in a project with a word
/// list; category in a categorised project, and category_name where the list names it; lure (1 or 0) in a false-memory
/// project; minute and rating if recorded; order, whose order of study the list has; then the variables with level
/// names.
///
/// For each subject and test, one row per studied item (not lures) by its position among them, then one row per
/// recalled item by its position as typed. Where the order of study is not known, it is the first order, that of the
/// numbers. Repeats and lures are included; a blank has no row but counts as a position. Minute and rating are empty if
/// missing, and on study rows.
class LongExport {
 public:
  /// `data` has the orders of study and the words, and must outlive this.
  LongExport(const ProjectParameters& project, const FurtherData& data);

  /// Without its line end.
  [[nodiscard]] std::string Header() const;
  /// Replaces `rows` by the subject's lines, without the last line end.
  void Build(const ScoredSubject& subject, std::string& rows);
  /// The lists built so far whose order of study is not known.
  [[nodiscard]] std::size_t ListsWithoutOrder() const noexcept { return m_listsWithoutOrder; }
  void Restart() noexcept { m_listsWithoutOrder = 0; }

 private:
  void FillStudyRows(const StudyRanks& ranks, std::vector<std::string>& rows) const;
  void AppendItem(std::string& row, int item) const;
  void AddRecalls(const RecallLists& lists, int test, std::string& rows) const;

  const ProjectParameters& m_project;
  const FurtherData& m_data;
  bool m_hasLures;
  std::size_t m_listsWithoutOrder = 0;
  // Rows are built from cached texts: there are millions of them.
  std::vector<std::string> m_items;   // by item: item, word, category, lure
  std::vector<std::string> m_places;  // by position - 1: a recall row up to the item
  std::vector<std::string> m_study;   // study rows between test and order, in the order of most subjects
  std::vector<std::string> m_own;     // the same of one list
  std::string m_opening;              // the beginning of a row: subject and test
  std::string m_levels;               // the levels and the line end
  std::string m_end;                  // order, levels and the line end
};

}  // namespace zova
