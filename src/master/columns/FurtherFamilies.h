// SPDX-License-Identifier: GPL-3.0-or-later
//
// The only table of the further measures: the source of their columns in the clean CSV, the means, the labels of plots,
// and their definitions.
#pragma once

#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "master/columns/MeasureFamilies.h"
#include "scoring/further/FurtherScores.h"

namespace zova {

/// The values of a family from `place` on: one value, or all lags or positions of a test.
using MeasuredAt = std::span<const Measured> (*)(const FurtherScores& scores, ColumnPlace place);

/// What the further measures are about, in the order of their columns.
enum class FurtherGroup { Amount, Clustering, Organization, Serial, Lures };

/// "Amount and change".
std::string_view FurtherGroupText(FurtherGroup group);

/// The columns of one further measure.
struct FurtherFamily {
  enum Rule : unsigned {
    Serial = 1,      ///< needs the order of study
    OfGroups = 2,    ///< has a value per group, none per subject
    Breaks = 4,      ///< an intrusion or a lure stands between its neighbours
    Transitions = 8  ///< counts no transition from or to a repeat, an intrusion or a lure
  };

  std::string_view Stem;  ///< the column name up to the bracket, "RR"
  MeasureShape Shape;
  FurtherGroup Group;
  unsigned Needs;
  MeasuredAt Values;
  std::string_view Label;       ///< for a plot: "Repetition ratio"
  std::string_view Unit;        ///< "items"; "" for an index without one
  std::string_view Definition;  ///< "R / (r - 1)"
  std::string_view Source;      ///< the publication, or ""
  unsigned Rules = 0;
};

/// In the order of their columns.
std::span<const FurtherFamily> AllFurtherFamilies();

/// A column of a further measure.
struct FurtherColumn {
  const FurtherFamily* Family = nullptr;
  ColumnPlace Place;
};

/// "LagCrp(Test 1 Lag -2)".
void AppendColumnName(std::string& out, const FurtherColumn& column);

/// nullopt for a name that is not that of a further measure.
std::optional<FurtherColumn> FurtherColumnByName(std::string_view name);

/// The reason in words: "no study order". "" for None.
std::string_view FurtherGapText(FurtherGap gap);

using FurtherVisit = std::function<void(const FurtherColumn& column, const Measured& value)>;

/// The only definition of the columns of the further measures of a subject: passes each, with its value, to `visit`.
/// Position(Test t i) and FirstRecall(Test t i) are among them where `scores` has them.
void WalkFurtherColumns(const ProjectParameters& project, const FurtherScores& scores, const FurtherVisit& visit);

/// The names of these columns.
std::vector<std::string> FurtherColumnNames(const ProjectParameters& project, FurtherColumns columns);

}  // namespace zova
