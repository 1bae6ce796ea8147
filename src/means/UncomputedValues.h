// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string_view>
#include <utility>
#include <vector>

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

/// The further measures of a table of `rows` subjects: without the curves over the serial positions where these would
/// take more than 160 MB each.
FurtherColumns CurvesFor(const ProjectParameters& project, std::size_t rows);
inline constexpr const char* kCurvesLeftOut =
    "Position and FirstRecall are left out: subjects, tests and items make more than 20,000,000 values of each.";

/// Computes the further measures of the rows of `table`, an individual master of `project`, by reading each subject
/// again; `table.Further.Names` are those of FurtherColumnNames. A row whose subject cannot be read has no values.
/// Shows no message except the progress on `bar`.
void ComputeFurther(MasterTable& table, const ProjectParameters& project, const FurtherData& data,
                    FurtherColumns columns, Disk& disk, Progress& bar);

/// Why values of a measure could not be computed, and how many.
struct GapCount {
  std::string_view Reason;
  std::size_t Count = 0;

  bool operator==(const GapCount&) const = default;
};
/// In the order of the rows. The further measures must be computed.
std::vector<GapCount> CountGaps(const MasterTable& table, std::size_t measure);

/// The master of a run, with its further measures, as a marked table, without parsing its file: names and identifiers
/// may contain commas or the name of a measure.
class ScoredTable final : public ScoredSubjectSink {
 public:
  ScoredTable(const ProjectParameters& project, const MeasureSelection& selection,
              FurtherColumns further = FurtherColumns::None);
  bool Add(const ScoredSubject& subject) override;
  void Restart() override;
  [[nodiscard]] const MasterTable& Table() const noexcept { return m_table; }
  /// Hands the table over; nothing may be added then.
  [[nodiscard]] MasterTable Release() && { return std::move(m_table); }

 private:
  const ProjectParameters& m_project;
  MeasureSelection m_selection;
  MasterTable m_table;
  std::vector<std::size_t> m_shares;  // the measure of the n-th ratio
};

}  // namespace zova
