// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/desktop/Desktop.h"
#include "platform/files/Disk.h"
#include "subjects/table/SubjectRow.h"

namespace zova {

/// A subject of the project in a directory of removed subjects: "AB Sub#a (2).dat" is the subject "a" that its first
/// line names, removed a second time.
struct RemovedName {
  std::string Id;
  int Number = 1;
};
RemovedName RemovedNameOf(const ProjectParameters& project, std::string_view file, std::string_view bytes);

/// Reads all subjects of a project, each file once, and one row for each, in listing order; removed ones last.
/// `isChosen` says which are in the sample for second entries. Throws FileError for a directory that cannot be listed;
/// a file that cannot be read is a row of its own.
std::vector<SubjectRow> ReadSubjectRows(const ProjectParameters& project, Disk& disk, Progress& bar,
                                        const CountDifferences& countDifferences,
                                        const std::function<bool(std::string_view id)>& isChosen,
                                        const std::function<void(int percent)>& showPercent);

}  // namespace zova
