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

/// A fault in an order and its row, from index 0.
struct OrderFault {
  std::string Text;
  std::size_t Row = 0;
};

/// The first fault by item or subject; nullopt when each position from 1 to their number is used once. A missing
/// position is 0. The positions of a file refer to its own lines, however many subjects there are now.
std::optional<OrderFault> SerialOrderFault(const SerialOrder& order);
std::optional<OrderFault> GroupOrderFault(const std::vector<std::string>& subjectIds, const GroupOrder& order);

/// The default orders: true items in item order, then lures; subjects in listing order.
SerialOrder FirstSerialOrder(const ProjectParameters& project);
GroupOrder FirstGroupOrder(std::size_t subjectCount);

/// Reads an order of `itemCount` lines "item,position". An item without a line has position 0. Throws FileError; fewer
/// or more lines, and items outside 1 to `itemCount`, are no such file (end of data).
SerialOrder ReadSerialOrder(Disk& disk, const std::string& path, int itemCount);

struct GroupOrderLines {
  std::vector<std::string> SubjectIds;
  GroupOrder Positions;
};

/// Reads lines "identifier",position to the end of the file. Throws FileError.
GroupOrderLines ReadGroupOrder(Disk& disk, const std::string& path);

/// Like GroupOrderFault, for a file chosen by the user. Also a fault: an identifier with more lines than there are
/// subjects of that name (one line if there is none).
std::optional<OrderFault> GroupFileFault(const GroupOrderLines& lines, const std::vector<std::string>& subjectIds);

/// The order of the current subjects by `lines`, which must be valid: subjects with a line by position, then the new
/// ones in listing order. Ignores lines of subjects that are gone.
GroupOrder FitGroupOrder(const GroupOrderLines& lines, const std::vector<std::string>& subjectIds);

/// The orders saved below the primary directory; nullopt for a file that is missing, invalid or of another length.
/// Throw FileError for a file that cannot be read.
std::optional<SerialOrder> ReadSavedSerialOrder(Disk& disk, const ProjectParameters& project);
std::optional<GroupOrder> ReadSavedGroupOrder(Disk& disk, const ProjectParameters& project,
                                              const std::vector<std::string>& subjectIds);

/// Throw FileError.
void SaveSerialOrder(Disk& disk, const ProjectParameters& project, const SerialOrder& order);
void SaveGroupOrder(Disk& disk, const ProjectParameters& project, const std::vector<std::string>& subjectIds,
                    const GroupOrder& order);

/// The bytes of the saved group order, and those with another identifier for one subject. nullopt when there is none,
/// or when it is invalid or has no such subject. Throws FileError.
struct RenamedOrder {
  std::string Before;
  std::string After;
};
std::optional<RenamedOrder> RenameInGroupOrder(Disk& disk, const ProjectParameters& project, std::string_view from,
                                               std::string_view to);

}  // namespace zova
