// SPDX-License-Identifier: GPL-3.0-or-later

#include "subjects/SubjectListing.h"

#include <algorithm>
#include <iterator>
#include <string_view>
#include <utility>

#include "text/Encoding.h"

namespace zova {

namespace {

SubjectPlace ParentOf(SubjectPlace place) {
  const bool isOfSecond =
      place == SubjectPlace::SecondUnfinished || place == SubjectPlace::First || place == SubjectPlace::Settled;
  return isOfSecond ? SubjectPlace::Second : SubjectPlace::Complete;
}

}  // namespace

OwnedNames::OwnedNames(const std::vector<std::string>& names, const std::vector<std::string>& subjects)
    : m_exact(names.begin(), names.end()) {
  const std::unordered_set<std::string_view> known(subjects.begin(), subjects.end());
  std::copy_if(names.begin(), names.end(), std::back_inserter(m_unowned),
               [&](const std::string& name) { return !known.contains(name); });
  if (m_unowned.empty()) return;
  std::unordered_multimap<std::string, std::string> left;  // by the upper-cased name
  for (const std::string& name : m_unowned) left.emplace(UpperCase(name), name);
  for (const std::string& subject : subjects) {
    if (m_exact.contains(subject)) continue;
    const auto found = left.find(UpperCase(subject));
    if (found == left.end()) continue;
    m_respelt.emplace(subject, std::move(found->second));
    left.erase(found);
  }
  std::unordered_set<std::string_view> owned;
  for (const auto& [subject, name] : m_respelt) owned.insert(name);
  std::erase_if(m_unowned, [&](const std::string& name) { return owned.contains(name); });
}

const std::string* OwnedNames::Of(const std::string& subject) const {
  if (const auto exact = m_exact.find(subject); exact != m_exact.end()) return &*exact;
  const auto respelt = m_respelt.find(subject);
  return respelt == m_respelt.end() ? nullptr : &respelt->second;
}

SubjectListing::SubjectListing(Disk& disk, const ProjectParameters& project, const std::string& subjectDirectory,
                               const std::vector<std::string>& others)
    : m_subjects(others) {
  List(disk, project, subjectDirectory);
  std::unordered_set<std::string> known(others.begin(), others.end());
  const auto add = [&](const std::string& name) {
    if (known.insert(name).second) m_subjects.push_back(name);
  };
  for (const SubjectPlace place : kSubjectPlaces) {
    Place& at = m_places[static_cast<std::size_t>(place)];
    const bool isSubject = place == SubjectPlace::Complete || place == SubjectPlace::Unfinished;
    // An unfinished entry is completed, and then deleted, under its own spelling.
    const bool isExact = place == SubjectPlace::Unfinished || (isSubject && others.empty());
    at.Owned = OwnedNames(at.Names, isExact ? at.Names : m_subjects);
    for (const std::string& name : isExact ? at.Names : at.Owned.Unowned()) {
      if (isSubject || IsOwnSubjectFile(project, name)) add(name);
    }
  }
}

// Looking up a missing directory lists the one above it, which may hold thousands of subjects. So each is looked up
// once, and what would be below a missing one is not.
void SubjectListing::List(Disk& disk, const ProjectParameters& project, const std::string& subjectDirectory) {
  std::array<bool, kSubjectPlaces.size()> isThere{};
  for (const SubjectPlace place : kSubjectPlaces) {
    const auto at = static_cast<std::size_t>(place);
    const auto parent = static_cast<std::size_t>(ParentOf(place));
    const std::string path = PlaceBelow(subjectDirectory, place);
    Place& listed = m_places[at];
    if (parent != at && !isThere[parent]) {
      listed.Directory = Below(m_places[parent].Directory, LastPathComponent(path));
      continue;
    }
    listed.Directory = disk.Resolve(path, FileOperation::Read);
    isThere[at] = disk.Kind(listed.Directory, FileOperation::List) == EntryKind::Directory;
    if (isThere[at]) listed.Names = ListSubjectFiles(disk, project, path);
  }
}

const std::string& SubjectListing::Name(SubjectPlace place, const std::string& subject) const {
  const std::string* const own = At(place).Owned.Of(subject);
  return own == nullptr ? subject : *own;
}

std::optional<SubjectPlace> SubjectListing::FirstEntry(const std::string& subject) const {
  for (const SubjectPlace place : {SubjectPlace::First, SubjectPlace::Complete}) {
    if (Has(place, subject)) return place;
  }
  return std::nullopt;
}

ResolvedPath FindSubjectFile(Disk& disk, const ProjectParameters& project, const std::string& root, SubjectPlace place,
                             const std::string& subject, FileOperation operation) {
  ResolvedPath file = disk.Resolve(JoinPath(PlaceDirectory(root, place), subject), operation);
  if (NameOf(file) == subject) return file;  // there, or there is none in any case; spares the listing
  const auto listIn = [&](const std::string& directory, const std::vector<std::string>& others) {
    return SubjectListing(disk, project, SubjectDirectory(directory), others);
  };
  const SubjectListing primary = listIn(project.PrimaryDir, {});
  const SubjectListing listing = root == project.PrimaryDir ? primary : listIn(root, primary.Subjects());
  const auto& subjects = listing.Subjects();
  const bool isListed = std::find(subjects.begin(), subjects.end(), subject) != subjects.end();
  const auto respelt = std::find_if(subjects.begin(), subjects.end(),
                                    [&](const std::string& name) { return EqualsIgnoringCase(name, subject); });
  return listing.File(place, isListed || respelt == subjects.end() ? subject : *respelt);
}

}  // namespace zova
