// SPDX-License-Identifier: GPL-3.0-or-later
//
// SerialPositions.cpp has the grammar of the file.

#include "means/SerialPositionTable.h"

#include <cmath>

#include "master/groups/SerialPositions.h"
#include "text/Cells.h"
#include "text/DecimalNumber.h"
#include "text/Encoding.h"
#include "text/NumberedText.h"

namespace zova {

namespace {

// False unless every test has all positions, in order.
bool ParseShape(const std::vector<std::string_view>& names, SerialPositionTable& table) {
  if (names.size() < 2 || names.front() != "Type") return false;
  const auto last = NumbersIn(names.back(), kSerialPositionName);
  if (!last) return false;
  const auto [tests, positions] = *last;
  const std::size_t columns = names.size() - 1;
  if (static_cast<std::size_t>(tests) * static_cast<std::size_t>(positions) != columns) return false;
  for (std::size_t column = 0; column < columns; ++column) {
    const auto numbers = NumbersIn(names[column + 1], kSerialPositionName);
    const int index = static_cast<int>(column);
    if (numbers != std::array<int, 2>{index / positions + 1, index % positions + 1}) return false;
  }
  table.TestCount = tests;
  table.PositionCount = positions;
  return true;
}

bool ParseShares(const std::vector<std::string_view>& fields, std::string_view type, std::size_t count,
                 std::vector<double>& shares) {
  if (fields.size() != count + 1 || fields.front() != type) return false;
  for (std::size_t column = 1; column <= count; ++column) {
    const auto share = DecimalNumber(fields[column], Exponent::None);
    if (!share) return false;
    shares.push_back(*share);
  }
  return true;
}

PlotSeries CurveOf(const std::vector<double>& shares, int test, int positionCount) {
  PlotSeries curve;
  auto share = shares.begin() + static_cast<std::ptrdiff_t>(test - 1) * positionCount;
  for (int position = 1; position <= positionCount; ++position, ++share) {
    curve.Points.push_back({static_cast<double>(position), *share, std::nullopt});
  }
  return curve;
}

}  // namespace

std::optional<SerialPositionTable> ParseSerialPositionMaster(std::string_view text) {
  text = WithoutMarks(text);
  SerialPositionTable table;
  if (!ParseShape(CellsOf(NextLine(text)), table)) return std::nullopt;
  const auto count = static_cast<std::size_t>(table.TestCount) * static_cast<std::size_t>(table.PositionCount);
  if (!ParseShares(CellsOf(NextLine(text)), "Actual", count, table.Observed) ||
      !ParseShares(CellsOf(NextLine(text)), "Smooth", count, table.Smoothed)) {
    return std::nullopt;
  }
  return table;
}

PlotPicture PictureOf(const SerialPositionTable& table, const std::vector<int>& tests, const std::set<int>& leftOut) {
  PlotPicture picture;
  picture.Kind = "Serial positions";
  picture.XLabel = "Serial position";
  picture.YLabel = "Recall (share of subjects)";
  for (int position = 1; position <= table.PositionCount; ++position) {
    picture.Ticks.push_back(std::to_string(position));
  }
  for (const int test : tests) {
    const std::string name = "Test " + std::to_string(test);
    picture.Series.push_back(CurveOf(table.Observed, test, table.PositionCount));
    picture.Series.back().Name = name;
    picture.Series.push_back(CurveOf(table.Smoothed, test, table.PositionCount));
    picture.Series.back().Name = name + ", smoothed";
    picture.Series.back().IsDashed = true;
  }
  if (leftOut.empty()) return picture;
  for (PlotSeries& series : picture.Series) {
    std::erase_if(series.Points,
                  [&](const PlotPoint& point) { return leftOut.contains(static_cast<int>(std::lround(point.X))); });
  }
  picture.Note = "Lures, which were never studied, are left out.";
  return picture;
}

}  // namespace zova
