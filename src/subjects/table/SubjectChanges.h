// SPDX-License-Identifier: GPL-3.0-or-later
//
// What changing a subject does to the files of a project, in the primary and the backup directory, as changes that are
// all made or none (FileChanges). Functions that plan throw FileError.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>

#include "project/FileChanges.h"
#include "project/ProjectLayout.h"
#include "subjects/SubjectListing.h"
#include "subjects/table/SubjectRow.h"

namespace zova {

/// The changes, or the message why they are not made.
struct ChangePlan {
  FileChanges Changes;
  std::string Refusal = {};
};

/// The directories of subject files, looked up and listed once for the changes of many subjects.
class SubjectPlaces {
 public:
  SubjectPlaces(const ProjectParameters& project, Disk& disk);

  /// The backup directory after the primary one, if there is one.
  [[nodiscard]] int RootCount() const noexcept { return m_rootCount; }
  /// A subject's file among the subjects, or the removed ones; nullopt when there is none.
  struct File {
    std::string Name;  ///< as it is spelt there
    std::string Bytes;
  };
  [[nodiscard]] std::optional<File> Read(bool inBackup, SubjectPlace place, const std::string& subject) const;
  [[nodiscard]] std::optional<File> ReadRemoved(bool inBackup, SubjectPlace place, const std::string& subject) const;
  /// A file of that name in any case, but for `except`, among the subjects or the removed ones.
  [[nodiscard]] bool HasAny(std::string_view file, std::string_view except = {}) const;
  [[nodiscard]] bool HasRemoved(std::string_view file) const;
  /// Takes over the names that changes, which were made, added and deleted.
  void Follow(const FileChanges& changes);
  [[nodiscard]] const ProjectParameters& Project() const noexcept { return m_project; }
  [[nodiscard]] Disk& Files() const noexcept { return m_disk; }

 private:
  using Listings = std::array<SubjectListing, 2>;                   // of the primary and the backup directory
  using Names = std::unordered_multimap<std::string, std::string>;  // by the upper-cased name
  [[nodiscard]] std::optional<File> ReadIn(const SubjectListing& listing, SubjectPlace place,
                                           const std::string& subject) const;
  static void AddNames(const SubjectListing& listing, Names& names);

  const ProjectParameters& m_project;
  Disk& m_disk;
  int m_rootCount = 1;
  Listings m_present;
  Listings m_removed;
  Names m_presentNames;  // of all directories
  Names m_removedNames;
};

/// The levels by variable; 0 leaves one as it is. The lists stay byte for byte.
using NewLevels = std::array<std::int16_t, kMaxVariables>;
ChangePlan PlanLevels(const SubjectPlaces& places, const SubjectRow& row, const NewLevels& levels);

/// The files, their first lines, and the lines of companion files. `newId` may differ in case alone.
ChangePlan PlanRename(const SubjectPlaces& places, const SubjectRow& row, const std::string& newId);

/// Moves all files of the subject to `Removed`, or those of a removed one back.
ChangePlan PlanRemoval(const SubjectPlaces& places, const SubjectRow& row);
ChangePlan PlanReturn(const SubjectPlaces& places, const SubjectRow& row);

}  // namespace zova
