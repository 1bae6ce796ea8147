// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/files/Disk.h"
#include "project/ProjectParameters.h"
#include "tables/TableSurvey.h"
#include "words/Intrusions.h"
#include "words/OriginalIds.h"
#include "words/Responses.h"
#include "words/StudyOrders.h"
#include "words/WordList.h"

namespace zova {

/// A fault that stops an import, with its file where that is not the table.
struct ImportFault {
  std::string Text;
  std::size_t Row = 0;
};

/// What a project has already.
struct ImportContext {
  ProjectParameters Project;
  WordList Words;
  Responses Decided;  ///< of the project's file; changed by the review and by --responses
  std::vector<Intrusion> Intrusions;
  std::vector<StudyOrder> StudyOrders;
  std::vector<OriginalId> OriginalIds;
  /// The position of item i at index i - 1, as saved for all subjects; nullopt for none. Set by the caller.
  std::optional<std::vector<std::int16_t>> SavedOrder;
  /// Names of the files in Sdata, by their upper-cased names, and of first entries put aside, which a new subject would
  /// delete.
  TextMap<std::string> Subjects;
  TextMap<std::string> Unfinished;  ///< likewise in Unfinished
  std::vector<std::string> Notes;   ///< of a new project; told with the totals
  std::vector<ImportFault> Faults;  ///< companion files that do not fit: nothing may be written
};

/// Reads the companion files and lists the subjects. Throws FileError.
ImportContext ReadImportContext(Disk& disk, const ProjectParameters& project);

/// For a project that is not written yet.
ImportContext NewImportContext(const ProjectParameters& project, WordList words);

/// Adds the lines of a file of decisions. With items by position they are those of their subjects' lists. Throws
/// FileError.
void AddDecisions(Disk& disk, const std::string& path, ItemsBy items, ImportContext& context);

}  // namespace zova
