// SPDX-License-Identifier: GPL-3.0-or-later

#include "subjects/table/SubjectPlacesListing.h"

namespace zova {

namespace {

SubjectPlace ParentOf(SubjectPlace place) {
  const bool isOfSecond =
      place == SubjectPlace::SecondUnfinished || place == SubjectPlace::First || place == SubjectPlace::Settled;
  return isOfSecond ? SubjectPlace::Second : SubjectPlace::Complete;
}

}  // namespace

// Looking up a missing directory lists the one above it, which may hold thousands of subjects. So each is looked up
// once, and what would be below a missing one is not.
ListedPlaces ListSubjectPlaces(Disk& disk, const ProjectParameters& project, const std::string& root, bool areRemoved) {
  ListedPlaces places;
  std::array<bool, kSubjectPlaces.size()> isThere{};
  for (const SubjectPlace place : kSubjectPlaces) {
    const auto at = static_cast<std::size_t>(place);
    const auto parent = static_cast<std::size_t>(ParentOf(place));
    const std::string path = areRemoved ? RemovedDirectory(root, place) : PlaceDirectory(root, place);
    ListedPlace& listed = places[at];
    if (parent != at && !isThere[parent]) {
      listed.Directory = Below(places[parent].Directory, LastPathComponent(path));
      continue;
    }
    listed.Directory = disk.Resolve(path, FileOperation::Read);
    isThere[at] = disk.Kind(listed.Directory, FileOperation::List) == EntryKind::Directory;
    if (isThere[at]) listed.Names = ListSubjectFiles(disk, project, path);
  }
  return places;
}

}  // namespace zova
