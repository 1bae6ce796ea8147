// SPDX-License-Identifier: GPL-3.0-or-later
//
// What Examine Means says: the cells of its table, and the lines around it.

#include <algorithm>

#include "means/MeansExaminer.h"
#include "means/UncomputedValues.h"
#include "text/Counted.h"

namespace zova {

std::string MeansExaminer::FileLine() const {
  if (m_path.empty()) return m_missing;
  const std::string size = m_serial
                               ? Counted(static_cast<std::size_t>(m_serial->PositionCount), "position", "positions")
                               : Counted(m_table.RowCount(), "row", "rows");
  return (m_serial ? "Serial-position master: " : "Master: ") + m_path + " (" + size + ")";
}

std::string MeansExaminer::NoteLine() const {
  if (m_path.empty()) return "";
  if (m_reading != nullptr) return std::string("Reading the subjects, for the ") + m_reading + " ...";
  if (m_serial) return "A serial-position master is only plotted: the shares of the subjects, and smoothed ones.";
  std::string note;
  const auto add = [&note](const std::string& sentence) { note += (note.empty() ? "" : "  ") + sentence; };
  if (m_uncomputed > 0) {
    add(Counted(m_uncomputed, "value", "values") + " of the chosen measures could not be computed and " +
        (LeavesOut() ? (m_uncomputed == 1 ? "is left out." : "are left out.")
                     : std::string(m_uncomputed == 1 ? "counts" : "count") + " as 0 (*), as in the master."));
  }
  if (m_lacking > 0) {
    add(Counted(m_lacking, "value", "values") + " of the chosen further measures could not be computed and " +
        (m_lacking == 1 ? "is" : "are") + " left out.");
  }
  const bool hasOthers = std::any_of(m_means.Cells.begin(), m_means.Cells.end(), [](const MeansCell& cell) {
    for (std::size_t measure = 0; measure < cell.Within.size(); ++measure) {
      if (cell.Within[measure].Mean && cell.Within[measure].N != cell.Measures[measure].N) return true;
    }
    return false;
  });
  if (hasOthers) add(kWithinText);
  if (!m_table.HasSubjects) {
    add("This piece of a wide master has no identifiers: values that could not be computed, which stand as 0, are not "
        "known.  The whole master has them.");
  } else if (!m_isOwn) {
    add("This is no master of the open project: its levels are numbers, and values that could not be computed, which "
        "stand as 0, are not known.");
  }
  if (!m_furtherGroups.empty() && m_further == FurtherColumns::All) add(kCurvesLeftOut);
  if (m_unchecked > 0) {
    add(Counted(static_cast<std::size_t>(m_unchecked), "row has no subject", "rows have no subject") +
        " that could be scored again: values that could not be computed are not known there.");
  }
  if (m_table.SkippedLines > 0) {
    add(Counted(static_cast<std::size_t>(m_table.SkippedLines), "line does", "lines do") + " not fit the header and " +
        (m_table.SkippedLines == 1 ? "was" : "were") + " skipped.");
  }
  if (m_table.RepeatedSubjects > 0) {
    add(Counted(static_cast<std::size_t>(m_table.RepeatedSubjects), "row repeats", "rows repeat") +
        " a subject of an earlier row; each counts.");
  }
  return note;
}

std::vector<std::string> MeansExaminer::Headings() const {
  return m_means.Measures.empty()
             ? std::vector<std::string>()
             : LinesOf({.Variables = m_means.Variables, .Measures = {}, .Cells = {}, .More = m_means.More}).Header;
}

std::string MeansExaminer::CellText(int row, int column) const {
  const std::size_t cells = m_means.Cells.size();
  const std::size_t measure = static_cast<std::size_t>(row) / cells;
  const MeansCell& cell = m_means.Cells[static_cast<std::size_t>(row) % cells];
  if (column == 0) return m_means.Measures[measure];
  if (column < FirstNumber()) return cell.Levels.empty() ? "(all)" : cell.Levels[static_cast<std::size_t>(column) - 1];
  const MeansColumn which = ColumnsOf(m_means.More)[static_cast<std::size_t>(column - FirstNumber())];
  const auto number = NumberOf(cell, measure, which);
  if (which == MeansColumn::NotComputed) return m_isOwn ? ShownNumber(number, 0) : "";
  if (IsCount(which)) return ShownNumber(number, 0);
  const bool isMarked = which == MeansColumn::Mean && HasZeros(cell, measure);
  return ShownNumber(number, m_decimals[measure]) + (isMarked ? "*" : "");
}

bool MeansExaminer::HasZeros(const MeansCell& cell, std::size_t measure) const {
  return cell.Uncomputed[measure] > 0 && !LeavesOut() && !m_table.IsFurther(m_request.Measures[measure]);
}

bool MeansExaminer::IsTotal(int row) const {
  return !m_means.Variables.empty() &&
         m_means.Cells[static_cast<std::size_t>(row) % m_means.Cells.size()].Levels.empty();
}

std::string MeansExaminer::RowTip(int row) const {
  const std::size_t cells = m_means.Cells.size();
  const MeansCell& cell = m_means.Cells[static_cast<std::size_t>(row) % cells];
  const std::size_t measure = static_cast<std::size_t>(row) / cells;
  const std::size_t uncomputed = cell.Uncomputed[measure];
  if (uncomputed == 0) return "";
  return Counted(uncomputed, "value", "values") + " could not be computed; " +
         (HasZeros(cell, measure) ? "counted as 0 here, as in the master." : "left out here.");
}

std::string MeansExaminer::CopyTable() {
  m_status = "Copied " + Counted(static_cast<std::size_t>(RowCount()), "line", "lines");
  return TabText(Lines());
}

// Leaves the field empty when the values were not checked: 0 would be wrong.
MeansLines MeansExaminer::Lines() const {
  MeansLines lines = LinesOf(m_means);
  for (std::vector<std::string>& row : lines.Rows) row.back() = m_isOwn ? row.back() : "";
  return lines;
}

}  // namespace zova
