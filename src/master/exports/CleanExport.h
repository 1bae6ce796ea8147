// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>

#include "master/columns/FurtherFamilies.h"
#include "master/columns/MeasureSelection.h"
#include "master/exports/ScoredSubject.h"
#include "project/ProjectParameters.h"

namespace zova {

/// Appends the `LevelLabel` of a variable (from index 0) as a CSV field.
void AppendLevelField(std::string& line, const ProjectParameters& project, std::size_t variable, int level);

/// The individual master for other programs: a CSV (RFC 4180) with one line per subject. Columns: "Subject", the
/// variables with level names, the selected measures under their names in the master, the further measures if the run
/// computes them, "Not Computed". Ratios are not
/// cut; one that could not be computed is empty, and the last column gives the reason: "ArcScore(Test 1): fewer than 2
/// categories or 3 recalls; Bi-ITR(Tests 1 and 2): no recall to compute it from".
class CleanExport {
 public:
  CleanExport(const ProjectParameters& project, const MeasureSelection& selection, FurtherColumns further)
      : m_project(project), m_selection(selection), m_further(further) {}

  /// Without its line end.
  [[nodiscard]] std::string Header() const;
  /// Replaces `row` by the subject's line, without its line end.
  void Build(const ScoredSubject& subject, std::string& row);

 private:
  const ProjectParameters& m_project;
  const MeasureSelection& m_selection;
  FurtherColumns m_further;
  std::string m_reasons;  // reused, so that a run allocates once
};

}  // namespace zova
