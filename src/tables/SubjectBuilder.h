// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "subjects/SubjectRecord.h"
#include "tables/ImportContext.h"
#include "tables/ImportOptions.h"
#include "tables/ResponseMatcher.h"
#include "tables/TableReader.h"
#include "tables/TableSurvey.h"

namespace zova {

enum class CaseKind { Undecided, Decide, TooLong, Level, Minute, Rating, Check, Error };

/// The word in the report: "too-long".
std::string_view CaseName(CaseKind kind) noexcept;

/// Something in the table that the user has to know.
struct ImportCase {
  CaseKind Kind = CaseKind::Error;
  std::size_t Count = 1;
  std::size_t Row = 0;  ///< line of the table, from 1; 0 for none
  std::string Column;
  std::string Subject;
  std::string Test;  ///< its label in the table
  std::string Text;

  bool operator==(const ImportCase&) const = default;
};

/// What responses, lists and subjects came to.
struct ImportCounts {
  std::size_t Recalls = 0;  ///< responses other than nothing
  std::size_t Exact = 0;
  std::size_t Decided = 0;
  std::size_t Proposed = 0;   ///< taken by --accept-distance, or open
  std::size_t OtherList = 0;  ///< of the intrusions
  std::size_t Intrusions = 0;
  std::size_t Skipped = 0;
  std::size_t Open = 0;  ///< neither matched nor decided
  std::size_t Repeats = 0;
  std::size_t Gaps = 0;
  std::size_t TooLong = 0;
  std::size_t MissingTests = 0;
  std::size_t EmptyTests = 0;
  std::size_t StudyOrders = 0;
};

/// A response that is no word of its list, and what becomes of it.
struct OpenResponse {
  std::string Response;
  std::size_t Count = 0;
  std::vector<NearItem> Near;  ///< the nearest words: one is proposed, several are a tie
  std::string Subject;         ///< of the first row with it
  std::size_t Row = 0;
  std::optional<Decision> Decided;
  bool IsWord = false;  ///< a word of the project, or correct elsewhere: never taken with all others
};

/// One subject of the table as it would be saved.
struct BuiltSubject {
  SubjectRecord Record;
  std::vector<Intrusion> Intrusions;
  std::vector<StudyOrder> StudyOrders;
  bool IsLeftOut = false;     ///< by --too-long or --missing-tests
  bool HasNoLevel = false;    ///< a variable has no level that fits
  bool IsIncomplete = false;  ///< the checks refuse it
};

/// Makes subjects of the rows of a table.
class SubjectBuilder {
 public:
  /// All must outlive the builder.
  SubjectBuilder(const TableSetup& setup, const TableSurvey& survey, const ImportOptions& options,
                 const ImportContext& context, ResponseMatcher& matcher);

  /// Fills `subject` but for its identifier, which is `subjectId`. What the user has to know goes to `Cases`, `Counts`
  /// and `Responses`.
  void Build(const SubjectRows& rows, const std::string& subjectId, BuiltSubject& subject);

  std::vector<ImportCase> Cases;
  ImportCounts Counts;
  /// By key, in the order of the first rows.
  std::vector<OpenResponse> Responses;

 private:
  struct Given;
  struct State;
  const TableSetup& m_setup;
  const TableSurvey& m_survey;
  const ImportOptions& m_options;
  const ImportContext& m_context;
  ResponseMatcher& m_matcher;
};

}  // namespace zova
