// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/desktop/Desktop.h"
#include "platform/files/Disk.h"
#include "subjects/SubjectRecord.h"

namespace zova {

using PairSink =
    std::function<void(std::string_view subjectId, const SubjectRecord& first, const SubjectRecord& second)>;

/// Reads both entries of every subject that was entered twice, as they were typed: the first one of a settled subject
/// is the one that was put aside. Both throw FileError.
void ReadSecondEntries(const ProjectParameters& project, Disk& disk, Progress& bar, const PairSink& add);

/// Reads the project's subjects and those of the same file names in another directory. Returns the names that stand in
/// one of the two alone.
std::vector<std::string> ReadPairsWith(const std::string& directory, const ProjectParameters& project, Disk& disk,
                                       Progress& bar, const PairSink& add);

}  // namespace zova
