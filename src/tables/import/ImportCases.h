// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "tables/import/ResponseMatcher.h"
#include "words/Responses.h"

namespace zova {

enum class CaseKind { Undecided, Decide, TooLong, Level, Minute, Rating, Check, Error };

/// The word in the report: "too-long".
std::string_view CaseName(CaseKind kind) noexcept;

/// Something in the table that the user has to know.
struct ImportCase {
  CaseKind Kind = CaseKind::Error;
  std::size_t Count = 1;
  std::size_t Row = 0;  ///< line of the table, from 1; 0 for none
  std::string Column = {};
  std::string Subject = {};  ///< as the table names it
  std::string Test = {};     ///< its label in the table
  std::string Text = {};

  bool operator==(const ImportCase&) const = default;
};

/// What responses, lists and subjects came to.
struct ImportCounts {
  std::size_t Recalls = 0;  ///< responses other than nothing
  std::size_t Exact = 0;
  std::size_t Decided = 0;
  std::size_t Proposed = 0;  ///< near one word, and not decided
  std::size_t Taken = 0;     ///< of them, by --accept-distance
  std::size_t Open = 0;      ///< neither matched nor decided nor taken
  std::size_t Intrusions = 0;
  std::size_t OtherList = 0;  ///< of them, words of another list
  std::size_t Skipped = 0;
  std::size_t Repeats = 0;
  std::size_t Gaps = 0;
  std::size_t TooLong = 0;  ///< lists
  std::size_t MissingTests = 0;
  std::size_t EmptyTests = 0;
  std::size_t TooLongRow = 0;      ///< of the first list
  std::size_t MissingTestRow = 0;  ///< of the first subject
};

/// A response that is no word of its list, and what becomes of it.
struct OpenResponse {
  std::string Response;
  std::size_t Count = 0;
  std::vector<NearItem> Near = {};  ///< the nearest words: one is proposed, several are a tie
  std::string Subject = {};         ///< of the first row with it
  std::string Test = {};            ///< likewise, as the table labels it
  std::size_t Row = 0;
  std::optional<Decision> Decided = {};  ///< nullopt as long as it is open in one list
  std::size_t Open = 0;                  ///< how often it is
  bool IsTaken = false;                  ///< by --accept-distance, as the same item in all lists
  std::string Scope = {};                ///< of a decision about it (DecidedResponse)
};

/// What the user has to know of a table's subjects.
class ImportFindings {
 public:
  /// Of more than kMaxCases the rest is counted only; of errors, of which one is enough, as many again are kept.
  static constexpr std::size_t kMaxCases = 100000;

  void Add(ImportCase found);
  /// Notes a response by its key, and in lists of positions by its scope. Returns its entry in Responses.
  OpenResponse& Note(std::string_view response, std::string_view scope, std::string_view subject, std::size_t row);
  /// True for a response that was noted, in whatever scope.
  [[nodiscard]] bool HasNoted(std::string_view response) const;
  /// The cases beyond kMaxCases as one; nullopt for none.
  [[nodiscard]] std::optional<ImportCase> Uncounted() const;

  std::vector<ImportCase> Cases;
  bool HasErrors = false;
  ImportCounts Counts;
  std::vector<OpenResponse> Responses;  ///< in the order of their first rows

 private:
  TextMap<std::size_t> m_places;  // of responses, by key and scope, and the first by its key alone
  std::size_t m_uncounted = 0;
};

}  // namespace zova
