// SPDX-License-Identifier: GPL-3.0-or-later
//
// The file, for T tests of N positions:
//
//   Type ( ", SP(Test " t " Pos " p ")" )*      test by test
//   Actual ( ", " share )*
//   Smooth ( ", " share )*

#include "master/groups/SerialPositions.h"

#include "scoring/Score.h"
#include "text/NumberText.h"
#include "text/NumberedText.h"

namespace zova {

namespace {

// The first and the last position are not smoothed.
SerialCounts Smoothed(const SerialCounts& shares, int testCount) {
  SerialCounts smooth = shares;
  for (int t = 1; t <= testCount; ++t) {
    for (int p = 2; p < shares.RowCount(); ++p) {
      smooth.At(p, t) = (shares.At(p - 1, t) + shares.At(p, t) + shares.At(p + 1, t)) / 3.0F;
    }
  }
  return smooth;
}

void AppendShares(std::string& out, const char* type, const SerialCounts& shares, int testCount) {
  out += type;
  for (int t = 1; t <= testCount; ++t) {
    for (int p = 1; p <= shares.RowCount(); ++p) {
      out += ", ";
      AppendNumber(out, CutRatio(shares.At(p, t), kThreeDecimals).Cut);
    }
  }
  out += "\r\n";
}

}  // namespace

void AccumulateSerialPositions(const RecallLists& lists, const SerialOrder& order, SerialCounts& counts) {
  for (int test = 1; test <= lists.TestCount(); ++test) {
    for (int position = 1; position <= lists.RecallCount(test); ++position) {
      const int item = lists.At(test, position).Item;
      if (item > 0) counts.At(order[static_cast<std::size_t>(item) - 1], test) += 1.0F;
    }
  }
}

std::string FormatSerialPositionMaster(const SerialCounts& counts, int testCount, int subjectCount) {
  SerialCounts shares = counts;
  std::string out = "Type";
  for (int t = 1; t <= testCount; ++t) {
    for (int p = 1; p <= counts.RowCount(); ++p) {
      shares.At(p, t) = counts.At(p, t) / static_cast<float>(subjectCount);
      out += ", ";
      AppendNumbered(out, kSerialPositionName, t, p);
    }
  }
  out += "\r\n";
  AppendShares(out, "Actual", shares, testCount);
  AppendShares(out, "Smooth", Smoothed(shares, testCount), testCount);
  return out;
}

}  // namespace zova
