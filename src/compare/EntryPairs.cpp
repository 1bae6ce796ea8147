// SPDX-License-Identifier: GPL-3.0-or-later

#include "compare/EntryPairs.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "platform/desktop/FileErrorBoxes.h"
#include "platform/desktop/PercentProgress.h"
#include "platform/files/DataFileError.h"
#include "platform/files/EntryNames.h"
#include "project/ProjectLayout.h"
#include "subjects/SubjectFile.h"
#include "subjects/SubjectListing.h"

namespace zova {

namespace {

class PairReader {
 public:
  PairReader(const ProjectParameters& project, Disk& disk, const PairSink& add)
      : m_project(project), m_disk(disk), m_add(add) {}

  void Read(const std::string& subject, const ResolvedPath& first, const ResolvedPath& second, PassedOver& passedOver) {
    try {
      ReadOne(first, m_first);
      ReadOne(second, m_second);
    } catch (const FileError& fault) {
      passedOver.Faults.push_back(FaultText(fault));
      return;
    }
    m_add(SubjectIdFromFileName(m_project, subject), m_first, m_second);
  }

 private:
  void ReadOne(const ResolvedPath& file, SubjectRecord& record) {
    m_disk.Read(file, m_bytes);
    ParsingFile(file.Shown, [&] { ParseSubject(m_bytes, m_project, record); });
  }

  const ProjectParameters& m_project;
  Disk& m_disk;
  const PairSink& m_add;
  SubjectRecord m_first;
  SubjectRecord m_second;
  std::string m_bytes;
};

// Those of the project that have a first entry.
std::vector<std::string> EnteredOnce(const SubjectListing& listing, const ProjectParameters& project) {
  std::vector<std::string> names;
  std::copy_if(listing.Subjects().begin(), listing.Subjects().end(), std::back_inserter(names),
               [&](const std::string& name) { return IsOwnSubjectFile(project, name) && listing.FirstEntry(name); });
  return InListingOrder(std::move(names));
}

// Of a subject that has one.
ResolvedPath FirstEntryFile(const SubjectListing& listing, const std::string& subject) {
  return listing.File(listing.FirstEntry(subject).value_or(SubjectPlace::Complete), subject);
}

template <typename Act>
void ForEachName(const std::vector<std::string>& names, Progress& bar, Act&& act) {
  PercentProgress progress(bar, names.size(), "Comparing: ", " %");
  for (std::size_t done = 0; done < names.size(); ++done) {
    progress.Show(done);
    bar.ProcessEvents();
    act(names[done]);
  }
}

}  // namespace

PassedOver ReadSecondEntries(const ProjectParameters& project, Disk& disk, Progress& bar, const PairSink& add) {
  RequireDirectory(disk, project.PrimaryDir, FileOperation::List);
  const SubjectListing listing(disk, project, SubjectDirectory(project.PrimaryDir));
  std::vector<std::string> enteredTwice;
  std::copy_if(listing.Subjects().begin(), listing.Subjects().end(), std::back_inserter(enteredTwice),
               [&](const std::string& name) { return listing.Has(SubjectPlace::Second, name); });
  PassedOver passedOver;
  PairReader reader(project, disk, add);
  ForEachName(InListingOrder(std::move(enteredTwice)), bar, [&](const std::string& name) {
    if (!listing.FirstEntry(name)) {
      passedOver.Alone.push_back("There is no first entry of '" + name + "'.");
    } else {
      reader.Read(name, FirstEntryFile(listing, name), listing.File(SubjectPlace::Second, name), passedOver);
    }
  });
  return passedOver;
}

PassedOver ReadPairsWith(const std::string& directory, const ProjectParameters& project, Disk& disk, Progress& bar,
                         const PairSink& add) {
  const std::string sdata = SubjectDirectory(project.PrimaryDir);
  RequireDirectory(disk, sdata, FileOperation::List);
  RequireDirectory(disk, directory, FileOperation::List);
  const SubjectListing own(disk, project, sdata);
  const SubjectListing other(disk, project, directory);
  const std::vector<std::string> names = EnteredOnce(own, project);
  const OwnedNames pairs(EnteredOnce(other, project), names);
  std::vector<std::string> alone = pairs.Unowned();
  PassedOver passedOver;
  PairReader reader(project, disk, add);
  ForEachName(names, bar, [&](const std::string& name) {
    const std::string* const pair = pairs.Of(name);
    if (pair == nullptr) return alone.push_back(name);
    reader.Read(name, FirstEntryFile(own, name), FirstEntryFile(other, *pair), passedOver);
  });
  passedOver.Alone.reserve(alone.size());
  for (const std::string& name : InListingOrder(std::move(alone))) {
    passedOver.Alone.push_back("Only one directory has '" + name + "'.");
  }
  return passedOver;
}

void WarnNotCompared(MessageBoxes& boxes, const PassedOver& passedOver) {
  std::string lines;
  for (const auto* texts : {&passedOver.Alone, &passedOver.Faults}) {
    for (const std::string& text : *texts) lines += (lines.empty() ? "" : "\n") + text;
  }
  if (!lines.empty()) Warn(boxes, "The report leaves out what cannot be compared.", lines);
}

}  // namespace zova
