// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <functional>

#include "master/columns/ColumnName.h"
#include "master/columns/MeasureSelection.h"

namespace zova {

/// An individual master has one row per subject, a combined master one row per nominal group and fewer columns.
enum class MasterKind { Individual, Combined };

/// Receives the measure columns of a master one by one, each with its value for the current subject.
class ColumnSink {
 public:
  virtual ~ColumnSink() = default;
  virtual void Count(const MasterColumn& column, std::int16_t value) = 0;
  virtual void Share(const MasterColumn& column, const Ratio& value) = 0;
};

/// The only definition of a master's columns after identifier and variables: passes the columns of all selected
/// families to `sink`, in file order. Header, row, column count and every other view of a master are sinks of this
/// walk.
void WalkMeasureColumns(const ProjectParameters& project, const MeasureSelection& selection, MasterKind kind,
                        const ScoringArrays& scores, ColumnSink& sink);

/// The same walk for the columns without their values.
void ForEachColumn(const ProjectParameters& project, const MeasureSelection& selection, MasterKind kind,
                   const std::function<void(const MasterColumn&)>& visit);

}  // namespace zova
