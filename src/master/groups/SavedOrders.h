// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "master/groups/NominalGroups.h"
#include "master/groups/SerialPositions.h"
#include "platform/files/Disk.h"
#include "project/ProjectParameters.h"

namespace zova {

/// What is wrong with an order, and the row (from index 0) at which it shows.
struct OrderFault {
  std::string Text;
  std::size_t Row = 0;
};

/// The first fault by item, by subject; nothing when every position from 1 to their number is used once. A position
/// that was not given is 0. The subjects of a file are numbered by its own lines, however many there are today.
std::optional<OrderFault> SerialOrderFault(const SerialOrder& order);
std::optional<OrderFault> GroupOrderFault(const std::vector<std::string>& subjectIds, const GroupOrder& order);

/// The orders before anyone changed them: true items in item order, then the lures; subjects as they are listed.
SerialOrder FirstSerialOrder(const ProjectParameters& project);
GroupOrder FirstGroupOrder(std::size_t subjectCount);

/// Reads an order of `itemCount` lines "item,position". An item without a line has position 0. Throws FileError; fewer
/// or more lines, and items outside 1 to `itemCount`, are no such file (end of data).
SerialOrder ReadSerialOrder(Disk& disk, const std::string& path, int itemCount);

/// The lines of a group-order file.
struct GroupOrderLines {
  std::vector<std::string> SubjectIds;
  GroupOrder Positions;
};

/// Reads lines "identifier",position to the end of the file. Throws FileError.
GroupOrderLines ReadGroupOrder(Disk& disk, const std::string& path);

/// The same of a file that someone gave, and what he did not mean: more lines for an identifier than there are subjects
/// of that name (one line, where there is none).
std::optional<OrderFault> GroupFileFault(const GroupOrderLines& lines, const std::vector<std::string>& subjectIds);

/// The order that `lines` (without fault) give the subjects of today: those with a line in the order of their
/// positions, then the new ones as they are listed. Lines of subjects that went are passed over.
GroupOrder FitGroupOrder(const GroupOrderLines& lines, const std::vector<std::string>& subjectIds);

/// The orders as they were saved below the primary directory; nothing where none was, or where it does not fit (no such
/// file, another length, a fault). Throw FileError for a file that cannot be read.
std::optional<SerialOrder> ReadSavedSerialOrder(Disk& disk, const ProjectParameters& project);
std::optional<GroupOrder> ReadSavedGroupOrder(Disk& disk, const ProjectParameters& project,
                                              const std::vector<std::string>& subjectIds);

/// Throw FileError.
void SaveSerialOrder(Disk& disk, const ProjectParameters& project, const SerialOrder& order);
void SaveGroupOrder(Disk& disk, const ProjectParameters& project, const std::vector<std::string>& subjectIds,
                    const GroupOrder& order);

}  // namespace zova
