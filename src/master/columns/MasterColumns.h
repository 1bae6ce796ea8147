// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>

#include "master/columns/ColumnName.h"
#include "master/columns/MeasureSelection.h"

namespace zova {

/// Individual masters have a row per subject, combined ones a row per nominal group and fewer columns.
enum class MasterKind { Individual, Combined };

/// Receives the measure columns of a master one by one, each with its value for the subject just scored.
class ColumnSink {
 public:
  virtual ~ColumnSink() = default;
  virtual void Count(const MasterColumn& column, std::int16_t value) = 0;
  virtual void Share(const MasterColumn& column, const Ratio& value) = 0;
};

/// The one definition of a master's columns behind identifier and variables: hands those of every family that is asked
/// for to `sink`, in the order of the file. Header, row, count and every other view of a master are sinks of this walk.
void WalkMeasureColumns(const ProjectParameters& project, const MeasureSelection& selection, MasterKind kind,
                        const ScoringArrays& scores, ColumnSink& sink);

}  // namespace zova
