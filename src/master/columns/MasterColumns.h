// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "master/columns/MeasureSelection.h"
#include "scoring/ScoreSubject.h"

namespace zova {

/// Individual masters have a row per subject, combined ones a row per nominal group and fewer columns.
enum class MasterKind { Individual, Combined };

/// A column's name in parts, put together as Text[0] Number[0] Text[1] Number[1] Text[2]; numbers below 0 are left out.
struct ColumnName {
  std::string_view Text0;
  int Number0 = -1;
  std::string_view Text1 = {};
  int Number1 = -1;
  std::string_view Text2 = {};
};

/// Appends the name as the header of a master has it.
void AppendColumnName(std::string& out, const ColumnName& name);

/// What a column belongs to: the box that asks for it, and the family that computes it.
struct ColumnOrigin {
  Measure Box;
  ScoreFamily Family;
};

/// Receives the measure columns of a master one by one, each with its value for the subject just scored.
class ColumnSink {
 public:
  virtual ~ColumnSink() = default;
  virtual void Count(const ColumnOrigin& origin, const ColumnName& name, std::int16_t value) = 0;
  virtual void Share(const ColumnOrigin& origin, const ColumnName& name, const Ratio& value) = 0;
};

/// The one definition of a master's columns behind identifier and variables: hands them to `sink` in the order of the
/// file. Header, row, count and every other view of a master are sinks of this walk.
void WalkMeasureColumns(const ProjectParameters& project, const MeasureSelection& selection, MasterKind kind,
                        const ScoringArrays& scores, ColumnSink& sink);

}  // namespace zova
