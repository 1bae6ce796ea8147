// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "subjects/RecallLists.h"
#include "tables/ImportOptions.h"
#include "tables/TableReader.h"
#include "tables/import/ImportCases.h"
#include "tables/import/ImportContext.h"
#include "words/Intrusions.h"
#include "words/StudyOrders.h"

namespace zova {

/// A subject's rows for one test.
struct TestEntries {
  int Label = -1;  ///< index in the survey; -1 when the table has no rows
  std::vector<const TableEntry*> Study;
  std::vector<const TableEntry*> Recall;
  std::vector<const TableEntry*> Listed;  ///< of the list's positions, once it is built
};

/// Makes recall lists of the rows of one subject and test.
class ListBuilder {
 public:
  /// All must outlive the builder.
  ListBuilder(const TableSetup& setup, const TableSurvey& survey, const ImportOptions& options,
              const ImportContext& context, ResponseMatcher& matcher, ImportFindings& findings);

  /// Fills the test's list. Intrusions and the study order are appended under the subject's identifier. False when the
  /// list was too long.
  bool Build(const SubjectRows& rows, int test, TestEntries& entries, const std::string& subjectId, RecallLists& lists,
             std::vector<Intrusion>& intrusions, std::vector<StudyOrder>& orders);
  /// True for the order that the project has saved.
  [[nodiscard]] bool IsSavedOrder(const StudyOrder& order) const;

 private:
  enum class Outcome { Nothing, Item, Intrusion, Skip };
  struct Interpreted {
    Outcome What = Outcome::Nothing;
    int Item = 0;
  };
  struct Sink;

  void SortByPosition(std::vector<const TableEntry*>& entries, bool areRecalls);
  void StudyList(std::vector<const TableEntry*>& study);
  void AddStudied(const TableEntry& entry, int place);
  void NoteOrder(const std::string& subjectId, std::vector<StudyOrder>& orders) const;
  [[nodiscard]] bool IsOnList(int item) const;
  const ListWords& OwnWords();

  void AddEntry(const TableEntry& entry, Sink& sink);
  void AddCell(const TableEntry& entry, Sink& sink);
  void Place(const TableEntry& entry, std::string_view text, const Interpreted& what, Sink& sink);
  [[nodiscard]] std::string_view NumberOf(const TableEntry& entry) const;
  [[nodiscard]] bool IsNoNumber(std::string_view number) const;
  Interpreted InterpretNumber(std::string_view text);
  void CheckWord(const TableEntry& entry, int item);
  Interpreted Interpret(const TableEntry& entry, std::string_view text);
  Interpreted InterpretUnmatched(const TableEntry& entry, std::string_view text, const ResponseMatch& match);
  Interpreted Decide(const ListDecision& decision);
  [[nodiscard]] const DecidedResponse* DecidedForAll(std::string_view text) const;
  [[nodiscard]] const DecidedResponse* DecidedForList(std::string_view text, std::string_view scope) const;
  [[nodiscard]] bool IsDecided(std::string_view text, const ResponseMatch& match) const;
  ListDecision DecisionFor(std::string_view text, const ResponseMatch& match);
  const ResponseMatch& Match(std::string_view text);
  [[nodiscard]] bool IsWordHere(std::string_view text) const;
  [[nodiscard]] bool IsLoose(std::string_view text);
  [[nodiscard]] std::optional<ResponseMatch> MatchAsOne(const std::string& joined);
  int MinuteOfEntry(const TableEntry& entry);
  int RatingOfEntry(const TableEntry& entry);
  void Report(CaseKind kind, const TableEntry& entry, int column, std::string text);

  const TableSetup& m_setup;
  const TableSurvey& m_survey;
  const ImportOptions& m_options;
  const ImportContext& m_context;
  ResponseMatcher& m_matcher;
  ImportFindings& m_findings;
  bool m_byPosition;
  Repeats m_repeats;
  bool m_hasItems;  // the table has a column of item numbers

  const SubjectRows* m_rows = nullptr;
  int m_test = 0;
  std::string_view m_label;  // of the test
  bool m_hasStudy = false;
  std::vector<int> m_studied;      // items in their order; the places in position mode
  std::vector<bool> m_isStudied;   // by item
  std::vector<bool> m_isRecalled;  // by item
  ListWords m_own;                 // words of m_studied
  ResponseMatch m_match;           // in m_own
  bool m_hasOwn = false;           // m_own is filled
  TextMap<int> m_unknownStudied;   // reported
  std::vector<std::pair<std::int64_t, const TableEntry*>> m_ordered;
};

}  // namespace zova
