// SPDX-License-Identifier: GPL-3.0-or-later
//
// The dry run: what an import would write, before anything is written.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/files/Disk.h"
#include "tables/ImportOptions.h"
#include "tables/TableSurvey.h"
#include "tables/import/ImportCases.h"
#include "tables/import/ImportContext.h"

namespace zova {

/// What an import does with a subject.
enum class SubjectAction : std::uint8_t {
  Write,       ///< a new one
  Replace,     ///< one that is there with other data
  Same,        ///< its file holds the same already
  Unfinished,  ///< the checks refuse it; it is written as incomplete
  Refuse,      ///< the checks refuse it, and it is not to be unfinished, or is there as a complete one
  Skip,        ///< it is there with other data, which stay
  LeaveOut,    ///< lists too long or tests lacking
};
inline constexpr std::size_t kSubjectActionCount = 7;

struct PlannedSubject {
  std::string Original;   ///< the identifier in the table
  std::string SubjectId;  ///< the one it gets
  std::size_t Row = 0;
  SubjectAction Action = SubjectAction::Write;
  std::uint64_t Digest = 0;  ///< of its rows
};

/// A line of the totals: "rows", 2400.
struct ImportTotal {
  std::string What;
  std::size_t Count = 0;
  std::string Column = {};
  std::string Test = {};
  std::string Text = {};

  bool operator==(const ImportTotal&) const = default;
};

struct ImportPlan {
  std::vector<ImportTotal> Totals;
  std::vector<ImportQuestion> Raised;     ///< all questions of the table, answered by the options or not
  std::vector<ImportQuestion> Questions;  ///< of them, the open ones
  ImportFindings Findings;                ///< cases, counts, and responses for review
  std::vector<PlannedSubject> Subjects;   ///< in the order of their first rows
  std::array<std::size_t, kSubjectActionCount> ActionCounts{};
  std::size_t Different = 0;            ///< subjects that are in the project with other data
  std::vector<Intrusion> Intrusions;    ///< of the subjects written or the same
  std::vector<StudyOrder> StudyOrders;  ///< likewise
  std::vector<OriginalId> OriginalIds;  ///< as they will be stored; empty when subjects keep their identifiers
  std::vector<std::string> NewProject;  ///< what was found for a new project, told with the totals

  [[nodiscard]] std::size_t CountOf(SubjectAction action) const noexcept {
    return ActionCounts[static_cast<std::size_t>(action)];
  }
  bool IsComplete = false;  ///< the whole table was read
  [[nodiscard]] bool HasErrors() const noexcept { return Findings.HasErrors; }
  /// Nothing is undecided and nothing wrong.
  [[nodiscard]] bool MayBeWritten() const noexcept { return IsComplete && Questions.empty() && !HasErrors(); }
};

/// An import in preparation. Change `Options` and `Context.Decided`, then call RefreshImport.
struct ImportDraft {
  ImportOptions Options;
  ImportContext Context;
  TableSetup Setup;
  TableSurvey Survey;
  ImportPlan Plan;
  /// Keeps what it found for responses as long as words and accents stay.
  std::shared_ptr<ResponseMatcher> Matcher = {};
};

/// Sets up and surveys the table again. Throws FileError.
void ReadTable(Disk& disk, ImportDraft& draft, const std::string& table);

/// Reads and plans the import of a table into a project. Throws FileError.
ImportDraft DraftImport(Disk& disk, const std::string& table, const ImportOptions& options, ImportContext context);

/// Plans again after a change. The table is set up and surveyed again only if the options for reading it have changed.
/// Throws FileError.
void RefreshImport(Disk& disk, ImportDraft& draft);

/// True when a decision is about what is a word by now, and was not met as a response in two pieces: it is reported and
/// passed over. `draft` has its plan.
bool IsNeedless(const DecidedResponse& decided, const ImportDraft& draft);

/// The decisions that the project keeps for later tables. Numbers for lists of positions mean other words in other
/// tables.
Responses DecisionsToKeep(const Responses& decided, const ImportDraft& draft);

/// Decides all responses near one word at this distance or less, and undecided, for that word. Returns how many.
std::size_t TakeProposals(const ImportPlan& plan, int distance, Responses& decided);

}  // namespace zova
