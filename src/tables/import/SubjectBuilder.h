// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "subjects/SubjectRecord.h"
#include "tables/ImportOptions.h"
#include "tables/TableReader.h"
#include "tables/TableSurvey.h"
#include "tables/import/ImportCases.h"
#include "tables/import/ImportContext.h"
#include "tables/import/ListBuilder.h"

namespace zova {

/// One subject of the table as it would be saved.
struct BuiltSubject {
  SubjectRecord Record;
  std::vector<Intrusion> Intrusions;
  std::vector<StudyOrder> StudyOrders;           ///< that are not the project's saved order
  bool HasOrder = false;                         ///< the table has an order of study, be it the saved one
  bool IsLeftOut = false;                        ///< by --too-long or --missing-tests
  std::array<bool, kMaxVariables> LacksLevel{};  ///< by variable: the table has no level that fits
  bool IsIncomplete = false;                     ///< the checks refuse it
};

/// The test, from 1, of each label of the survey; 0 for those beyond the project's tests. By the labels themselves
/// where they are 1 to T, else by their places. Not for --tests rank.
std::vector<int> TestsOfLabels(const TableSurvey& survey, int testCount);

/// The level by --level of a subject without one that fits; 0 for none.
int GivenLevel(const ImportOptions& options, const ProjectParameters& project, std::size_t variable);

/// Makes subjects of the rows of a table.
class SubjectBuilder {
 public:
  /// All must outlive the builder. `findings` gets what the user has to know.
  SubjectBuilder(const TableSetup& setup, const TableSurvey& survey, const ImportOptions& options,
                 const ImportContext& context, ResponseMatcher& matcher, ImportFindings& findings);

  void Build(const SubjectRows& rows, const std::string& subjectId, BuiltSubject& subject);

 private:
  void DivideByTests(const SubjectRows& rows);
  void FillLevels(const SubjectRows& rows, BuiltSubject& subject);
  void NoteMissingTests(const SubjectRows& rows, BuiltSubject& subject);
  void Check(const SubjectRows& rows, BuiltSubject& subject);

  const TableSetup& m_setup;
  const TableSurvey& m_survey;
  const ImportOptions& m_options;
  const ImportContext& m_context;
  ImportFindings& m_findings;
  ListBuilder m_lists;
  std::vector<int> m_testOfLabel;
  std::vector<TestEntries> m_tests;  // by test - 1
};

}  // namespace zova
