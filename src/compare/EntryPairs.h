// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/desktop/Desktop.h"
#include "platform/desktop/MessageBoxes.h"
#include "platform/files/Disk.h"
#include "subjects/SubjectRecord.h"

namespace zova {

using PairSink =
    std::function<void(std::string_view subjectId, const SubjectRecord& first, const SubjectRecord& second)>;

/// What no pair could be made of, as sentences.
struct PassedOver {
  std::vector<std::string> Faults;  ///< of files that cannot be read, as FaultText
  std::vector<std::string> Alone;   ///< of subjects of whom there is no other entry

  [[nodiscard]] bool IsEmpty() const noexcept { return Faults.empty() && Alone.empty(); }
};
/// Tells the user, if there is any.
void WarnNotCompared(MessageBoxes& boxes, const PassedOver& passedOver);

/// Reads both entries of every subject that was entered twice, as they were typed (SubjectListing::FirstEntry). Both
/// throw FileError for a directory that cannot be listed.
PassedOver ReadSecondEntries(const ProjectParameters& project, Disk& disk, Progress& bar, const PairSink& add);

/// Likewise the first entries of the project and those of the same subjects (OwnedNames) in another directory of
/// subject files.
PassedOver ReadPairsWith(const std::string& directory, const ProjectParameters& project, Disk& disk, Progress& bar,
                         const PairSink& add);

}  // namespace zova
