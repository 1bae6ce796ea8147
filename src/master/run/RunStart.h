// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "master/columns/MasterLines.h"
#include "platform/desktop/MessageBoxes.h"
#include "platform/files/Disk.h"

namespace zova {

/// The number of the project's subject files; warns the user when there is none. nullopt when the user gave up a
/// failed listing, or when there are more than a 16-bit count holds.
std::optional<int> CountSubjectFiles(const ProjectParameters& project, Disk& disk, MessageBoxes& boxes);

/// The names of links that look like a subject of the project but lead to no file, and thus are not counted. None after
/// a fault.
std::vector<std::string> DanglingSubjectLinks(const ProjectParameters& project, Disk& disk);

/// False after a message that the master would have too many columns.
bool BuildHeader(const ProjectParameters& project, const MeasureSelection& selection, MasterKind kind,
                 MessageBoxes& boxes, MasterHeaderLine& header);

}  // namespace zova
