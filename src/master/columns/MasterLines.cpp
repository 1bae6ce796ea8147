// SPDX-License-Identifier: GPL-3.0-or-later
//
// A line of a master:
//
//   ( identifier | group ) ( ", " level )* ( ", " value )*
//
// A level or value that is not negative has a blank of its own, so that two blanks follow the comma. A group has
// XXXXXXX for a level in which its members may differ. Names and identifiers are not quoted; a comma in one (in older
// files) adds a column, also when a wide master is cut into pieces.

#include "master/columns/MasterLines.h"

#include <algorithm>

#include "text/NumberText.h"

namespace zova {

namespace {

constexpr int kMaxColumnCount = INT16_MAX;

class RowSink final : public ColumnSink {
 public:
  explicit RowSink(std::string& row) : m_row(row) {}
  void Count(const MasterColumn&, std::int16_t value) override { Add(static_cast<int>(value)); }
  void Share(const MasterColumn&, const Ratio& value) override { Add(value.Cut); }

 private:
  void Add(int value) {
    if (value >= 0 && value <= 9) {  // most values
      const char text[] = {',', ' ', ' ', static_cast<char>('0' + value)};
      m_row.append(text, sizeof text);
    } else {
      m_row += ", ";
      AppendSpacedNumber(m_row, value);
    }
  }
  void Add(float value) {
    m_row += ", ";
    AppendSpacedNumber(m_row, value);
  }

  std::string& m_row;
};

struct ColumnCounts {
  int Total = 0;
  std::array<int, kMeasureCount> PerBox{};
  [[nodiscard]] int Of(Measure box) const noexcept { return PerBox[static_cast<std::size_t>(box)]; }
};

// Every box that alone removes the excess; if there is none, the largest ones together.
std::string MeasuresToUncheck(const ColumnCounts& counts, int excess) {
  std::vector<MeasureBox> boxes(AllMeasureBoxes().begin(), AllMeasureBoxes().end());
  std::stable_sort(boxes.begin(), boxes.end(),
                   [&](const MeasureBox& a, const MeasureBox& b) { return counts.Of(a.Which) > counts.Of(b.Which); });
  const bool oneIsEnough = counts.Of(boxes.front().Which) >= excess;
  std::string names;
  for (const MeasureBox& box : boxes) {
    const int count = counts.Of(box.Which);
    if (oneIsEnough ? count < excess : excess <= 0) break;
    if (!names.empty()) names += oneIsEnough ? " or " : " and ";
    names.append("'").append(box.Frame->Caption).append(": ").append(box.Caption).append("'");
    if (!oneIsEnough) excess -= count;
  }
  return names;
}

void RequireColumnCount(const ColumnCounts& counts, int total) {
  if (total <= kMaxColumnCount) return;
  throw ScoringError(ScoringFault::Overflow, "The master would have " + std::to_string(total) +
                                                 " columns; it can have " + std::to_string(kMaxColumnCount) +
                                                 ".  Please uncheck " +
                                                 MeasuresToUncheck(counts, total - kMaxColumnCount) + ".");
}

int CountColumns(const ProjectParameters& project, const MeasureSelection& selection, MasterKind kind,
                 ColumnCounts& counts) {
  ForEachColumn(project, selection, kind, [&](const MasterColumn& column) {
    ++counts.Total;
    ++counts.PerBox[static_cast<std::size_t>(column.Family->Box)];
  });
  return 1 + project.VariableCount + counts.Total;
}

}  // namespace

std::string ColumnCountText(const ProjectParameters& project, const MeasureSelection& selection) {
  static_assert(kMaxColumnCount == 32767);
  ColumnCounts counts;
  const int total = CountColumns(project, selection, MasterKind::Individual, counts);
  return "Columns of the master: " + std::to_string(total) + " of at most 32,767" +
         (total > kMaxColumnCount ? ".  Please uncheck measures." : ".");
}

MasterHeaderLine BuildMasterHeader(const ProjectParameters& project, const MeasureSelection& selection,
                                   MasterKind kind) {
  ColumnCounts counts;
  const int total = CountColumns(project, selection, kind, counts);
  RequireColumnCount(counts, total);

  MasterHeaderLine line;
  line.MasterColumnCount = static_cast<std::int16_t>(total);
  line.MasterHeader = "Sub ID's";
  for (std::size_t v = 0; v < static_cast<std::size_t>(project.VariableCount); ++v) {
    line.MasterHeader += ", " + project.VariableNames[v];
  }
  ForEachColumn(project, selection, kind, [&](const MasterColumn& column) {
    line.Families.Add(column.Family->Scores);
    line.MasterHeader += ", ";
    AppendColumnName(line.MasterHeader, column);
  });
  return line;
}

void BuildMasterRow(std::string_view subjectId, const std::array<std::int16_t, kMaxVariables>& levels,
                    const ProjectParameters& project, const MeasureSelection& selection, const ScoringArrays& scores,
                    std::string& row) {
  row = subjectId;
  for (std::size_t v = 0; v < static_cast<std::size_t>(project.VariableCount); ++v) {
    row += ", ";
    AppendSpacedNumber(row, static_cast<int>(levels[v]));
  }
  RowSink sink(row);
  WalkMeasureColumns(project, selection, MasterKind::Individual, scores, sink);
}

void BuildGroupRow(std::string_view label, std::optional<std::size_t> separator, std::int16_t level,
                   const ProjectParameters& project, const MeasureSelection& selection, const ScoringArrays& scores,
                   std::string& row) {
  row = label;
  for (std::size_t v = 0; v < static_cast<std::size_t>(project.VariableCount); ++v) {
    row += ", ";
    if (separator == v) {
      AppendSpacedNumber(row, static_cast<int>(level));
    } else {
      row += "XXXXXXX";
    }
  }
  RowSink sink(row);
  WalkMeasureColumns(project, selection, MasterKind::Combined, scores, sink);
}

std::vector<std::string_view> SplitWideMaster(std::string_view line, int columnCount) {
  const int pieceCount = columnCount / kMaxColumnsUnsplit + 1;
  std::vector<std::string_view> pieces;
  pieces.reserve(static_cast<std::size_t>(pieceCount));
  for (int piece = 1; piece < pieceCount; ++piece) {
    int columns = piece == 1 ? kMaxColumnsUnsplit : kMaxColumnsUnsplit - 1;
    std::size_t end = line.find(',');
    while (end != std::string_view::npos && --columns > 0) end = line.find(',', end + 1);
    pieces.push_back(line.substr(0, end));
    line.remove_prefix(end == std::string_view::npos ? line.size() : end + 1);
  }
  pieces.push_back(line);
  return pieces;
}

}  // namespace zova
