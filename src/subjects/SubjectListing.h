// SPDX-License-Identifier: GPL-3.0-or-later
//
// Which file is whose. "a1" and "A1" are one subject, since projects come from disks on which they are one name, unless
// both stand side by side: then each has the files that are spelt like its own, and none of the other one's.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "platform/files/Disk.h"
#include "project/ProjectLayout.h"

namespace zova {

/// The names of a directory's files, each of which belongs to one subject or to none: to that of exactly this name, or
/// else to the first whose name differs in case alone and who has no other file there.
class OwnedNames {
 public:
  OwnedNames() = default;
  OwnedNames(const std::vector<std::string>& names, const std::vector<std::string>& subjects);

  /// nullptr when the subject has none.
  [[nodiscard]] const std::string* Of(const std::string& subject) const;
  /// The names that belong to no subject, in the order in which they were given.
  [[nodiscard]] const std::vector<std::string>& Unowned() const noexcept { return m_unowned; }

 private:
  std::unordered_set<std::string> m_exact;
  std::unordered_map<std::string, std::string> m_respelt;  // by subject
  std::vector<std::string> m_unowned;
};

/// The subject files below a directory of them, by place. A subject is known by its file's name, as Subjects has it.
class SubjectListing {
 public:
  SubjectListing() = default;
  /// Lists `subjectDirectory`: a project's Sdata, its directory of removed subjects, or another one that is laid out
  /// so. For a backup directory `others` are the subjects of the primary one. Throws FileError.
  SubjectListing(Disk& disk, const ProjectParameters& project, const std::string& subjectDirectory,
                 const std::vector<std::string>& others = {});

  /// The files in a place as ListSubjectFiles has them; none where it is missing.
  [[nodiscard]] const std::vector<std::string>& Names(SubjectPlace place) const { return At(place).Names; }
  /// Everyone who has a file in any place, once: complete subjects, unfinished ones, and those of whom entries are left
  /// alone.
  [[nodiscard]] const std::vector<std::string>& Subjects() const noexcept { return m_subjects; }
  [[nodiscard]] bool Has(SubjectPlace place, const std::string& subject) const {
    return At(place).Owned.Of(subject) != nullptr;
  }
  /// The name of the subject's file in a place, or the one that a new file there gets.
  [[nodiscard]] const std::string& Name(SubjectPlace place, const std::string& subject) const;
  [[nodiscard]] ResolvedPath File(SubjectPlace place, const std::string& subject) const {
    return Below(At(place).Directory, Name(place, subject));
  }
  /// Where the first entry stands as it was typed: put aside, if the subject was settled, or as the subject. nullopt
  /// when it is gone.
  [[nodiscard]] std::optional<SubjectPlace> FirstEntry(const std::string& subject) const;

 private:
  struct Place {
    ResolvedPath Directory;
    std::vector<std::string> Names;
    OwnedNames Owned;
  };
  [[nodiscard]] const Place& At(SubjectPlace place) const { return m_places[static_cast<std::size_t>(place)]; }
  void List(Disk& disk, const ProjectParameters& project, const std::string& subjectDirectory);

  std::array<Place, kSubjectPlaces.size()> m_places;
  std::vector<std::string> m_subjects;
};

/// The file of one subject below the primary or the backup directory `root`, or where it would be made. `subject` may
/// be new. Throws FileError, naming `operation`.
ResolvedPath FindSubjectFile(Disk& disk, const ProjectParameters& project, const std::string& root, SubjectPlace place,
                             const std::string& subject, FileOperation operation);

}  // namespace zova
