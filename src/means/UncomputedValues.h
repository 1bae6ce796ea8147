// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "master/columns/MeasureSelection.h"
#include "master/exports/ScoredSubject.h"
#include "means/MasterTable.h"
#include "platform/desktop/Desktop.h"
#include "platform/files/Disk.h"

namespace zova {

/// Marks the values of `table`, a master of `project`, that could not be computed: each subject (or, in a combined
/// master, each group by the members that its label names) is read and scored again, and a 0 whose measure has no value
/// is marked. Returns how many rows could not be scored again (a subject that is gone, or a file that cannot be read):
/// nothing is marked in these. Shows no message; `bar` hears of the progress.
int MarkUncomputed(MasterTable& table, const ProjectParameters& project, Disk& disk, Progress& bar);

/// The master of a run as a table, without reading it back: the same values, marked. What names and identifiers hold
/// does no harm here, neither commas nor the name of a measure.
class ScoredTable final : public ScoredSubjectSink {
 public:
  ScoredTable(const ProjectParameters& project, const MeasureSelection& selection);
  bool Add(const ScoredSubject& subject) override;
  [[nodiscard]] const MasterTable& Table() const noexcept { return m_table; }

 private:
  const ProjectParameters& m_project;
  MeasureSelection m_selection;
  MasterTable m_table;
  std::vector<std::size_t> m_shares;  // the measure of the n-th share
};

}  // namespace zova
