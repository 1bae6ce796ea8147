// SPDX-License-Identifier: GPL-3.0-or-later
//
// The dry run: what an import would write, before anything is written.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "platform/desktop/Desktop.h"
#include "tables/ImportContext.h"
#include "tables/SubjectBuilder.h"

namespace zova {

/// What an import does with a subject.
enum class SubjectAction : std::uint8_t {
  Write,       ///< a new one
  Replace,     ///< one that is there with other data
  Unfinished,  ///< as incomplete
  Same,        ///< its file holds the same already
  Skip,        ///< it is there with other data, which stay
  LeaveOut,
  Refuse,  ///< the checks refuse it
};

struct PlannedSubject {
  std::string Original;
  std::string SubjectId;
  std::size_t Row = 0;
  SubjectAction Action = SubjectAction::Write;
  std::uint64_t Digest = 0;  ///< of its rows
};

/// One of the totals: "rows", 2400.
struct ImportTotal {
  std::string What;
  std::size_t Count = 0;
  std::string Column;
  std::string Test;
  std::string Text;

  bool operator==(const ImportTotal&) const = default;
};

struct ImportPlan {
  std::vector<ImportTotal> Totals;
  std::vector<ImportQuestion> Questions;  ///< open ones
  std::vector<ImportCase> Cases;
  std::vector<OpenResponse> Review;  ///< responses that are no words of their lists, decided ones included
  std::vector<PlannedSubject> Subjects;
  std::vector<Intrusion> Intrusions;    ///< of the subjects that are written or the same
  std::vector<StudyOrder> StudyOrders;  ///< likewise
  std::vector<OriginalId> OriginalIds;  ///< as they will be stored; empty when subjects keep their identifiers
  ImportCounts Counts;

  [[nodiscard]] bool HasErrors() const noexcept;
  /// Nothing is undecided and nothing wrong.
  [[nodiscard]] bool MayBeWritten() const noexcept { return Questions.empty() && !HasErrors(); }
  /// How many subjects would be written.
  [[nodiscard]] std::size_t CountOf(SubjectAction action) const noexcept;
};

/// An import that is being prepared. Change `Options` and `Context.Decided`, then call RefreshImport.
struct ImportDraft {
  ImportOptions Options;
  ImportContext Context;
  TableSetup Setup;
  TableSurvey Survey;
  ImportPlan Plan;
};

/// Reads and plans the import of a table into a project. Throws FileError.
ImportDraft DraftImport(Disk& disk, const std::string& table, const ImportOptions& options, ImportContext context);

/// Plans again after a change. The table is set up and surveyed again only if the options for reading it have changed.
/// Throws FileError.
void RefreshImport(Disk& disk, ImportDraft& draft);

/// Takes all proposals of this distance or less into the decisions, but for responses that are themselves words of the
/// project or correct elsewhere. Returns how many.
std::size_t TakeProposals(const ImportPlan& plan, int distance, Responses& decided);

}  // namespace zova
