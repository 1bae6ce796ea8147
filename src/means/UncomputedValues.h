// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "master/columns/FurtherFamilies.h"
#include "master/columns/MeasureSelection.h"
#include "master/exports/FurtherData.h"
#include "master/exports/ScoredSubject.h"
#include "means/MasterTable.h"
#include "platform/desktop/Desktop.h"
#include "platform/files/Disk.h"

namespace zova {

/// Marks the values of `table`, a master of `project`, that could not be computed: reads and scores each subject again
/// (in a combined master the members named by each group's label), and marks each 0 whose measure has no value. Returns
/// the number of rows that could not be scored again (a missing or unreadable file); these get no marks. Shows no
/// message except the progress on `bar`.
int MarkUncomputed(MasterTable& table, const ProjectParameters& project, Disk& disk, Progress& bar);

/// Computes the further measures of the rows of `table`, an individual master of `project`, by reading each subject
/// again; `table.Further.Names` are those of FurtherColumnNames. A row whose subject cannot be read has no values.
/// Shows no message except the progress on `bar`.
void ComputeFurther(MasterTable& table, const ProjectParameters& project, const FurtherData& data,
                    FurtherColumns columns, Disk& disk, Progress& bar);

/// The master of a run, with its further measures, as a marked table, without parsing its file: names and identifiers
/// may contain commas or the name of a measure.
class ScoredTable final : public ScoredSubjectSink {
 public:
  ScoredTable(const ProjectParameters& project, const MeasureSelection& selection,
              FurtherColumns further = FurtherColumns::None);
  bool Add(const ScoredSubject& subject) override;
  void Restart() override;
  [[nodiscard]] const MasterTable& Table() const noexcept { return m_table; }

 private:
  const ProjectParameters& m_project;
  MeasureSelection m_selection;
  MasterTable m_table;
  std::vector<std::size_t> m_shares;  // the measure of the n-th ratio
};

}  // namespace zova
